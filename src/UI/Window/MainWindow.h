#pragma once

#include "UI/Workspace.h"

#include <QMainWindow>
#include <QTimer>

#include <vector>

class QSplitter;

namespace kerlune {

class BrowserPane;
class FilterBar;
class Inspector;
class LargePreview;
class NoticeBar;
class Pages;
class Sidebar;
class Toolbar;
class WindowMenus;

// The window: it puts the parts together, keeps how they were left, and carries out what they ask of each other.
//
// Thread: main.
class MainWindow final : public QMainWindow {
    Q_OBJECT

public:
    static constexpr QSize kStandardSize{1280, 800};

    // The workspace must outlive the window.
    explicit MainWindow(Workspace &workspace, QWidget *parent = nullptr);
    ~MainWindow() override;

    bool isPainted() const; // the library is there, and all that is in sight with it

    void present();                          // shows it in front of all
    void presentFamily(const std::string &); // with this family selected
    void open(const QStringList &paths);     // watches folders; selects the families of files that are known
    void showPanel(Workspace::Panel panel);
    void showSettings();

Q_SIGNALS:
    void painted(); // for the first time, with all that is in sight
    void quitWanted();

protected:
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    QWidget *makeCentre();
    void connectParts();
    void retranslate();
    void chooseFolder();
    void restoreLayout();
    void keepLayout();
    void checkSelection();
    bool selectionExists() const;
    void notePainted();
    void takeLibrary();
    void selectOpened();

    Workspace &m_workspace;
    QSplitter *m_splitter = nullptr;
    Sidebar *m_sidebar = nullptr;
    Toolbar *m_toolbar = nullptr;
    FilterBar *m_filterBar = nullptr;
    BrowserPane *m_browser = nullptr;
    Pages *m_pages = nullptr;
    Inspector *m_inspector = nullptr;
    NoticeBar *m_notices = nullptr;
    LargePreview *m_largePreview = nullptr;
    WindowMenus *m_menus = nullptr;
    QTimer m_paintCheck;
    QTimer m_keeping;
    bool m_isSelectionChecked = false; // what was selected the last time exists, or gave way
    QStringList m_opened;              // files whose families are to be selected once the library has them
    QStringList m_added;               // those of them whose folders are added for it
    std::vector<QPropertyNotifier> m_observers;
};

} // namespace kerlune
