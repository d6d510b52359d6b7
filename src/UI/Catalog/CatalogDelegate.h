#pragma once

#include "UI/Preview/PreviewRequest.h"
#include "UI/Workspace.h"

#include <QStyledItemDelegate>

namespace kerlune {

class CatalogModel;

// A family of the catalogue as a card or as a line: its preview, its name, and whether it is installed.
//
// Thread: main.
class CatalogDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    enum class Form { Card, Line };

    CatalogDelegate(Workspace &workspace, const CatalogModel &model, QObject *parent = nullptr);

    void setForm(Form form) { m_form = form; }
    Form form() const { return m_form; }
    int height() const; // of a card or a line at the chosen preview size
    void setCell(const QSize &cell) { m_cell = cell; }
    const QSize &cell() const { return m_cell; }

    // The preview of a row; without a face while its font has not come.
    PreviewRequest request(int row, qreal devicePixelRatio) const;
    // Where a click installs the family.
    QRect signRect(const QRect &cell) const;

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

private:
    QRect previewRect(const QRect &cell) const;
    QRect nameRect(const QRect &cell) const;
    void paintGround(QPainter &painter, const QStyleOptionViewItem &option) const;
    void paintPreview(QPainter &painter, const QRect &cell, int row) const;
    void paintNames(QPainter &painter, const QRect &cell, int row) const;
    void paintSign(QPainter &painter, const QRect &cell, int row) const;

    Workspace &m_workspace;
    const CatalogModel &m_model;
    Form m_form = Form::Card;
    QSize m_cell;
};

} // namespace kerlune
