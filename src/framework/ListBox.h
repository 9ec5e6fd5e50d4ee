// A list control's contents: the lines it shows and the selected one.
#pragma once

#include <string>
#include <vector>

inline constexpr int LB_ERR = -1;

class CListBox {
public:
    int AddString(const std::string& text) {
        m_lines.push_back(text);
        return static_cast<int>(m_lines.size()) - 1;
    }
    void ResetContent() {
        m_lines.clear();
        m_sel = LB_ERR;
    }
    int GetCount() const { return static_cast<int>(m_lines.size()); }
    const std::string& GetText(int index) const { return m_lines.at(static_cast<std::size_t>(index)); }
    int GetCurSel() const { return m_sel; }
    // LB_ERR clears the selection; an index past the end selects nothing.
    void SetCurSel(int index) { m_sel = (index >= 0 && index < GetCount()) ? index : LB_ERR; }

private:
    std::vector<std::string> m_lines;
    int m_sel = LB_ERR;
};
