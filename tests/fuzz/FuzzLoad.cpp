// Text of any bytes through Load ASCII. A load that succeeds writes a data
// file whose replications and observations are the ones its result counts,
// in either precision; a load that fails leaves no file.
#include <cstdlib>
#include <initializer_list>

#include "FuzzFiles.h"
#include "convert/ConvertDlgs.h"
#include "convert/LoadDoc.h"
#include "datafile/FileGlobals.h"
#include "datafile/RecordReader.h"

namespace {

void Check(bool ok) {
    if (!ok) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::string source = fuzz_TempPath(".txt");
    static const std::string target = fuzz_TempPath("-load.dat");
    fuzz_WriteFile(source, data, size);

    for (int isDouble : {1, 0}) {
        CLoadDlg dlg;
        dlg.m_strFile = source;
        dlg.m_strOutFile = target;
        dlg.m_nPrecision = isDouble;
        fuzz_Remove(target);
        CLoadDoc doc;
        if (doc.InitFromDialog(dlg) != 0) {
            Check(!fuzz_Exists(target));
            continue;
        }
        const LoadResults& res = doc.Results();
        CRecordReader in;
        Check(in.Open(target) == 0 && in.IsDouble() == isDouble);
        Check(in.CountReps() == res.replications);
        Check(in.Start(REP_LUMPED) == 0);
        long observations = 0;
        double t, v;
        while (in.NextObs(&t, &v)) ++observations;
        Check(!in.Failed() && observations == res.observations);
    }
    return 0;
}
