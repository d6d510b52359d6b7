#pragma once

#include "UI/Workspace.h"

#include <QWidget>

#include <optional>
#include <vector>

class QToolButton;

namespace kerlune {

class SidebarActions;
class SidebarModel;
class SidebarView;
enum class SidebarGroup;

// The selections of the library, watched folders, collections, smart collections and tags.
//
// Thread: main.
class Sidebar final : public QWidget {
    Q_OBJECT

public:
    explicit Sidebar(Workspace &workspace, QWidget *parent = nullptr);

    void addCollection(); // makes one of the selected families and lets the user name it
    void addTag();        // asks for a tag for the selected families

    QSize sizeHint() const override { return {220, 600}; }

protected:
    void changeEvent(QEvent *event) override;

private:
    void connectModel();
    void connectView();
    void addHeadButton(SidebarGroup group);
    void retranslate();
    void showSelection();
    void takeSelection();
    void dropFamilies(const QModelIndex &target, const std::vector<std::string> &families);
    void showMenu(const QModelIndex &index, const QPoint &position);
    void rename(const SidebarSelection &selection);
    void promptForTag();
    void restoreExpanded();
    void keepExpanded(const QModelIndex &head);

    Workspace &m_workspace;
    SidebarModel *m_model;
    SidebarView *m_view;
    SidebarActions *m_actions;
    std::vector<std::pair<SidebarGroup, QToolButton *>> m_headButtons;
    std::optional<SidebarSelection> m_shown; // as it was last found in the list
    bool m_isUpdating = false; // the rows change: what the view selects meanwhile is not the user's choice
    std::vector<QPropertyNotifier> m_observers;
};

} // namespace kerlune
