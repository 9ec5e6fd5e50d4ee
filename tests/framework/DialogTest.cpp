// What pressing OK does: field exchange first, then validation, each failure
// shown once and stopping there.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "framework/Dialog.h"
#include "framework/Host.h"
#include "group/RecordingHost.h"

namespace {

class CScriptedDlg : public CDialog {
public:
    bool exchangeOk = true;
    int validateResult = 0;
    int validated = 0;
    bool ExchangeFields(std::string* message) override {
        if (!exchangeOk) *message = "Please enter an integer.";
        return exchangeOk;
    }
    int Validate(int*) override {
        ++validated;
        return validateResult;
    }
};

TEST(Dialog, OkExchangesThenValidates) {
    struct Case {
        bool exchangeOk;
        int validateResult;
        int expected;
        int validated;
        int shownId;  // -1: nothing shown
    };
    const Case cases[] = {
        {true, 0, 0, 1, -1},
        {false, 15811, -1, 0, 0},   // the exchange's free text; validation never runs
        {true, 15811, 15811, 1, 15811},
        {true, -15925, -15925, 1, 15925},  // a pair check's field by sign; the message by id
    };
    for (const Case& c : cases) {
        RecordingHost host;
        ScopedHost scope(&host);
        CScriptedDlg dlg;
        dlg.exchangeOk = c.exchangeOk;
        dlg.validateResult = c.validateResult;
        EXPECT_EQ(dlg_ValidateOnOK(dlg), c.expected);
        EXPECT_EQ(dlg.validated, c.validated);
        EXPECT_EQ(host.Ids(), c.shownId < 0 ? std::vector<int>{} : std::vector<int>{c.shownId});
    }
}

TEST(Dialog, DoModalAsksTheHost) {
    RecordingHost host;  // cancels every dialog
    ScopedHost scope(&host);
    CScriptedDlg dlg;
    EXPECT_EQ(dlg.DoModal(), IDCANCEL);
    EXPECT_EQ(host.dialogsRun, 1);
    EXPECT_EQ(dlg.validated, 0);
}

}  // namespace
