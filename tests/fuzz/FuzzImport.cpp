// Export text of any bytes through the import. Text the import takes must
// survive a trip back: its data file, exported and imported again, comes out
// byte for byte the same, in either precision. Text it refuses leaves no file.
#include <cstdlib>
#include <initializer_list>

#include "FuzzFiles.h"
#include "convert/ConvertDlgs.h"
#include "convert/ExprtDoc.h"
#include "convert/ImprtDoc.h"

namespace {

void Check(bool ok) {
    if (!ok) std::abort();
}

int Import(const std::string& text, const std::string& data, int isDouble) {
    CImprtDlg dlg;
    dlg.m_strFile = text;
    dlg.m_strOutFile = data;
    dlg.m_nPrecision = isDouble;
    CImprtDoc doc;
    return doc.InitFromDialog(dlg);
}

int Export(const std::string& data, const std::string& text) {
    CExprtDlg dlg;
    dlg.m_strFile = data;
    dlg.m_strOutFile = text;
    CExprtDoc doc;
    return doc.InitFromDialog(dlg);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const std::string source = fuzz_TempPath(".dax");
    static const std::string first = fuzz_TempPath("-1.dat");
    static const std::string text = fuzz_TempPath("-1.dax");
    static const std::string second = fuzz_TempPath("-2.dat");
    fuzz_WriteFile(source, data, size);

    for (int isDouble : {1, 0}) {
        fuzz_Remove(first);
        if (Import(source, first, isDouble) != 0) {
            Check(!fuzz_Exists(first));
            continue;
        }
        Check(Export(first, text) == 0);
        Check(Import(text, second, isDouble) == 0);
        Check(fuzz_ReadFile(first) == fuzz_ReadFile(second));
    }
    return 0;
}
