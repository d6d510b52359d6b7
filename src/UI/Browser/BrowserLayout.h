#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

#include <vector>

namespace kerlune {

// Where the families stand in the grid, the list and the waterfall. All cells of a view have the same size, so that
// every question is answered without looking at other cells.
//
// Units: logical pixels from the top left corner of the contents.
class BrowserLayout final {
public:
    enum class Mode { grid, list, waterfall };

    struct Measures {
        Mode mode = Mode::grid;
        int width = 0;        // of the viewport
        int count = 0;        // of families
        double emSize = 34;   // of the preview
        int characters = 7;   // of the preview text
        int lineHeight = 18;  // of the interface font, body size
        int smallHeight = 15; // small size

        bool operator==(const Measures &) const = default;
    };

    // The parts of a cell, from its top left corner.
    struct Cell {
        std::vector<QRect> previews; // one, or one for each size of the waterfall
        QRect name;
        QRect details; // number of styles and badges
        QRect star;
        QRect sign;
    };

    struct Range { // of rows, both ends counted; empty when last < first
        int first = 0;
        int last = -1;

        bool isEmpty() const { return last < first; }
        bool contains(int row) const { return row >= first && row <= last; }
        bool operator==(const Range &) const = default;
    };

    static const std::vector<int> &waterfallSizes(); // of the em
    static constexpr int kSizeLabelWidth = 32;       // before each line of the waterfall

    BrowserLayout() = default;
    explicit BrowserLayout(const Measures &measures);

    const Measures &measures() const { return m_measures; }
    int columns() const { return m_columns; }
    int contentHeight() const;
    int rowStep() const { return m_cellHeight + m_gap; } // from a row of cells to the next
    QSize cellSize() const { return {m_cellWidth, m_cellHeight}; }
    const Cell &cell() const { return m_cell; }
    QRect cellRect(int row) const;

    int rowAt(QPoint point) const;      // −1 between the cells
    int nearestRow(QPoint point) const; // −1 when there is none at all

    Range rowsBetween(int top, int bottom) const; // whose cells touch it
    // Those touched by a rectangle, as ranges in ascending order.
    std::vector<Range> rowsIn(const QRect &rectangle) const;
    // The same rows, the nearest to the middle of the band first.
    std::vector<int> nearestFirst(int top, int bottom) const;

private:
    void layOutGrid();
    void layOutList();
    void layOutWaterfall();
    int columnLeft(int column) const;
    int previewHeight(int width) const; // of a card

    Measures m_measures = {};
    Cell m_cell = {};
    int m_columns = 1;
    int m_cellWidth = 0;
    int m_cellHeight = 1;
    int m_margin = 0; // around all of it
    int m_gap = 0;
    int m_spare = 0; // pixels that the columns could not share
};

} // namespace kerlune
