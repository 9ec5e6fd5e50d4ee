#include "report/ResultValue.h"

ResultValue& ResultValue::Append(ResultValue v) {
    m_items.push_back(std::move(v));
    return m_items.back();
}

ResultValue& ResultValue::Set(std::string_view key, ResultValue v) {
    for (std::size_t i = 0; i < m_keys.size(); ++i)
        if (m_keys[i] == key) {
            m_items[i] = std::move(v);
            return *this;
        }
    m_keys.emplace_back(key);
    m_items.push_back(std::move(v));
    return *this;
}

const ResultValue* ResultValue::Find(std::string_view key) const {
    for (std::size_t i = 0; i < m_keys.size(); ++i)
        if (m_keys[i] == key) return &m_items[i];
    return nullptr;
}
