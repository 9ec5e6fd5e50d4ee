// Data group archives (.dgr) of any bytes. A group that loads must save,
// load again to the same items and save again to the same bytes: the writer
// and the reader agree on every group the reader accepts.
#include <cstdlib>
#include <vector>

#include "framework/Archive.h"
#include "group/OutputDoc.h"

namespace {

using Bytes = std::vector<unsigned char>;

void Check(bool ok) {
    if (!ok) std::abort();
}

Bytes Save(COutputDoc& doc) {
    Bytes out;
    CArchive ar(out, CArchive::store);
    doc.Serialize(ar);
    Check(ar.IsOk());
    return out;
}

bool Load(Bytes bytes, COutputDoc& doc) {
    CArchive ar(bytes, CArchive::load);
    doc.Serialize(ar);
    return ar.IsOk();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    COutputDoc doc;
    if (!Load(Bytes(data, data + size), doc)) {
        Check(doc.GetItemCount() == 0);
        return 0;
    }
    const Bytes saved = Save(doc);
    COutputDoc back;
    Check(Load(saved, back));
    Check(back.GetItemCount() == doc.GetItemCount());
    for (int i = 0; i < doc.GetItemCount(); ++i) {
        const CDGItem& a = *doc.GetItem(i);
        const CDGItem& b = *back.GetItem(i);
        Check(a.m_strPath == b.m_strPath && a.m_strDescription == b.m_strDescription && a.m_time == b.m_time);
    }
    Check(Save(back) == saved);
    return 0;
}
