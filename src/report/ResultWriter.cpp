#include "report/ResultWriter.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <ostream>

namespace {

using Kind = ResultValue::Kind;

// Length of the well-formed UTF-8 sequence at s[i], or 0 when it is not one.
std::size_t Utf8Length(const std::string& s, std::size_t i) {
    const auto byte = [&](std::size_t k) { return static_cast<unsigned char>(s[k]); };
    const unsigned char c = byte(i);
    std::size_t n = 0;
    unsigned min = 0, code = 0;
    if (c >= 0xc2 && c <= 0xdf) {
        n = 2, min = 0x80, code = c & 0x1fu;
    } else if (c >= 0xe0 && c <= 0xef) {
        n = 3, min = 0x800, code = c & 0x0fu;
    } else if (c >= 0xf0 && c <= 0xf4) {
        n = 4, min = 0x10000, code = c & 0x07u;
    } else {
        return 0;
    }
    if (i + n > s.size()) return 0;
    for (std::size_t k = 1; k < n; ++k) {
        if ((byte(i + k) & 0xc0u) != 0x80u) return 0;
        code = (code << 6) | (byte(i + k) & 0x3fu);
    }
    // Overlong forms, surrogates and code points past Unicode are not UTF-8.
    if (code < min || code > 0x10ffff || (code >= 0xd800 && code <= 0xdfff)) return 0;
    return n;
}

void AppendString(std::string& out, const std::string& s) {
    static const char kHex[] = "0123456789abcdef";
    out += '"';
    for (std::size_t i = 0; i < s.size();) {
        const unsigned char c = static_cast<unsigned char>(s[i]);
        if (c >= 0x80) {
            if (std::size_t n = Utf8Length(s, i)) {
                out.append(s, i, n);
                i += n;
            } else {
                // A stray byte is taken as Latin-1: U+0080..U+00FF.
                out += "\\u00";
                out += kHex[c >> 4];
                out += kHex[c & 0xf];
                ++i;
            }
            continue;
        }
        switch (c) {
            case '"': out += "\\\""; break;
            case '\\': out += "\\\\"; break;
            case '\n': out += "\\n"; break;
            case '\r': out += "\\r"; break;
            case '\t': out += "\\t"; break;
            case '\b': out += "\\b"; break;
            case '\f': out += "\\f"; break;
            default:
                if (c < 0x20) {
                    out += "\\u00";
                    out += kHex[c >> 4];
                    out += kHex[c & 0xf];
                } else {
                    out += static_cast<char>(c);
                }
        }
        ++i;
    }
    out += '"';
}

bool IsScalar(const ResultValue& v) { return v.GetKind() != Kind::List && v.GetKind() != Kind::Object; }

bool HoldsOnlyScalars(const ResultValue& v) {
    for (const ResultValue& item : v.Items())
        if (!IsScalar(item)) return false;
    return true;
}

void Append(std::string& out, const ResultValue& v, bool pretty, int depth) {
    switch (v.GetKind()) {
        case Kind::Null: out += "null"; return;
        case Kind::Bool: out += v.AsBool() ? "true" : "false"; return;
        case Kind::Number: out += res_JsonNumber(v.AsNumber()); return;
        case Kind::String: AppendString(out, v.AsString()); return;
        case Kind::List:
        case Kind::Object: break;
    }
    const bool object = v.GetKind() == Kind::Object;
    const bool multiline = pretty && !HoldsOnlyScalars(v);
    const std::string indent = multiline ? std::string(2 * (depth + 1), ' ') : std::string();
    const char* separator = multiline ? ",\n" : (pretty ? ", " : ",");
    out += object ? '{' : '[';
    if (multiline && v.Size() > 0) out += '\n';
    for (std::size_t i = 0; i < v.Size(); ++i) {
        if (i > 0) out += separator;
        out += indent;
        if (object) {
            AppendString(out, v.Keys()[i]);
            out += pretty ? ": " : ":";
        }
        Append(out, v.Items()[i], pretty, depth + 1);
    }
    if (multiline && v.Size() > 0) {
        out += '\n';
        out.append(2 * depth, ' ');
    }
    out += object ? '}' : ']';
}

std::string CsvField(const ResultValue& v) {
    std::string text;
    switch (v.GetKind()) {
        case Kind::Null: return {};
        case Kind::Bool: return v.AsBool() ? "true" : "false";
        case Kind::Number: return std::isfinite(v.AsNumber()) ? res_JsonNumber(v.AsNumber()) : std::string();
        case Kind::String: text = v.AsString(); break;
        case Kind::List:
        case Kind::Object: text = res_JsonText(v, false); break;
    }
    if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
    std::string quoted = "\"";
    for (char c : text) {
        if (c == '"') quoted += '"';
        quoted += c;
    }
    return quoted + '"';
}

}  // namespace

std::string res_JsonNumber(double x) {
    if (!std::isfinite(x)) return "null";
    char buffer[32];
    auto [end, ec] = std::to_chars(buffer, buffer + sizeof buffer, x);
    return std::string(buffer, ec == std::errc() ? end : buffer);
}

std::string res_JsonText(const ResultValue& v, bool pretty) {
    std::string out;
    Append(out, v, pretty, 0);
    return out;
}

void res_WriteJson(std::ostream& out, const ResultValue& v) { out << res_JsonText(v, true) << '\n'; }

void res_WriteCsv(std::ostream& out, const ResultValue& rows) {
    std::vector<std::string> header;
    bool scalars = false;
    for (const ResultValue& row : rows.Items()) {
        if (row.GetKind() != Kind::Object) {
            scalars = true;
            continue;
        }
        for (const std::string& key : row.Keys())
            if (std::find(header.begin(), header.end(), key) == header.end()) header.push_back(key);
    }
    if (scalars && header.empty()) header.push_back("value");
    std::string line;
    // Appended piecewise: GCC 12 at -O3 warns falsely (-Wrestrict) on a
    // literal plus a temporary string.
    for (std::size_t i = 0; i < header.size(); ++i) {
        if (i) line += ',';
        line += CsvField(ResultValue(header[i]));
    }
    out << line << "\r\n";
    for (const ResultValue& row : rows.Items()) {
        line.clear();
        for (std::size_t i = 0; i < header.size(); ++i) {
            if (i) line += ',';
            if (row.GetKind() != Kind::Object) {
                if (i == 0) line += CsvField(row);
            } else if (const ResultValue* field = row.Find(header[i])) {
                line += CsvField(*field);
            }
        }
        out << line << "\r\n";
    }
}
