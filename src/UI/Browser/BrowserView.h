#pragma once

#include "UI/Browser/BrowserLayout.h"
#include "UI/Browser/CellPreviews.h"
#include "UI/Browser/FamilyListModel.h"
#include "UI/Browser/FamilyPainter.h"
#include "UI/Workspace.h"

#include <QAbstractItemView>
#include <QElapsedTimer>
#include <QItemSelection>
#include <QTimer>

#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

namespace kerlune {

// The visible families as a grid, a list or a waterfall. What it does costs as much as what it shows, however many
// families there are.
//
// Thread: main.
class BrowserView final : public QAbstractItemView {
    Q_OBJECT

public:
    BrowserView(Workspace &workspace, FamilyListModel &model, QWidget *parent = nullptr);

    void setMode(BrowserLayout::Mode mode);
    const BrowserLayout &cells() const { return m_layout; }
    bool isPainted() const; // every preview in sight is there

    std::vector<int> selectedRows() const; // ascending
    std::vector<std::string> selectedNames() const;
    void selectRows(const std::vector<int> &ascending, std::optional<int> current);

    // What stands where in sight, by names: it holds when the rows are others.
    struct Place {
        std::vector<std::string> names; // of what the user looks at first, then of the others in sight
        int offset = 0;                 // of the first one from the viewport's top
        int step = 0;                   // between the others
        bool isTop = true;
    };
    Place place() const;
    void restore(const Place &place);

    void followPreviewSettings(); // text, size and colours

    QRect visualRect(const QModelIndex &index) const override;
    void scrollTo(const QModelIndex &index, ScrollHint hint = EnsureVisible) override;
    QModelIndex indexAt(const QPoint &point) const override;
    void keyboardSearch(const QString &text) override;
    void reset() override;

Q_SIGNALS:
    void contextMenuWanted(const QPoint &globalPosition);

protected:
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    int horizontalOffset() const override { return 0; }
    int verticalOffset() const override;
    bool isIndexHidden(const QModelIndex &) const override { return false; }
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void setSelection(const QRect &rect, QItemSelectionModel::SelectionFlags command) override;
    QRegion visualRegionForSelection(const QItemSelection &selection) const override;
    void updateGeometries() override;
    void scrollContentsBy(int dx, int dy) override;
    void startDrag(Qt::DropActions actions) override;

    bool viewportEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void changeEvent(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    struct Hit {
        int row = -1;
        CellPart part = CellPart::none;

        bool operator==(const Hit &) const = default;
    };

    // Selecting with a rectangle that begins in the empty space.
    struct RubberBand {
        QPoint from; // in the contents
        QPoint to;
        QItemSelection before; // what stays selected
    };

    // Which cell stays where it is while the layout changes.
    struct Anchor {
        int row;
        int offset; // from the viewport's top
    };

    QModelIndex indexOf(int row) const { return m_model.index(row); }
    int pageHeight() const { return viewport()->height(); }

    void layOut();
    BrowserLayout::Measures measures() const;
    Anchor anchor() const;
    void want();
    BrowserLayout::Range rowsInSight() const;
    const FamilySummary &summary(int row) const;
    std::vector<FamilyPainter::Drawn> drawn(int row);
    bool isThere(int row) const;
    void paintRow(QPainter &painter, int row);
    void updateRow(int row);
    void takePreviews();

    Hit hitAt(QPoint inViewport) const;
    void hover(const Hit &hit);
    QString toolTipAt(const Hit &hit) const;
    QString signToolTip(int row) const;
    void toggle(const Hit &hit);
    void stretchRubberBand(QPoint inViewport);
    void scrollWithRubberBand();
    int rowOfMove(CursorAction action, int row) const;
    bool isSearching() const; // the last key is not long ago
    bool searchOn(const QString &text);

    Workspace &m_workspace;
    FamilyListModel &m_model;
    FamilyPainter m_painter;
    BrowserLayout::Mode m_mode = BrowserLayout::Mode::grid;
    BrowserLayout m_layout;
    CellPreviews m_previews;
    std::optional<Anchor> m_anchor; // of the layouts since the user scrolled
    bool m_isPlacing = false;

    mutable std::unordered_map<int, FamilySummary> m_summaries;  // by row
    std::unordered_map<int, std::vector<PreviewPointer>> m_last; // by row; they stand until the next ones are there
    std::set<int> m_missing;                                     // rows in sight that lack a preview

    Hit m_hovered;
    Hit m_pressed; // on a star or a sign
    std::optional<RubberBand> m_rubberBand;
    QTimer m_rubberBandScrolling;
    QString m_typed;
    QElapsedTimer m_sinceTyped;
};

} // namespace kerlune
