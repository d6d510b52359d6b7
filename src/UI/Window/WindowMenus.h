#pragma once

#include "UI/Workspace.h"

#include <QKeySequence>
#include <QList>
#include <QObject>

#include <functional>
#include <vector>

class QAction;
class QMenu;

namespace kerlune {

class ApplyActions;
class BackupActions;
class BrowserPane;
class FilterBar;
class FontCommands;
class Inspector;
class MainWindow;
class Sidebar;

// The menu bar, with every action and its shortcut.
//
// Thread: main.
class WindowMenus final : public QObject {
    Q_OBJECT

public:
    struct Parts {
        Sidebar &sidebar;
        FilterBar &filterBar;
        BrowserPane &browser;
        Inspector &inspector;
    };

    WindowMenus(Workspace &workspace, MainWindow &window, Parts parts);

    ApplyActions *applyActions() const;
    QMenu *fontMenu() const; // what can be done with the selected families

    // For the sheet of shortcuts.
    struct Section {
        QString title = {};
        std::vector<const QAction *> actions = {};
    };
    std::vector<Section> sections() const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override; // the window's change of language

private:
    using Text = const char *;
    using Keys = QList<QKeySequence>;

    QMenu *addMenu(Text text);
    QAction *add(QMenu *menu, Text text, const Keys &keys, std::function<void()> does);
    void makeFileMenu();
    void makeEditMenu();
    void makeViewMenu();
    void makeLibraryMenu();
    void makeHelpMenu();
    void addViewModes(QMenu *menu);
    void addPanels(QMenu *menu);
    void scalePreview(double factor);
    void selectAll();
    void analyse();
    void retranslate();
    void showUndo();

    Workspace &m_workspace;
    MainWindow &m_window;
    Parts m_parts;
    FontCommands *m_fontCommands;
    BackupActions *m_backups;
    std::vector<QMenu *> m_menus;
    std::vector<std::pair<QMenu *, Text>> m_menuTexts;
    std::vector<std::pair<QAction *, Text>> m_actionTexts;
    QAction *m_undo = nullptr;
    QAction *m_redo = nullptr;
    QAction *m_sidebarShown = nullptr;
    QAction *m_inspectorShown = nullptr;
    std::vector<QAction *> m_viewModes;
    std::vector<QPropertyNotifier> m_observers;
};

} // namespace kerlune
