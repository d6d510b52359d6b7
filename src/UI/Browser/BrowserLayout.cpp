#include "UI/Browser/BrowserLayout.h"

#include "UI/Theme.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace kerlune {

namespace {

constexpr int kLeastCardWidth = 220;
constexpr int kLeastPreviewHeight = 88;
constexpr int kMostHeightOfText = 168; // that a card grows to for a long text
constexpr int kButton = 24;            // star and sign
constexpr double kLeastReadableEm = 14;
constexpr double kCharacterWidth = 0.55; // of the em, of a usual Latin text
constexpr double kLineHeight = 1.4;      // of the em
constexpr int kLeastListDetails = 120;
constexpr int kMostListDetails = 300;

int roundedUp(double pixels)
{
    return static_cast<int>(std::ceil(pixels / kGridStep)) * kGridStep;
}

} // namespace

const std::vector<int> &BrowserLayout::waterfallSizes()
{
    static const std::vector<int> sizes{12, 16, 24, 36, 48, 72};
    return sizes;
}

BrowserLayout::BrowserLayout(const Measures &measures)
    : m_measures(measures)
{
    switch (m_measures.mode) {
    case Mode::grid:
        layOutGrid();
        break;
    case Mode::list:
        layOutList();
        break;
    case Mode::waterfall:
        layOutWaterfall();
        break;
    }
}

// As high as the text at its size needs, then as a long text needs while it stays readable.
int BrowserLayout::previewHeight(int width) const
{
    const double em = m_measures.emSize;
    const int oneLine = std::max(kLeastPreviewHeight, roundedUp(em * 2));
    const auto heightOfLines = [&](double size) {
        const double perLine = std::max(1.0, width / (kCharacterWidth * size));
        return std::ceil(m_measures.characters / perLine) * size * kLineHeight;
    };
    const double wanted = std::max(heightOfLines(std::min(em, kLeastReadableEm)), std::min(heightOfLines(em), 120.0));
    return std::max(oneLine, std::min(kMostHeightOfText, roundedUp(wanted)));
}

void BrowserLayout::layOutGrid()
{
    m_margin = kCardPadding;
    m_gap = kCardGap;
    const int room = std::max(1, m_measures.width - 2 * m_margin);
    const int least = std::min(room, std::max(kLeastCardWidth, static_cast<int>(m_measures.emSize * 5) + 32));
    m_columns = std::max(1, (room + m_gap) / (least + m_gap));
    const int shared = room - (m_columns - 1) * m_gap;
    m_cellWidth = std::max(1, shared / m_columns);
    m_spare = std::max(0, shared - m_cellWidth * m_columns);

    const int inner = std::max(1, m_cellWidth - 2 * kCardPadding);
    const int preview = previewHeight(inner);
    const int nameTop = kCardPadding + preview + kGridStep;
    const int nameHeight = std::max(m_measures.lineHeight, kButton);
    // The buttons' signs stand inside their ground: that of the last one ends where the name begins on the other side.
    const int right = m_cellWidth - kCardPadding + 4;
    m_cell.previews = {QRect(kCardPadding, kCardPadding, inner, preview)};
    m_cell.sign = QRect(right - kButton, nameTop + (nameHeight - kButton) / 2, kButton, kButton);
    m_cell.star = m_cell.sign.translated(-kButton, 0);
    m_cell.name = QRect(kCardPadding, nameTop, std::max(1, m_cell.star.left() - 4 - kCardPadding), nameHeight);
    m_cell.details = QRect(kCardPadding, nameTop + nameHeight, inner, m_measures.smallHeight + 3);
    m_cellHeight = m_cell.details.bottom() + 1 + kCardGap;
}

void BrowserLayout::layOutList()
{
    m_cellWidth = std::max(1, m_measures.width);
    const int texts = m_measures.lineHeight + 2 + m_measures.smallHeight;
    m_cellHeight = std::max(roundedUp(m_measures.emSize * 1.7), roundedUp(texts + 2 * 10));

    const int right = m_cellWidth - kCardPadding + 4;
    const int buttonTop = (m_cellHeight - kButton) / 2;
    m_cell.sign = QRect(right - kButton, buttonTop, kButton, kButton);
    m_cell.star = m_cell.sign.translated(-kButton, 0);
    const int details = std::clamp(m_cellWidth * 3 / 10, kLeastListDetails, kMostListDetails);
    const int left = std::max(kCardPadding, m_cell.star.left() - 8 - details);
    const int textTop = (m_cellHeight - texts) / 2;
    m_cell.name = QRect(left, textTop, std::max(1, m_cell.star.left() - 8 - left), m_measures.lineHeight);
    m_cell.details = m_cell.name.translated(0, m_measures.lineHeight + 2);
    m_cell.details.setHeight(m_measures.smallHeight);
    m_cell.previews = {QRect(kCardPadding, 4, std::max(1, left - kCardPadding - kCardPadding), m_cellHeight - 8)};
}

void BrowserLayout::layOutWaterfall()
{
    m_cellWidth = std::max(1, m_measures.width);
    const int top = kCardGap;
    const int nameHeight = std::max(m_measures.lineHeight, kButton);
    const int right = m_cellWidth - kCardPadding + 4;
    m_cell.sign = QRect(right - kButton, top + (nameHeight - kButton) / 2, kButton, kButton);
    m_cell.star = m_cell.sign.translated(-kButton, 0);
    const int names = std::max(1, m_cell.star.left() - kGridStep - kCardPadding);
    m_cell.name = QRect(kCardPadding, top, names / 2, nameHeight);
    m_cell.details = QRect(kCardPadding + names / 2 + kGridStep, top, names - names / 2 - kGridStep, nameHeight);

    int y = top + nameHeight + 4;
    const int left = kCardPadding + kSizeLabelWidth;
    for (const int size : waterfallSizes()) {
        const int height = size + size / 2 + 4;
        m_cell.previews.emplace_back(left, y, std::max(1, m_cellWidth - kCardPadding - left), height);
        y += height;
    }
    m_cellHeight = y + kCardGap;
}

int BrowserLayout::contentHeight() const
{
    const int lines = (m_measures.count + m_columns - 1) / m_columns;
    return lines == 0 ? 0 : 2 * m_margin + lines * rowStep() - m_gap;
}

// The first columns begin a pixel further apart where the width cannot be shared evenly.
int BrowserLayout::columnLeft(int column) const
{
    return m_margin + column * (m_cellWidth + m_gap) + std::min(column, m_spare);
}

QRect BrowserLayout::cellRect(int row) const
{
    return {columnLeft(row % m_columns), m_margin + row / m_columns * rowStep(), m_cellWidth, m_cellHeight};
}

int BrowserLayout::rowAt(QPoint point) const
{
    const int row = nearestRow(point);
    return row >= 0 && cellRect(row).contains(point) ? row : -1;
}

int BrowserLayout::nearestRow(QPoint point) const
{
    if (m_measures.count == 0)
        return -1;
    const int line = std::max(0, point.y() - m_margin + m_gap / 2) / rowStep();
    const int step = m_cellWidth + m_gap;
    const int column = std::clamp((point.x() - m_margin + m_gap / 2) / step, 0, m_columns - 1);
    // The spare pixels may have moved the column's edge past the point.
    const int shift = column > 0 && point.x() < columnLeft(column) - m_gap / 2 ? 1 : 0;
    const int lastLine = (m_measures.count - 1) / m_columns;
    return std::min(std::min(line, lastLine) * m_columns + column - shift, m_measures.count - 1);
}

BrowserLayout::Range BrowserLayout::rowsBetween(int top, int bottom) const
{
    if (m_measures.count == 0 || bottom < m_margin || bottom < top)
        return {};
    const int lastLine = (m_measures.count - 1) / m_columns;
    const int from = std::max(0, top - m_margin);
    int firstLine = from / rowStep();
    if (from % rowStep() >= m_cellHeight) // in the gap below that line
        ++firstLine;
    const int last = std::min(lastLine, (bottom - m_margin) / rowStep());
    if (firstLine > last)
        return {};
    return {firstLine * m_columns, std::min((last + 1) * m_columns, m_measures.count) - 1};
}

std::vector<BrowserLayout::Range> BrowserLayout::rowsIn(const QRect &rectangle) const
{
    const QRect area = rectangle.normalized();
    const Range band = rowsBetween(area.top(), area.bottom());
    if (band.isEmpty())
        return {};
    int first = m_columns;
    int last = -1;
    for (int column = 0; column < m_columns; ++column) {
        const int left = columnLeft(column);
        if (left <= area.right() && left + m_cellWidth > area.left()) {
            first = std::min(first, column);
            last = column;
        }
    }
    std::vector<Range> ranges;
    if (last < 0)
        return ranges;
    if (first == 0 && last == m_columns - 1)
        return {band};
    for (int line = band.first; line <= band.last; line += m_columns) {
        if (line + first <= band.last)
            ranges.push_back({line + first, std::min(line + last, band.last)});
    }
    return ranges;
}

std::vector<int> BrowserLayout::nearestFirst(int top, int bottom) const
{
    const Range range = rowsBetween(top, bottom);
    std::vector<int> rows;
    for (int row = range.first; row <= range.last; ++row)
        rows.push_back(row);
    const int middle = top + (bottom - top) / 2;
    const auto distance = [&](int row) {
        const int line = row / m_columns;
        return std::abs(m_margin + line * rowStep() + m_cellHeight / 2 - middle);
    };
    std::stable_sort(rows.begin(), rows.end(), [&](int a, int b) { return distance(a) < distance(b); });
    return rows;
}

} // namespace kerlune
