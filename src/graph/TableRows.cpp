#include "graph/TableRows.h"

#include <algorithm>

#include "datafile/RecordReader.h"
#include "framework/Messages.h"

CTableRows::CTableRows() = default;
CTableRows::~CTableRows() = default;

int CTableRows::Open(const std::vector<TableSource>& files, const TableWindow& window) {
    Close();
    m_window = window;
    const std::int64_t room = std::numeric_limits<std::int64_t>::max() - window.first;
    m_last = window.count > room ? std::numeric_limits<std::int64_t>::max() : window.first + window.count - 1;
    for (const TableSource& source : files) {
        File f;
        f.in = std::make_unique<CRecordReader>();
        f.treatment = source.treatment;
        if (int rc = f.in->Open(source.path)) return rc;
        if (int rc = f.in->Start(source.treatment)) return rc;
        m_files.push_back(std::move(f));
    }
    m_done = window.count < 1;
    m_marks.push_back(Save());
    return 0;
}

void CTableRows::Close() {
    m_files.clear();
    m_marks.clear();
    m_obs = m_row = 0;
    m_done = false;
    m_error = 0;
    m_count = -1;
}

const DataFileHeader& CTableRows::Header(std::size_t i) const { return m_files.at(i).in->Header(); }

bool CTableRows::Next(TableRow* row) {
    if (m_row % kMarkEvery == 0 && m_row / kMarkEvery == static_cast<std::int64_t>(m_marks.size()))
        m_marks.push_back(Save());
    for (;;) {
        if (m_done || !Produce(row)) {
            m_done = true;
            return false;
        }
        if (row->IsRepEnd()) {
            // Replication ends before the first row shown are not shown either.
            if (m_obs < m_window.first) continue;
        } else {
            if (row->obs < m_window.first) continue;
            if (row->obs == m_last) m_done = true;
        }
        ++m_row;
        return true;
    }
}

bool CTableRows::Produce(TableRow* row) {
    row->cells.resize(m_files.size());
    bool any = false;
    for (std::size_t i = 0; i < m_files.size(); ++i) {
        TableCell& cell = row->cells[i];
        cell.filled = false;
        if (m_files[i].state == State::Active && ReadCell(m_files[i], &cell)) any = true;
    }
    if (m_error) return false;
    if (any) {
        row->obs = ++m_obs;
        return true;
    }
    // Every file has ended its replication: a replication-end row when any
    // file goes on, else the end of the table.
    bool more = false;
    for (File& f : m_files)
        if (f.state == State::Between && StartNextReplication(f)) more = true;
    row->obs = 0;
    return more;
}

bool CTableRows::ReadCell(File& f, TableCell* cell) {
    double t = 0.0, v = 0.0;
    while (f.in->NextObs(&t, &v)) {
        if (t < m_window.from || t > m_window.to) continue;
        cell->filled = true;
        cell->time = t;
        cell->value = v;
        return true;
    }
    const RecordKind why = f.in->PassEnd();
    if (why == RecordKind::Error) m_error = IDS_READ_ERROR;
    f.state = why == RecordKind::Boundary && f.treatment == REP_ALL ? State::Between : State::Finished;
    return false;
}

bool CTableRows::StartNextReplication(File& f) {
    const std::int64_t pos = f.in->Tell();
    double t = 0.0, v = 0.0;
    if (!f.in->ReadRecord(&t, &v)) {
        f.state = State::Finished;
        return false;
    }
    f.in->Seek(pos);
    f.in->BeginPass(f.treatment);
    f.state = State::Active;
    return true;
}

CTableRows::Mark CTableRows::Save() const {
    Mark m;
    for (const File& f : m_files) {
        m.pos.push_back(f.in->Tell());
        m.state.push_back(f.state);
    }
    m.obs = m_obs;
    m.done = m_done;
    return m;
}

void CTableRows::Restore(const Mark& m) {
    for (std::size_t i = 0; i < m_files.size(); ++i) {
        File& f = m_files[i];
        f.in->Seek(m.pos[i]);
        f.state = m.state[i];
        if (f.state == State::Active) f.in->BeginPass(f.treatment);
    }
    m_obs = m.obs;
    m_done = m.done;
}

bool CTableRows::SeekRow(std::int64_t i) {
    if (i < 0 || m_marks.empty()) return false;
    const std::int64_t k = std::min<std::int64_t>(i / kMarkEvery, static_cast<std::int64_t>(m_marks.size()) - 1);
    // Back from a mark, or ahead when a mark is nearer than the position.
    if (i < m_row || k * kMarkEvery > m_row) {
        Restore(m_marks[static_cast<std::size_t>(k)]);
        m_row = k * kMarkEvery;
    }
    TableRow scratch;
    while (m_row < i)
        if (!Next(&scratch)) return false;
    return true;
}

std::int64_t CTableRows::Count() {
    if (m_count >= 0) return m_count;
    const Mark back = Save();
    const std::int64_t row = m_row;
    TableRow scratch;
    while (Next(&scratch)) {
    }
    m_count = m_row;
    Restore(back);
    m_row = row;
    return m_count;
}
