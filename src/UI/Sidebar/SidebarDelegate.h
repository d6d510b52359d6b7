#pragma once

#include <QStyledItemDelegate>

#include <functional>

namespace kerlune {

class SidebarModel;
class Theme;

// Draws the heads and entries of the sidebar, and places what lies on them: the "+" of a head at its right end, the
// editor of a name over the name.
//
// Thread: main.
class SidebarDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    SidebarDelegate(const SidebarModel &model, const Theme &theme, QObject *parent);

    void setDropTarget(const QModelIndex &index) { m_dropTarget = index; }

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const override;

private:
    void paintHead(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index) const;
    void paintEntry(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index) const;
    void paintGround(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index) const;

    const SidebarModel &m_model;
    const Theme &m_theme;
    QPersistentModelIndex m_dropTarget;
};

} // namespace kerlune
