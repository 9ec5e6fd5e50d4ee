// Parameter dialog of Batch/Truncate: the data file and its replications, a
// title, the initial truncation (unit and amount), the batches (unit and size)
// and the file that receives the batch means. Fields are the texts a user typed.
#pragma once

#include <string>

#include "dialog/FileDialogs.h"

class CFiltrDlg : public CBaseDlg {
public:
    // Lengths the controls accept; a longer text is cut as the control would.
    static constexpr std::size_t kFileLimit = 255;
    static constexpr std::size_t kComboLimit = 128;
    // The title becomes the header title of the output file, which holds 60.
    static constexpr std::size_t kTitleLimit = 60;
    static constexpr double kRealMin = 0.0;
    static constexpr double kRealMax = 999999.0;

    std::string m_strTruncType;   // "Time", "Observation", or empty
    std::string m_strTrunc;       // initial observations or time
    std::string m_strBatchType;   // "Time", "Observation", or empty
    std::string m_strBatchSize;
    std::string m_strOutFile;     // empty: no output file

    // Filled by the field exchange.
    double m_dTrunc = 0.0;
    double m_dBatchSize = 0.0;
    int m_nTreatment = 1;

    // The field exchange, then the checks in dialog order. 0 or the message id;
    // FocusControl names the control at fault.
    int Validate(int* failingIndex) override;
    std::vector<DlgField> Fields() override;

    // Cuts the texts to the control limits and reads the two numbers: an
    // unreadable number gives 15927, one outside 0..999999 the framework's range
    // message. Runs first in Validate.
    int DoDataExchange();

    // A unit combo's text as a code: 0 time, 1 observations, -1 not given.
    static int UnitCode(const std::string& text);
    // A batch size is taken only when positive; otherwise it is not given (-1.0).
    static double BatchSizeTaken(double size);

private:
    int Fail(int id, DlgControl control);
};
