#pragma once

#include "UI/Sidebar/SidebarEntries.h"
#include "UI/Workspace.h"

#include <QObject>

class QMenu;
class QWidget;

namespace kerlune {

// What can be done with an entry of the sidebar: by its menu, by keys and by dropping families on it.
//
// Thread: main.
class SidebarActions final : public QObject {
    Q_OBJECT

public:
    SidebarActions(Workspace &workspace, QWidget &parent); // the parent of menus and questions

    void fill(QMenu &menu, const SidebarEntry &entry);
    void fill(QMenu &menu, SidebarGroup group); // for a head
    void remove(const SidebarEntry &entry);     // at once where it can be undone; else it asks first
    void add(SidebarGroup group);
    void addCollection(const std::vector<std::string> &families);
    void addFamilies(const SidebarEntry &target, const std::vector<std::string> &families);

Q_SIGNALS:
    void renameWanted(const kerlune::SidebarSelection &selection);

private:
    void fillForFolder(QMenu &menu, const SidebarEntry &entry);
    void fillForSmart(QMenu &menu, const SidebarEntry &entry);
    void fillForFamilies(QMenu &menu, const SidebarEntry &entry);
    void addRename(QMenu &menu, const SidebarEntry &entry);
    void addRemove(QMenu &menu, const SidebarEntry &entry);
    void askToRemoveFolder(const SidebarEntry &entry);
    void editFilters(const std::string &id);
    std::vector<std::string> families(const SidebarEntry &entry) const; // of a collection or tag, in library order
    std::string newCollectionName() const;

    Workspace &m_workspace;
    QWidget &m_parent;
};

} // namespace kerlune
