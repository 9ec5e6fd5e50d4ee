#include "dialog/FileDialogs.h"

#include "datafile/DataFile.h"

CMultiFileItem::CMultiFileItem(std::string path, std::string reps)
    : m_strPath(std::move(path)), m_strReps(std::move(reps)), m_nTreatment(op_ParseRepTreatment(m_strReps.c_str())) {}

void CBaseMultiDlg::AddFile(const std::string& path, const std::string& reps) { m_items.emplace_back(path, reps); }
