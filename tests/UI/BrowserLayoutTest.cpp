#include "UI/Browser/BrowserLayout.h"

#include "Testing.h"
#include "UI/Browser/CellPreviews.h"

#include <algorithm>

namespace kerlune {
namespace {

using Mode = BrowserLayout::Mode;

// Layouts of all kinds, from narrower than one card to wider than a large screen.
std::vector<BrowserLayout> manyLayouts()
{
    std::vector<BrowserLayout> layouts;
    for (const Mode mode : {Mode::grid, Mode::list, Mode::waterfall}) {
        for (const int width : {1, 60, 251, 640, 1023, 2560}) {
            for (const int count : {1, 7, 100}) {
                for (const double size : {4.0, 34.0, 300.0})
                    layouts.emplace_back(
                        BrowserLayout::Measures{.mode = mode, .width = width, .count = count, .emSize = size});
            }
        }
    }
    return layouts;
}

TEST(BrowserLayout, EveryCellIsInsideAndFoundAtItsCorners)
{
    for (const BrowserLayout &layout : manyLayouts()) {
        const int width = layout.measures().width;
        for (int row = 0; row < layout.measures().count; ++row) {
            const QRect cell = layout.cellRect(row);
            if (width >= 60) {
                ASSERT_GE(cell.left(), 0);
                ASSERT_LT(cell.right(), width);
            }
            ASSERT_LT(cell.bottom(), layout.contentHeight());
            for (const QPoint corner : {cell.topLeft(), cell.topRight(), cell.bottomLeft(), cell.bottomRight()})
                ASSERT_EQ(layout.rowAt(corner), row) << "width " << width;
            if (row > 0) {
                ASSERT_FALSE(cell.intersects(layout.cellRect(row - 1)));
            }
        }
        ASSERT_EQ(layout.rowAt({width / 2, layout.contentHeight() + 1}), -1);
        ASSERT_EQ(layout.nearestRow({width, layout.contentHeight() + 1000}), layout.measures().count - 1);
        ASSERT_EQ(layout.nearestRow({-1000, -1000}), 0);
    }
}

TEST(BrowserLayout, FindsWhatABandAndARectangleTouch)
{
    for (const BrowserLayout &layout : manyLayouts()) {
        const int height = layout.contentHeight();
        for (const auto &[top, bottom] :
             {std::pair(0, 0), {height / 3, height / 2}, {-50, -1}, {height / 2, 2 * height}}) {
            const BrowserLayout::Range rows = layout.rowsBetween(top, bottom);
            const QRect half(0, top, layout.measures().width / 2, bottom - top + 1);
            const std::vector<BrowserLayout::Range> inHalf = layout.rowsIn(half);
            for (int row = 0; row < layout.measures().count; ++row) {
                const QRect cell = layout.cellRect(row);
                ASSERT_EQ(rows.contains(row), cell.top() <= bottom && cell.bottom() >= top);
                const bool isIn = std::any_of(inHalf.begin(), inHalf.end(),
                                              [&](const BrowserLayout::Range &range) { return range.contains(row); });
                ASSERT_EQ(isIn, cell.intersects(half));
            }
        }
    }
}

TEST(BrowserLayout, SharesTheWidthEvenly)
{
    const BrowserLayout layout({.mode = Mode::grid, .width = 1003, .count = 8});
    ASSERT_EQ(layout.columns(), 4);
    EXPECT_EQ(layout.cellRect(0).left(), 16);
    EXPECT_EQ(layout.cellRect(3).right(), 1003 - 16 - 1);
    EXPECT_GT(BrowserLayout({.mode = Mode::grid, .width = 1003, .count = 8}).columns(),
              BrowserLayout({.mode = Mode::grid, .width = 1003, .count = 8, .emSize = 120}).columns());
}

TEST(BrowserLayout, GrowsForALongTextAndKeepsTheButtonsApart)
{
    const BrowserLayout word({.mode = Mode::grid, .width = 1000, .count = 8, .characters = 7});
    const BrowserLayout sentence({.mode = Mode::grid, .width = 1000, .count = 8, .characters = 200});
    EXPECT_GT(sentence.cell().previews.front().height(), word.cell().previews.front().height());
    for (const BrowserLayout &layout : manyLayouts()) {
        const BrowserLayout::Cell &cell = layout.cell();
        EXPECT_FALSE(cell.star.intersects(cell.sign));
        if (layout.measures().width < 251)
            continue;
        EXPECT_FALSE(cell.name.intersects(cell.star));
        for (const QRect &preview : cell.previews) {
            EXPECT_FALSE(preview.intersects(cell.name));
            EXPECT_FALSE(preview.intersects(cell.sign));
        }
    }
}

TEST(BrowserLayout, WantsTheMiddleFirst)
{
    const BrowserLayout layout({.mode = Mode::list, .width = 600, .count = 100});
    const int step = layout.rowStep();
    EXPECT_THAT(layout.nearestFirst(10 * step, 15 * step - 1), ElementsAre(12, 11, 13, 10, 14));
}

TEST(CellPreviews, BeginsALongTextWithWholeWords)
{
    EXPECT_EQ(leadingWords("Portez ce vieux whisky", 10, 1000), "Portez ce vieux whisky");
    EXPECT_EQ(leadingWords("Portez ce vieux whisky", 10, 60), "Portez ce…");
    EXPECT_EQ(leadingWords("Anticonstitutionnellement", 10, 25), "Antico…");
    EXPECT_EQ(leadingWords("永字八法永字八法", 10, 35), "永字八…");
    EXPECT_EQ(leadingWords("", 10, 25), "");
}

} // namespace
} // namespace kerlune
