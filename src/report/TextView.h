// Base of every report view: a read-only text in a fixed-pitch font, filled
// once by the analysis's WriteReport. The shared line formats make the reports
// of all analyses line up alike.
#pragma once

#include <cstdio>
#include <string>

#include "framework/Object.h"

class CDocument;

// The font of a report view, in the fields a font request of the desktop host
// takes. The GUI host builds its font from these; the core only records them.
struct ReportFont {
    int height = -12;          // character height 12 logical units
    int width = 0;
    int escapement = 0;
    int orientation = 0;
    int weight = 400;          // normal
    bool italic = false;
    bool underline = false;
    bool strikeOut = false;
    int charSet = 1;           // default character set
    int outPrecision = 0;
    int clipPrecision = 0;
    int quality = 2;           // proof
    int pitchAndFamily = 48;   // modern family, default pitch
    std::string face = "Courier New";
};

class CTextView : public CObject {
public:
    CTextView();

    // Writes the whole report; called once when the view is filled.
    virtual void WriteReport(FILE* stream) = 0;

    // Fills the view: read-only, fixed-pitch font, then the report through the
    // temporary file (txt_FillView). Returns the message id shown, or 0.
    virtual int OnInitialUpdate();

    void SetDocument(CDocument* doc) { m_pDocument = doc; }
    CDocument* GetDocument() const { return m_pDocument; }

    // The view's text once filled (what the edit control would hold).
    const std::string& GetText() const { return m_text; }
    void SetText(std::string text) { m_text = std::move(text); }

    bool IsReadOnly() const { return m_bReadOnly; }
    const ReportFont& GetReportFont() const { return m_font; }

    const char* m_szTitleFmt;    // "%45s\n"   report title, ending in column 45
    const char* m_szLabelFmt;    // "%35s :"   a field label
    const char* m_szStringFmt;   // " %-40s\n" a text value
    const char* m_szIntFmt;      // " %11ld\n" a whole number
    const char* m_szRealFmt;     // " %11.4g\n" a real number

protected:
    CDocument* m_pDocument = nullptr;

private:
    std::string m_text;
    bool m_bReadOnly = false;
    ReportFont m_font;
};

// The report of a view as text, written through a memory stream.
std::string txt_ReportText(CTextView& view);

// Name of the temporary report file, in the current directory. Fixed: two
// views must not be filled at the same time.
inline constexpr const char* kReportTempFile = "__OPROC.TXT";

// Writes the view's report into kReportTempFile, reads it back into the view's
// text and deletes the file. Shows and returns 15945 when the file cannot be
// opened (the view is left as it was) and 15944 when the host's edit control
// cannot hold the text (the first 32767 bytes are kept); otherwise 0.
int txt_FillView(CTextView& view);
