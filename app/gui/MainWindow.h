// The main window of the desktop program: the data group and document
// windows in an MDI area (tabbed or as windows, the user's choice), the menus,
// recent groups and the window's place, kept across runs.
#pragma once

#include <QMainWindow>
#include <QPointer>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class CDocFrame;
class FrameWidget;
class GroupWindow;
class QAction;
class QActionGroup;
class QMdiArea;
class QMdiSubWindow;
class QMenu;
struct GroupCommand;

class MainWindow : public QMainWindow {
    Q_OBJECT
public:
    explicit MainWindow(QWidget* parent = nullptr);
    ~MainWindow() override;

    // Opens the group file at path, or shows its window when it is open already.
    GroupWindow* OpenGroup(const QString& path);
    GroupWindow* NewGroup();
    // Shows a document window the core opened.
    FrameWidget* AddFrame(std::unique_ptr<CDocFrame> frame);

    // The group the Analysis and Edit commands work on: the last active group window.
    GroupWindow* ActiveGroup() const;
    FrameWidget* ActiveFrame() const;
    GroupWindow* ActiveGroupWindow() const;
    QMdiArea* Area() const { return m_area; }
    QMenu* AnalysisMenu() const { return m_analysisMenu; }

    // A table longer than this is printed, previewed or copied only in part,
    // and only when the user agrees.
    static constexpr std::int64_t kMaxOutputRows = 100000;
    // Edit > Copy Report on the active window: its whole report as text.
    void CopyReport();

    // Writes PNG pictures of the window and of each menu opened over it into folder.
    bool SaveScreenshots(const QString& folder);

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void CreateActions();
    void CreateMenus();
    void UpdateActions();
    void UpdateWindowMenu();
    void UpdateRecentMenu();
    void RememberGroup(const QString& path);
    void SetTabbed(bool tabbed);
    QMdiSubWindow* AddSubWindow(QWidget* widget);
    QMdiSubWindow* FindGroupWindow(const QString& path) const;

    void OpenGroupFromDialog();
    void RunCommand(const GroupCommand& command);
    void Print();
    void PrintPreview();
    void ExportGraph(const QString& format);
    void SaveReport();
    // The active window's report for the verb's output; none when the user
    // declines a table cut short.
    std::optional<std::string> ReportToOutput(FrameWidget& frame, const QString& verb);
    void CopyGraph();
    void ShowShortcuts();
    void ShowAbout();

    QMdiArea* m_area;
    QPointer<GroupWindow> m_group;
    int m_newGroups = 0;

    QMenu* m_recentMenu = nullptr;
    QMenu* m_analysisMenu = nullptr;
    QMenu* m_windowMenu = nullptr;
    QAction* m_newAct = nullptr;
    QAction* m_openAct = nullptr;
    QAction* m_saveAct = nullptr;
    QAction* m_saveAsAct = nullptr;
    QAction* m_closeAct = nullptr;
    QAction* m_printAct = nullptr;
    QAction* m_previewAct = nullptr;
    QAction* m_pngAct = nullptr;
    QAction* m_svgAct = nullptr;
    QAction* m_pdfAct = nullptr;
    QAction* m_saveReportAct = nullptr;
    QAction* m_exitAct = nullptr;
    QAction* m_addAct = nullptr;
    QAction* m_removeAct = nullptr;
    QAction* m_copyReportAct = nullptr;
    QAction* m_copyGraphAct = nullptr;
    QAction* m_tileAct = nullptr;
    QAction* m_cascadeAct = nullptr;
    QAction* m_nextAct = nullptr;
    QAction* m_previousAct = nullptr;
    QAction* m_tabbedAct = nullptr;
    QAction* m_shortcutsAct = nullptr;
    QAction* m_aboutAct = nullptr;
    std::vector<QAction*> m_commandActions;
};
