#pragma once

#include "UI/Workspace.h"

#include <QStyledItemDelegate>

namespace kerlune {

class FaceListModel;

// Draws one face of a list: the preview text in it, and below what is said of it.
class FaceDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    FaceDelegate(Workspace &workspace, const FaceListModel &model, QObject *parent);

    PreviewRequest request(const QModelIndex &index, const QRect &row, qreal devicePixelRatio) const;

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

private:
    Workspace &m_workspace;
    const FaceListModel &m_model;
};

} // namespace kerlune
