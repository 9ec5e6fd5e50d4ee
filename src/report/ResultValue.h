// A small tree of values for results read by scripts: null, true/false, a
// number, a string, a list, or an object whose keys keep the order they were
// set in (so that a JSON export reads like the report). Each analysis turns
// its result record into a ResultRecord; ResultWriter.h writes it out.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

class ResultValue {
public:
    enum class Kind { Null, Bool, Number, String, List, Object };

    ResultValue() = default;  // null
    ResultValue(bool b) : m_kind(Kind::Bool), m_bool(b) {}
    ResultValue(double x) : m_kind(Kind::Number), m_number(x) {}
    ResultValue(int x) : ResultValue(static_cast<double>(x)) {}
    ResultValue(long x) : ResultValue(static_cast<double>(x)) {}
    ResultValue(long long x) : ResultValue(static_cast<double>(x)) {}
    ResultValue(unsigned long x) : ResultValue(static_cast<double>(x)) {}
    // std::size_t on 64-bit Windows.
    ResultValue(unsigned long long x) : ResultValue(static_cast<double>(x)) {}
    // Without these a string literal would become a bool.
    ResultValue(const char* s) : m_kind(Kind::String), m_string(s) {}
    ResultValue(std::string s) : m_kind(Kind::String), m_string(std::move(s)) {}

    static ResultValue List() { return ResultValue(Kind::List); }
    static ResultValue Object() { return ResultValue(Kind::Object); }

    Kind GetKind() const { return m_kind; }
    bool IsNull() const { return m_kind == Kind::Null; }
    bool AsBool() const { return m_bool; }
    double AsNumber() const { return m_number; }
    const std::string& AsString() const { return m_string; }

    // A list's items, or an object's values in key order.
    const std::vector<ResultValue>& Items() const { return m_items; }
    // An object's keys, parallel to Items().
    const std::vector<std::string>& Keys() const { return m_keys; }
    std::size_t Size() const { return m_items.size(); }

    // Appends to a list; returns the item added.
    ResultValue& Append(ResultValue v);
    // Sets a key of an object (replacing an earlier value of that key, in its
    // place); returns *this so that fields chain.
    ResultValue& Set(std::string_view key, ResultValue v);
    // The value of a key of an object; null when absent.
    const ResultValue* Find(std::string_view key) const;

private:
    explicit ResultValue(Kind kind) : m_kind(kind) {}

    Kind m_kind = Kind::Null;
    bool m_bool = false;
    double m_number = 0.0;
    std::string m_string;
    std::vector<ResultValue> m_items;
    std::vector<std::string> m_keys;
};

// What an analysis gives a script: the parameters it ran with (every dialog
// field, the level as a fraction), its results, and the rows a CSV export
// writes (a list of objects, one per entry, pair or lag).
struct ResultRecord {
    ResultValue parameters = ResultValue::Object();
    ResultValue results = ResultValue::Object();
    ResultValue table = ResultValue::List();
};
