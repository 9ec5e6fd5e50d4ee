#include "convert/TextNumbers.h"

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <system_error>

namespace {

constexpr std::uint64_t kSignBit = std::uint64_t{1} << 63;
constexpr std::uint64_t kExponentBits = std::uint64_t{0x7FF} << 52;
constexpr std::uint64_t kFractionBits = (std::uint64_t{1} << 52) - 1;
constexpr std::uint64_t kQuietBit = std::uint64_t{1} << 51;

char Lower(char c) { return (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c; }

// Whether [p, end) starts with word, in any case.
bool StartsWith(const char* p, const char* end, const char* word) {
    const std::size_t n = std::strlen(word);
    if (static_cast<std::size_t>(end - p) < n) return false;
    for (std::size_t i = 0; i < n; ++i)
        if (Lower(p[i]) != word[i]) return false;
    return true;
}

int HexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    c = Lower(c);
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return -1;
}

// "nan" has been read; an optional "(0x<fraction>)" follows.
const char* ParseNaN(const char* p, const char* end, bool negative, double* out) {
    std::uint64_t fraction = kQuietBit;
    if (p != end && *p == '(') {
        const char* q = p + 1;
        if (end - q < 3 || q[0] != '0' || Lower(q[1]) != 'x') return nullptr;
        q += 2;
        std::uint64_t bits = 0;
        int digits = 0;
        for (int d; q != end && (d = HexDigit(*q)) >= 0; ++q, ++digits) bits = bits << 4 | static_cast<unsigned>(d);
        if (digits == 0 || digits > 13 || q == end || *q != ')') return nullptr;
        // A zero fraction would be an infinity, not a NaN.
        if (bits == 0 || bits > kFractionBits) return nullptr;
        fraction = bits;
        p = q + 1;
    }
    *out = std::bit_cast<double>((negative ? kSignBit : 0) | kExponentBits | fraction);
    return p;
}

}  // namespace

std::size_t conv_FormatNumber(char* out, double v, bool single) {
    if (std::isnan(v)) {
        const std::uint64_t bits = std::bit_cast<std::uint64_t>(v);
        char* p = out;
        if (bits & kSignBit) *p++ = '-';
        std::memcpy(p, "nan", 3);
        p += 3;
        const std::uint64_t fraction = bits & kFractionBits;
        if (fraction != kQuietBit) {
            std::memcpy(p, "(0x", 3);
            p = std::to_chars(p + 3, out + kNumberTextMax, fraction, 16).ptr;
            *p++ = ')';
        }
        return static_cast<std::size_t>(p - out);
    }
    // Shortest round trip; infinities come out as "inf" and "-inf".
    std::to_chars_result r = single ? std::to_chars(out, out + kNumberTextMax, static_cast<float>(v))
                                    : std::to_chars(out, out + kNumberTextMax, v);
    return static_cast<std::size_t>(r.ptr - out);
}

const char* conv_ParseNumber(const char* p, const char* end, bool single, double* out) {
    bool negative = false;
    if (p != end && (*p == '-' || *p == '+')) negative = *p++ == '-';
    if (p == end) return nullptr;
    if (StartsWith(p, end, "nan")) return ParseNaN(p + 3, end, negative, out);
    if (StartsWith(p, end, "inf")) {
        p += StartsWith(p, end, "infinity") ? 8 : 3;
        *out = negative ? -HUGE_VAL : HUGE_VAL;
        return p;
    }
    // from_chars takes no sign of its own here: a second sign is an error.
    if (!((*p >= '0' && *p <= '9') || *p == '.')) return nullptr;
    std::from_chars_result r;
    if (single) {
        float f = 0.0f;
        r = std::from_chars(p, end, f);
        *out = f;
    } else {
        r = std::from_chars(p, end, *out);
    }
    if (r.ec != std::errc()) return nullptr;
    if (negative) *out = -*out;
    return r.ptr;
}
