#pragma once

#include "UI/Browser/BrowserLayout.h"
#include "UI/Preview/PreviewRequest.h"
#include "UI/Workspace.h"

#include <QStyledItemDelegate>

#include <vector>

namespace kerlune {

class CatalogModel;

// A family of the catalogue as a card, as a line or as a waterfall of sizes: its preview, its name, and whether it is
// installed.
//
// Thread: main.
class CatalogDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    enum class Form { Card, Line, Waterfall };

    CatalogDelegate(Workspace &workspace, const CatalogModel &model, QObject *parent = nullptr);

    void setForm(Form form) { m_form = form; }
    Form form() const { return m_form; }
    int height() const; // of a cell at the chosen preview size; a waterfall has its own sizes
    void setCell(const QSize &cell);
    const QSize &cell() const { return m_cell; }

    // What the cell of a row shows; nothing while its font has not come.
    std::vector<PreviewRequest> requests(int row, qreal devicePixelRatio) const;
    // Where a click installs the family.
    QRect signRect(const QRect &cell) const;

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

private:
    struct Names {
        QRect family;
        QRect details;
    };

    std::vector<QRect> previewRects(const QRect &cell) const;
    Names nameRects(const QRect &cell) const;
    void paintGround(QPainter &painter, const QStyleOptionViewItem &option) const;
    void paintPreviews(QPainter &painter, const QRect &cell, int row) const;
    void paintSize(QPainter &painter, const QRect &area, const Preview &preview) const;
    void paintMissing(QPainter &painter, const QRect &area, int row) const;
    void paintNames(QPainter &painter, const QRect &cell, int row) const;
    void paintSign(QPainter &painter, const QRect &cell, int row) const;

    Workspace &m_workspace;
    const CatalogModel &m_model;
    Form m_form = Form::Card;
    QSize m_cell;
    BrowserLayout m_waterfall; // of one cell
};

} // namespace kerlune
