#pragma once

#include "UI/Sidebar/SidebarModel.h"

#include <QTimer>
#include <QTreeView>

namespace kerlune {

class SidebarDelegate;

// The tree of the sidebar. The keyboard goes through heads and entries; only entries get selected, and a head keeps the
// selection where it is. Families dropped on it are for the entry below the pointer, folders and files for the library.
//
// Thread: main.
class SidebarView final : public QTreeView {
    Q_OBJECT

public:
    SidebarView(SidebarModel &model, const Theme &theme, QWidget *parent);

Q_SIGNALS:
    void removeWanted(const QModelIndex &index);
    void menuWanted(const QModelIndex &index, const QPoint &globalPosition);
    void addWanted(kerlune::SidebarGroup group);
    void familiesDropped(const QModelIndex &target, const std::vector<std::string> &families);
    void filesDropped(const QStringList &paths);

protected:
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &index, const QEvent *event) const override;
    void drawBranches(QPainter *painter, const QRect &rect, const QModelIndex &index) const override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    bool takes(QDropEvent &event); // and shows where
    QModelIndex targetAt(const QPoint &position) const;
    void setDropTarget(const QModelIndex &index);
    int scrollStep() const; // what is dragged near an end scrolls there, the faster the nearer; 0 elsewhere
    void scrollOn();
    void endDrag();
    void toggle(const QModelIndex &head) { setExpanded(head, !isExpanded(head)); }

    SidebarModel &m_model;
    SidebarDelegate &m_delegate;
    QTimer m_scrolling;         // while something is dragged near an end
    QPoint m_dragged;           // where it was last
    bool m_hasFamilies = false; // what is dragged
};

} // namespace kerlune
