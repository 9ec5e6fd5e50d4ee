#include "CommandDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "FileListWidget.h"
#include "QtHost.h"
#include "dialog/FileDialogs.h"
#include "framework/Host.h"
#include "framework/Messages.h"

namespace {

constexpr int IDS_SINGLE_FILE_FILTER = 15937;

QString Q(const std::string& s) { return QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size())); }

std::string Utf8(const QString& s) {
    QByteArray bytes = s.toUtf8();
    return std::string(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

QComboBox* EditableCombo(const QStringList& items, int maxLength) {
    auto* box = new QComboBox;
    box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    box->addItems(items);
    if (maxLength > 0) box->lineEdit()->setMaxLength(maxLength);
    box->setMinimumContentsLength(24);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    return box;
}

// A text field with a browse button beside it.
QWidget* WithBrowse(QWidget* field, const QString& text, const std::function<void()>& browse) {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(field, 1);
    auto* button = new QPushButton(text);
    button->setAutoDefault(false);
    QObject::connect(button, &QPushButton::clicked, field, browse);
    layout->addWidget(button);
    return row;
}

QString Text(QWidget* w) {
    if (auto* box = qobject_cast<QComboBox*>(w)) return box->currentText();
    if (auto* edit = qobject_cast<QLineEdit*>(w)) return edit->text();
    return {};
}

void SetText(QWidget* w, const QString& text) {
    if (auto* box = qobject_cast<QComboBox*>(w)) box->setEditText(text);
    if (auto* edit = qobject_cast<QLineEdit*>(w)) edit->setText(text);
}

QStringList Cells(const CMultiFileItem& item) { return {Q(item.m_strPath), Q(item.m_strReps)}; }

// The row's entry, keeping what the previous entry for the same file held.
CMultiFileItem Entry(const QString& path, const QString& reps, const CMultiFileItem* previous) {
    CMultiFileItem item(Utf8(path), Utf8(reps));
    if (previous && previous->m_strPath == item.m_strPath) item.m_strIdent = previous->m_strIdent;
    return item;
}

}  // namespace

CommandDialog::CommandDialog(CDialog& dlg, const QString& caption, const QStringList& groupFiles,
                             const QString& selectedFile, QWidget* parent)
    : QDialog(parent), m_dlg(dlg), m_fields(dlg.Fields()) {
    setWindowTitle(dlg.CaptionId() ? Q(msg_Text(dlg.CaptionId())) : caption);
    auto* layout = new QVBoxLayout(this);
    auto* form = new QFormLayout;

    if (dynamic_cast<CBaseDlg*>(&dlg)) {
        m_file = EditableCombo(groupFiles, 255);
        m_file->setObjectName(QStringLiteral("file"));
        form->addRow(tr("Data &File:"), WithBrowse(m_file, tr("&Browse..."), [this] {
                         QString path = QFileDialog::getOpenFileName(
                             this, tr("Data File"), QString(), QtHost::QtFileFilter(msg_Text(IDS_SINGLE_FILE_FILTER)));
                         if (!path.isEmpty()) m_file->setEditText(path);
                     }));
        m_reps = EditableCombo({QStringLiteral("All"), QStringLiteral("Lumped")}, 128);
        m_reps->setObjectName(QStringLiteral("reps"));
        form->addRow(tr("&Replications:"), m_reps);
        m_focus[DlgControl::DataFile] = m_file;
        m_focus[DlgControl::Replications] = m_reps;
    } else if (bool pairs = dynamic_cast<CBasePairsDlg*>(&dlg) != nullptr; pairs || dynamic_cast<CBaseMultiDlg*>(&dlg)) {
        m_list = new FileListWidget(pairs ? 2 : 1, groupFiles, selectedFile);
        auto* box = new QGroupBox(pairs ? tr("File &Pairs") : tr("Data &Files"));
        auto* boxLayout = new QVBoxLayout(box);
        boxLayout->addWidget(m_list);
        layout->addWidget(box, 1);
        m_focus[DlgControl::FileList] = m_list;
    }

    for (DlgField& f : m_fields) {
        QWidget* widget = nullptr;
        QWidget* row = nullptr;
        int limit = static_cast<int>(f.maxLength);
        QStringList items;
        for (const std::string& item : f.items) items << Q(item);
        switch (f.kind) {
            case DlgField::Kind::Text:
                if (items.isEmpty()) {
                    auto* edit = new QLineEdit;
                    if (limit > 0) edit->setMaxLength(limit);
                    widget = edit;
                } else {
                    widget = EditableCombo(items, limit);
                }
                break;
            case DlgField::Kind::Choice: {
                auto* box = new QComboBox;
                box->addItems(items);
                widget = box;
                break;
            }
            case DlgField::Kind::Check:
                widget = new QCheckBox(Q(f.label));
                break;
            case DlgField::Kind::SaveFile: {
                auto* edit = new QLineEdit;
                if (limit > 0) edit->setMaxLength(limit);
                widget = edit;
                QString filter = QtHost::QtFileFilter(f.filter);
                row = WithBrowse(edit, tr("Bro&wse..."), [this, edit, filter] {
                    QString path = QFileDialog::getSaveFileName(this, QString(), edit->text(), filter, nullptr,
                                                                QFileDialog::DontConfirmOverwrite);
                    if (!path.isEmpty()) edit->setText(path);
                });
                break;
            }
        }
        widget->setObjectName(QString::fromLatin1(f.key));
        if (f.kind == DlgField::Kind::Check)
            form->addRow(QString(), widget);
        else
            form->addRow(Q(f.label), row ? row : widget);
        if (f.control != DlgControl::None) m_focus[f.control] = widget;
        m_fieldWidgets.push_back(widget);
    }
    layout->addLayout(form);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &CommandDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &CommandDialog::reject);
    layout->addWidget(buttons);
    resize(m_list ? QSize(640, 460) : sizeHint().expandedTo(QSize(520, 0)));
    Load();
}

QWidget* CommandDialog::FieldWidget(const QString& key) const {
    if (key == QStringLiteral("files")) return m_list;
    return findChild<QWidget*>(key);
}

void CommandDialog::Load() {
    if (auto* single = dynamic_cast<CBaseDlg*>(&m_dlg)) {
        m_file->setEditText(Q(single->m_strFile));
        m_reps->setEditText(Q(single->m_strReps));
    } else if (auto* multi = dynamic_cast<CBaseMultiDlg*>(&m_dlg)) {
        QList<QStringList> rows;
        for (const CMultiFileItem& item : multi->m_items) rows << Cells(item);
        m_list->SetRows(rows);
    } else if (auto* pairs = dynamic_cast<CBasePairsDlg*>(&m_dlg)) {
        QList<QStringList> rows;
        for (const CFilePairItem& pair : pairs->m_pairs) rows << Cells(pair.a) + Cells(pair.b);
        m_list->SetRows(rows);
    }
    for (std::size_t i = 0; i < m_fields.size(); ++i) {
        const DlgField& f = m_fields[i];
        QWidget* w = m_fieldWidgets[i];
        if (f.text) SetText(w, Q(*f.text));
        if (f.check) static_cast<QCheckBox*>(w)->setChecked(*f.check);
        if (f.value) {
            auto at = std::find(f.values.begin(), f.values.end(), *f.value);
            static_cast<QComboBox*>(w)->setCurrentIndex(at == f.values.end() ? 0 : static_cast<int>(at - f.values.begin()));
        }
    }
}

void CommandDialog::Store() {
    if (auto* single = dynamic_cast<CBaseDlg*>(&m_dlg)) {
        single->m_strFile = Utf8(m_file->currentText().trimmed());
        single->m_strReps = Utf8(m_reps->currentText().trimmed());
    } else if (auto* multi = dynamic_cast<CBaseMultiDlg*>(&m_dlg)) {
        std::vector<CMultiFileItem> items;
        const QList<QStringList> rows = m_list->Rows();
        for (qsizetype r = 0; r < rows.size(); ++r) {
            const CMultiFileItem* previous = r < static_cast<qsizetype>(multi->m_items.size()) ? &multi->m_items[r] : nullptr;
            items.push_back(Entry(rows[r][0], rows[r][1], previous));
        }
        multi->m_items = std::move(items);
    } else if (auto* pairs = dynamic_cast<CBasePairsDlg*>(&m_dlg)) {
        std::vector<CFilePairItem> list;
        const QList<QStringList> rows = m_list->Rows();
        for (qsizetype r = 0; r < rows.size(); ++r) {
            const CFilePairItem* previous = r < static_cast<qsizetype>(pairs->m_pairs.size()) ? &pairs->m_pairs[r] : nullptr;
            list.push_back({Entry(rows[r][0], rows[r][1], previous ? &previous->a : nullptr),
                            Entry(rows[r][2], rows[r][3], previous ? &previous->b : nullptr)});
        }
        pairs->m_pairs = std::move(list);
    }
    for (std::size_t i = 0; i < m_fields.size(); ++i) {
        const DlgField& f = m_fields[i];
        QWidget* w = m_fieldWidgets[i];
        if (f.text) *f.text = Utf8(Text(w));
        if (f.check) *f.check = static_cast<QCheckBox*>(w)->isChecked();
        if (f.value) {
            int index = static_cast<QComboBox*>(w)->currentIndex();
            if (index >= 0 && index < static_cast<int>(f.values.size())) *f.value = f.values[static_cast<std::size_t>(index)];
        }
    }
}

void CommandDialog::Focus(DlgControl control, int row) {
    QWidget* w = m_focus.value(control, nullptr);
    if (!w) return;
    if (w == m_list) {
        m_list->FocusRow(row);
        return;
    }
    w->setFocus();
    if (auto* edit = qobject_cast<QLineEdit*>(w)) edit->selectAll();
    if (auto* box = qobject_cast<QComboBox*>(w); box && box->lineEdit()) box->lineEdit()->selectAll();
}

void CommandDialog::accept() {
    Store();
    int row = -1;
    if (dlg_ValidateOnOK(m_dlg, &row) == 0) {
        QDialog::accept();
        return;
    }
    // The message was shown; the user corrects the field at fault.
    Focus(m_dlg.FocusControl(), row);
}

int gui_RunCommandDialog(CDialog& dlg, const QString& caption, const QStringList& groupFiles,
                         const QString& selectedFile, QWidget* parent) {
    CommandDialog dialog(dlg, caption, groupFiles, selectedFile, parent);
    return dialog.exec() == QDialog::Accepted ? IDOK : IDCANCEL;
}
