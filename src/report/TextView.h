// Base of every report view: a read-only text in a fixed-pitch font, filled
// once by the analysis's WriteReport. The shared line formats make the reports
// of all analyses line up alike.
#pragma once

#include <cstdio>
#include <string>

#include "framework/Object.h"

class CDocument;

class CTextView : public CObject {
public:
    CTextView();

    // Writes the whole report; called once when the view is filled.
    virtual void WriteReport(FILE* stream) = 0;

    void SetDocument(CDocument* doc) { m_pDocument = doc; }
    CDocument* GetDocument() const { return m_pDocument; }

    // The view's text once filled (what the edit control would hold).
    const std::string& GetText() const { return m_text; }
    void SetText(std::string text) { m_text = std::move(text); }

    const char* m_szTitleFmt;    // "%45s\n"   report title, ending in column 45
    const char* m_szLabelFmt;    // "%35s :"   a field label
    const char* m_szStringFmt;   // " %-40s\n" a text value
    const char* m_szIntFmt;      // " %11ld\n" a whole number
    const char* m_szRealFmt;     // " %11.4g\n" a real number

protected:
    CDocument* m_pDocument = nullptr;

private:
    std::string m_text;
};

// The report of a view as text, written through a memory stream.
std::string txt_ReportText(CTextView& view);
