#include "DialogSettings.h"

#include <QSettings>

#include "dialog/FileDialogs.h"
#include "framework/DocTemplate.h"
#include "group/CommandTable.h"

namespace {

QString Q(const std::string& s) { return QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size())); }

std::string Utf8(const QString& s) {
    QByteArray bytes = s.toUtf8();
    return std::string(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

void WriteItem(QSettings& s, const char* prefix, const CMultiFileItem& item) {
    s.setValue(QStringLiteral("%1path").arg(QLatin1String(prefix)), Q(item.m_strPath));
    s.setValue(QStringLiteral("%1reps").arg(QLatin1String(prefix)), Q(item.m_strReps));
}

CMultiFileItem ReadItem(QSettings& s, const char* prefix) {
    return CMultiFileItem(Utf8(s.value(QStringLiteral("%1path").arg(QLatin1String(prefix))).toString()),
                          Utf8(s.value(QStringLiteral("%1reps").arg(QLatin1String(prefix))).toString()));
}

}  // namespace

void gui_SaveDialog(const QString& templateName, CDialog& dlg, QSettings& s) {
    s.beginGroup(QStringLiteral("dialogs/") + templateName);
    s.remove(QString());
    if (auto* single = dynamic_cast<CBaseDlg*>(&dlg)) {
        s.setValue(QStringLiteral("file"), Q(single->m_strFile));
        s.setValue(QStringLiteral("reps"), Q(single->m_strReps));
    } else if (auto* multi = dynamic_cast<CBaseMultiDlg*>(&dlg)) {
        s.beginWriteArray(QStringLiteral("files"), static_cast<int>(multi->m_items.size()));
        for (std::size_t i = 0; i < multi->m_items.size(); ++i) {
            s.setArrayIndex(static_cast<int>(i));
            WriteItem(s, "", multi->m_items[i]);
        }
        s.endArray();
    } else if (auto* pairs = dynamic_cast<CBasePairsDlg*>(&dlg)) {
        s.beginWriteArray(QStringLiteral("pairs"), static_cast<int>(pairs->m_pairs.size()));
        for (std::size_t i = 0; i < pairs->m_pairs.size(); ++i) {
            s.setArrayIndex(static_cast<int>(i));
            WriteItem(s, "a", pairs->m_pairs[i].a);
            WriteItem(s, "b", pairs->m_pairs[i].b);
        }
        s.endArray();
    }
    for (const DlgField& f : dlg.Fields()) {
        QString key = QString::fromLatin1(f.key);
        if (f.text) s.setValue(key, Q(*f.text));
        if (f.check) s.setValue(key, *f.check);
        if (f.value) s.setValue(key, *f.value);
    }
    s.endGroup();
}

void gui_LoadDialog(const QString& templateName, CDialog& dlg, QSettings& s) {
    s.beginGroup(QStringLiteral("dialogs/") + templateName);
    if (auto* single = dynamic_cast<CBaseDlg*>(&dlg)) {
        single->m_strFile = Utf8(s.value(QStringLiteral("file"), Q(single->m_strFile)).toString());
        single->m_strReps = Utf8(s.value(QStringLiteral("reps"), Q(single->m_strReps)).toString());
    } else if (auto* multi = dynamic_cast<CBaseMultiDlg*>(&dlg)) {
        int n = s.beginReadArray(QStringLiteral("files"));
        if (n > 0) multi->m_items.clear();
        for (int i = 0; i < n; ++i) {
            s.setArrayIndex(i);
            multi->m_items.push_back(ReadItem(s, ""));
        }
        s.endArray();
    } else if (auto* pairs = dynamic_cast<CBasePairsDlg*>(&dlg)) {
        int n = s.beginReadArray(QStringLiteral("pairs"));
        if (n > 0) pairs->m_pairs.clear();
        for (int i = 0; i < n; ++i) {
            s.setArrayIndex(i);
            pairs->m_pairs.push_back({ReadItem(s, "a"), ReadItem(s, "b")});
        }
        s.endArray();
    }
    for (const DlgField& f : dlg.Fields()) {
        QString key = QString::fromLatin1(f.key);
        if (!s.contains(key)) continue;
        if (f.text) *f.text = Utf8(s.value(key).toString());
        if (f.check) *f.check = s.value(key).toBool();
        if (f.value) *f.value = s.value(key).toInt();
    }
    s.endGroup();
}

void gui_RestoreDialogs(CWinApp& app, QSettings& settings) {
    for (const GroupCommand& command : grp_Commands()) {
        if (!command.make.Built() || app.GetDialog(command.templateName)) continue;
        CDialog& dlg = app.KeepDialog(command.templateName, command.make.createDialog());
        gui_LoadDialog(QString::fromLatin1(command.templateName), dlg, settings);
    }
}
