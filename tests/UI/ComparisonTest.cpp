#include "UI/Browser/BrowserPane.h"
#include "UI/Browser/ComparisonMeasures.h"
#include "UI/Browser/ComparisonRow.h"
#include "UI/Browser/ComparisonView.h"
#include "WindowHome.h"

#include <QLabel>
#include <QMouseEvent>
#include <QToolButton>

#include <algorithm>

namespace kerlune {
namespace {

TEST(ComparisonMeasures, SaysHowALineDiffersFromTheFirst)
{
    EXPECT_EQ(shareOfEm(0.524).toStdString(), "52 %");
    EXPECT_EQ(shareOfEm(0).toStdString(), "–");
    EXPECT_EQ(differenceOfShares(0.55, 0.52).toStdString(), "+3 %");
    EXPECT_EQ(differenceOfShares(0.495, 0.524).toStdString(), "−2 %"); // 50 and 52, as they are shown
    EXPECT_EQ(differenceOfShares(0.516, 0.524).toStdString(), "=");
    EXPECT_EQ(differenceOfShares(0.5, 0).toStdString(), "–");
    EXPECT_EQ(differenceOfWidths(3.68, 4).toStdString(), "−8 %");
    EXPECT_EQ(differenceOfWidths(0, 4).toStdString(), "–");
}

TEST(ComparisonMeasures, MeasuresTheLineInEms)
{
    FontRecord face;
    face.filePath = testFont("french.ttf");
    face.postScriptName = openFace(face.filePath)->postScriptName().value_or("");
    const auto one = measureLine(face, "a");
    const auto three = measureLine(face, "aaa");
    ASSERT_TRUE(one && three);
    EXPECT_GT(one->ofEm, 0);
    EXPECT_NEAR(three->ofEm, 3 * one->ofEm, 0.01);
    EXPECT_TRUE(one->coversTheText);
    EXPECT_FALSE(measureLine(face, "永字八法")->coversTheText);
    face.filePath = "/nowhere.ttf";
    EXPECT_FALSE(measureLine(face, "a"));
}

class ComparisonTest : public WindowHome {
protected:
    ComparisonTest()
    {
        offer({"i-sans.ttf", "i-slab.ttf", "i-short.ttf", "i-tall.ttf"});
        m_program = openLoaded();
        m_pane = std::make_unique<BrowserPane>(workspace());
        m_pane->resize(800, 480);
        m_pane->show();
        m_view = m_pane->findChild<ComparisonView *>();
        workspace().compare({"Essai Alpha", "Essai Beta", "Essai Delta", "Essai Zeta"});
    }

    const std::vector<std::string> &order() const { return state().comparisonSet.value(); }
    std::vector<ComparisonRow *> rows() const // from top to bottom
    {
        std::vector<ComparisonRow *> all;
        for (ComparisonRow *row : m_view->findChildren<ComparisonRow *>()) {
            if (row->isVisible())
                all.push_back(row);
        }
        std::sort(all.begin(), all.end(), [](const auto *a, const auto *b) { return a->y() < b->y(); });
        return all;
    }

    std::unique_ptr<BrowserPane> m_pane;
    ComparisonView *m_view = nullptr;
};

TEST_F(ComparisonTest, IsReorderedAndEmptiedByKeys)
{
    EXPECT_TRUE(m_view->isVisible());
    QTest::keyClick(m_view, Qt::Key_Down, Qt::ControlModifier);
    EXPECT_THAT(order(), ElementsAre("Essai Beta", "Essai Alpha", "Essai Delta", "Essai Zeta"));
    QTest::keyClick(m_view, Qt::Key_End);
    EXPECT_EQ(state().selectedFamily.value(), "Essai Zeta");
    QTest::keyClick(m_view, Qt::Key_Up, Qt::ControlModifier);
    EXPECT_THAT(order(), ElementsAre("Essai Beta", "Essai Alpha", "Essai Zeta", "Essai Delta"));
    QTest::keyClick(m_view, Qt::Key_Delete);
    EXPECT_THAT(order(), ElementsAre("Essai Beta", "Essai Alpha", "Essai Delta"));
    EXPECT_EQ(m_view->currentFamily(), "Essai Delta");
    const auto *hint = m_view->findChild<QLabel *>(QStringLiteral("comparisonHint"));
    EXPECT_FALSE(hint->isVisible());
    for (int i = 0; i < 3; ++i)
        QTest::keyClick(m_view, Qt::Key_Delete);
    EXPECT_THAT(order(), IsEmpty());
    EXPECT_TRUE(hint->isVisible());
    EXPECT_TRUE(m_pane->isPainted());
}

TEST_F(ComparisonTest, IsReorderedByButtonsAndByDragging)
{
    click(*rows()[3], "moveUp");
    EXPECT_THAT(order(), ElementsAre("Essai Alpha", "Essai Beta", "Essai Zeta", "Essai Delta"));
    click(*rows()[1], "remove");
    EXPECT_THAT(order(), ElementsAre("Essai Alpha", "Essai Zeta", "Essai Delta"));
    EXPECT_FALSE(rows()[0]->findChild<QToolButton *>(QStringLiteral("moveUp"))->isEnabled());

    ComparisonRow *first = rows()[0];
    const QPoint from = first->rect().center();
    const QPoint to = from + QPoint(0, 2 * first->height());
    QTest::mousePress(first, Qt::LeftButton, Qt::NoModifier, from);
    QMouseEvent drag(QEvent::MouseMove, to, first->mapToGlobal(to), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(first, &drag);
    QTest::mouseRelease(first, Qt::LeftButton, Qt::NoModifier, to);
    EXPECT_THAT(order(), ElementsAre("Essai Zeta", "Essai Delta", "Essai Alpha"));
    EXPECT_EQ(m_view->currentFamily(), "Essai Alpha");
}

TEST_F(ComparisonTest, ShowsTheValuesOfTheFirstAndTheDifferencesOfTheOthers)
{
    ASSERT_TRUE(waitFor([&] { return m_pane->isPainted(); }));
    const auto valueOf = [&](std::size_t row, ComparisonRow::Column column) {
        return rows()[row]->content().values[column];
    };
    const auto ratio = [&](const char *family) { return state().family(family)->representative()->capHeightRatio; };
    EXPECT_EQ(valueOf(0, ComparisonRow::CapHeight).text, shareOfEm(ratio("Essai Alpha")));
    EXPECT_EQ(valueOf(3, ComparisonRow::CapHeight).text, differenceOfShares(ratio("Essai Zeta"), ratio("Essai Alpha")));
    EXPECT_EQ(valueOf(3, ComparisonRow::CapHeight).detail, shareOfEm(ratio("Essai Zeta")));
    EXPECT_TRUE(rows()[3]->accessibleName().contains(valueOf(3, ComparisonRow::CapHeight).text));
}

} // namespace
} // namespace kerlune
