#pragma once

#include "UI/Workspace.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <vector>

class QAction;
class QMenu;

namespace kerlune {

class ApplyActions;

// What can be done with the selected families: one menu, in the menu bar and at the pointer.
//
// Thread: main.
class FontCommands final : public QObject {
    Q_OBJECT

public:
    FontCommands(Workspace &workspace, QWidget &window);

    QMenu *menu() const { return m_menu; }
    ApplyActions *applyActions() const { return m_apply; }
    void addCopyActions(QMenu &menu) const; // to another menu: the same actions

protected:
    bool eventFilter(QObject *watched, QEvent *event) override; // the window's change of language

private:
    QAction *add(const QKeySequence &keys, void (FontCommands::*does)());
    void makeActions();
    void update();
    void fillCollections();
    void toggleActive();
    void toggleFavorite();
    void addTag();
    void removeFromCollection();
    void compare();
    void copyNames();
    void copyPostScriptNames();
    void copyCss();
    void copyPath();
    void openFolder();
    void copy(const QString &text, const QString &what);

    Workspace &m_workspace;
    QMenu *m_menu;
    ApplyActions *m_apply;
    QMenu *m_collections;
    QAction *m_active;
    QAction *m_favorite;
    QAction *m_tag;
    QAction *m_remove;
    QAction *m_compare;
    QAction *m_copyName;
    QAction *m_copyPostScript;
    QAction *m_copyCss;
    QAction *m_openFolder;
    QAction *m_copyPath;
    QTimer m_updating;
    std::vector<QPropertyNotifier> m_observers;
};

} // namespace kerlune
