#pragma once

#include "UI/Workspace.h"

#include <QObject>

#include <utility>
#include <vector>

class QAction;
class QMenu;
class QWidget;

namespace kerlune {

// What uses the selected font in another program: one menu, in the menu bar, at the pointer and in the toolbar.
//
// Thread: main.
class ApplyActions final : public QObject {
    Q_OBJECT

public:
    ApplyActions(Workspace &workspace, QWidget &window);

    QMenu *menu() const { return m_menu; }
    QAction *toFrontmost() const { return m_toFrontmost; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override; // the window's change of language

private:
    void makeActions();
    void retranslate();
    void update();
    void toggleShuffle();

    Workspace &m_workspace;
    QMenu *m_menu;
    QMenu *m_shuffleMenu;
    QAction *m_toFrontmost;
    std::vector<std::pair<HostApp, QAction *>> m_toHosts;
    QAction *m_shuffle;
    QAction *m_next;
    QAction *m_previous;
    QAction *m_random;
    std::vector<QPropertyNotifier> m_observers;
};

} // namespace kerlune
