#include "UI/Toolbar/Toolbar.h"

#include "UI/Toolbar/SizeControl.h"
#include "WindowHome.h"

#include <QLineEdit>
#include <QMenu>
#include <QSignalSpy>
#include <QSpinBox>
#include <QToolButton>

namespace kerlune {
namespace {

class ToolbarTest : public WindowHome {
protected:
    void start()
    {
        put("data/fonts/a.ttf");
        put("data/fonts/b.ttf", "family-9.ttf");
        m_program = openLoaded();
        m_toolbar = std::make_unique<Toolbar>(workspace());
        m_toolbar->resize(1'000, m_toolbar->height());
        m_toolbar->show();
        m_toolbar->activateWindow();
    }

    template <typename Widget>
    Widget &find(const char *name)
    {
        return child<Widget>(*m_toolbar, name);
    }

    std::unique_ptr<Toolbar> m_toolbar;
};

TEST_F(ToolbarTest, SearchesAsOneTypes)
{
    start();
    auto &search = find<QLineEdit>("search");
    QSignalSpy browser(&workspace(), &Workspace::browserWanted);
    m_toolbar->focusSearch();
    const std::size_t all = state().visibleFamilies().size();
    QTest::keyClicks(&search, QStringLiteral("essai 9"));
    EXPECT_EQ(state().filters.value().search, "essai 9");
    EXPECT_LT(state().visibleFamilies().size(), all);
    EXPECT_EQ(state().visibleFamilies().size(), 1U);

    search.setCursorPosition(2);
    Filters filters = state().filters.value();
    filters.search = "essai 90";
    state().filters = filters;
    EXPECT_EQ(search.text(), QStringLiteral("essai 90"));
    EXPECT_EQ(search.cursorPosition(), 2);

    QTest::keyClick(&search, Qt::Key_Escape);
    EXPECT_EQ(state().filters.value(), Filters());
    EXPECT_EQ(browser.count(), 0);
    QTest::keyClick(&search, Qt::Key_Escape);
    QTest::keyClick(&search, Qt::Key_Down);
    EXPECT_EQ(browser.count(), 2);
}

TEST_F(ToolbarTest, KeepsTheOwnTextBesideTheSamples)
{
    start();
    auto &text = find<QLineEdit>("previewText");
    m_toolbar->focusPreviewText();
    QTest::keyClicks(&text, QStringLiteral("Alphabet")); // typed, it is a text like any other
    QTest::keyClick(&text, Qt::Key_Return);
    EXPECT_EQ(state().previewText.value(), "Alphabet");

    QTest::keyClick(&text, Qt::Key_Down);
    auto *menu = text.findChild<QMenu *>();
    ASSERT_NE(menu, nullptr);
    const QList<QAction *> actions = menu->actions();
    ASSERT_EQ(actions.size(), 7); // the own text, a line, the samples
    actions.at(3)->trigger();
    EXPECT_EQ(state().previewText.value(), text.text().toStdString());
    EXPECT_NE(state().previewText.value(), "Alphabet");
    EXPECT_EQ(m_program->preferences.customPreviewText.value(), QStringLiteral("Alphabet"));
    actions.front()->trigger();
    EXPECT_EQ(text.text(), QStringLiteral("Alphabet"));
}

TEST_F(ToolbarTest, SetsTheSizeInThreeWays)
{
    start();
    auto &slider = find<SizeSlider>("previewSizeSlider");
    auto &number = find<QSpinBox>("previewSize");
    state().previewSize = 9;
    QTest::keyClick(&slider, Qt::Key_Right);
    EXPECT_DOUBLE_EQ(state().previewSize.value(), 10); // where a step in ratios would be none
    state().previewSize = 100;
    QTest::keyClick(&slider, Qt::Key_Left);
    EXPECT_DOUBLE_EQ(state().previewSize.value(), 95);
    for (int i = 0; i < 100; ++i)
        QTest::keyClick(&slider, Qt::Key_PageUp);
    EXPECT_DOUBLE_EQ(state().previewSize.value(), SizeSlider::kMost);
    EXPECT_EQ(number.value(), 200);
    QTest::mouseClick(&slider, Qt::LeftButton, {}, slider.rect().center());
    EXPECT_NEAR(state().previewSize.value(), 40, 3); // half of the way in ratios: the root of 8 × 200
    QTest::mouseDClick(&slider, Qt::LeftButton);
    EXPECT_DOUBLE_EQ(state().previewSize.value(), AppState::kDefaultPreviewSize);
    number.selectAll();
    QTest::keyClicks(&number, QStringLiteral("300"));
    QTest::keyClick(&number, Qt::Key_Return);
    EXPECT_DOUBLE_EQ(state().previewSize.value(), 300); // beyond the slider
    EXPECT_EQ(slider.value(), slider.maximum());
}

TEST_F(ToolbarTest, ShowsAndSetsTheViewMode)
{
    start();
    auto &list = find<QToolButton>("viewMode1");
    click(list);
    EXPECT_EQ(state().viewMode.value(), ViewMode::list);
    state().viewMode = ViewMode::compare;
    EXPECT_FALSE(list.isChecked());
    EXPECT_TRUE(find<QToolButton>("viewMode3").isChecked());
    state().sidebarSelection = SidebarSelection{SidebarSelection::Kind::duplicates}; // only a grid
    EXPECT_TRUE(find<QToolButton>("viewMode0").isChecked());
    EXPECT_FALSE(list.isEnabled());
}

TEST_F(ToolbarTest, NothingOverlapsInANarrowWindow)
{
    start();
    for (const int width : {420, 500, 620, 700, 1'600}) {
        m_toolbar->resize(width, m_toolbar->height());
        QCoreApplication::processEvents();
        EXPECT_EQ(m_toolbar->width(), width);
        int end = 0;
        for (const char *name : {"search", "previewText", "previewSizeSlider", "viewMode0", "viewMode3"}) {
            const auto &widget = find<QWidget>(name);
            if (!widget.isVisible())
                continue;
            const int left = widget.mapTo(m_toolbar.get(), QPoint(0, 0)).x();
            EXPECT_GE(left, end) << name << " at " << width;
            end = left + widget.width();
        }
        EXPECT_LE(end, width);
    }
}

} // namespace
} // namespace kerlune
