#pragma once

#include "UI/Sidebar/SidebarEntries.h"
#include "UI/Workspace.h"

#include <QAbstractItemModel>
#include <QFutureWatcher>
#include <QTimer>

#include <array>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace kerlune {

// The groups and below each its entries. It follows the state: rows come, go and move one by one, so that what a view
// has selected, opened for renaming or scrolled to stays where it is. A name that is set renames the thing itself.
//
// Thread: main.
class SidebarModel final : public QAbstractItemModel {
    Q_OBJECT

public:
    explicit SidebarModel(Workspace &workspace, QObject *parent = nullptr);

    void update(); // at once; by itself it follows when the event loop turns

    const SidebarEntry *entry(const QModelIndex &index) const; // null for a head
    SidebarGroup group(const QModelIndex &index) const;        // in which it stands
    bool isHead(const QModelIndex &index) const { return index.isValid() && !index.parent().isValid(); }
    QModelIndex headOf(SidebarGroup group) const;
    QModelIndex indexOf(const SidebarSelection &selection) const; // invalid when it is not listed

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

Q_SIGNALS:
    void updating();
    void updated();

private:
    void followState();
    void countFolders();
    void lookForFolders();
    void takeMissingFolders();
    void update(SidebarGroup group, std::vector<SidebarEntry> next);
    bool rename(const SidebarEntry &entry, const std::string &name);
    std::vector<SidebarEntry> &entries(SidebarGroup group) { return m_entries[static_cast<std::size_t>(group)]; }

    Workspace &m_workspace;
    std::array<std::vector<SidebarEntry>, kAllSidebarGroups.size()> m_entries;
    SidebarFolders m_folders;
    QFutureWatcher<std::set<std::string>> m_missing; // hears only of the last look: an older one is out of date
    bool m_areFolderCountsOld = true;
    QTimer m_updating; // gathers the changes of one turn of the event loop
    std::vector<QPropertyNotifier> m_observers;
};

} // namespace kerlune
