#include "UI/Toolbar/FilterBar.h"

#include "Model/ScriptCoverage.h"
#include "UI/Toolbar/CheckList.h"
#include "UI/Toolbar/FilterChip.h"
#include "UI/Toolbar/FilterPopup.h"
#include "UI/Toolbar/RangeSlider.h"
#include "WindowHome.h"

#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>

namespace kerlune {
namespace {

class FilterBarTest : public WindowHome {
protected:
    void start()
    {
        m_program = std::make_unique<Program>(*this);
        m_bar = std::make_unique<FilterBar>(m_program->workspace);
        resize(1'200);
        m_bar->show();
        m_bar->activateWindow();
    }

    void resize(int width)
    {
        m_bar->resize(width, m_bar->height());
        QCoreApplication::processEvents();
    }

    // The fonts of the machine decide how wide a chip is; beside the chips stand the margins and "+".
    int widthOf(const std::vector<FilterKind> &kinds)
    {
        int width = 80;
        for (const FilterKind kind : kinds)
            width += chip(kind).sizeHint().width() + 6;
        return width;
    }

    const Filters &filters() { return state().filters.value(); }
    template <typename Widget>
    Widget &find(const std::string &name)
    {
        return child<Widget>(*m_bar, name.c_str());
    }
    FilterChip &chip(FilterKind kind) { return find<FilterChip>("filter" + std::to_string(static_cast<int>(kind))); }
    void unset(FilterKind kind) { click(find<QToolButton>("unset" + std::to_string(static_cast<int>(kind)))); }

    FilterPopup &popup(FilterKind kind)
    {
        QTest::keyClick(&chip(kind), Qt::Key_Return);
        return find<FilterPopup>("filterPopup");
    }
    void close(FilterPopup &popup)
    {
        const QPointer<FilterPopup> closing(&popup);
        QTest::keyClick(&popup, Qt::Key_Escape);
        EXPECT_TRUE(waitFor([&] { return closing.isNull(); }));
    }
    void tick(FilterPopup &popup, const QString &text)
    {
        auto *list = popup.findChild<CheckList *>();
        const QList<QTreeWidgetItem *> found = list->findItems(text, Qt::MatchExactly | Qt::MatchRecursive);
        ASSERT_EQ(found.size(), 1) << text.toStdString();
        list->scrollToItem(found.front());
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(found.front()).center());
    }
    std::vector<FilterKind> chips()
    {
        std::vector<FilterKind> kinds;
        for (const FilterKind kind : kAllFilterKinds) {
            if (chip(kind).isVisible())
                kinds.push_back(kind);
        }
        return kinds;
    }

    std::unique_ptr<FilterBar> m_bar;
};

TEST_F(FilterBarTest, SwitchesByAClick)
{
    start();
    click(chip(FilterKind::variable));
    click(chip(FilterKind::color));
    EXPECT_EQ(filters(), (Filters{.onlyVariable = true, .onlyColor = true}));
    click(chip(FilterKind::color));
    unset(FilterKind::variable);
    EXPECT_EQ(filters(), Filters());
}

TEST_F(FilterBarTest, ChoosesInPopups)
{
    start();
    workspace().commands().setTag("web & <b>co</b>", {"A"}, true);
    FilterPopup *open = &popup(FilterKind::classes);
    tick(*open, QStringLiteral("Serif"));
    tick(*open, QStringLiteral("Slab"));
    tick(*open, QStringLiteral("Slab"));
    close(*open);
    EXPECT_EQ(filters(), Filters{.classes = {FontClass::serif}});
    EXPECT_TRUE(chip(FilterKind::classes).text().contains(QStringLiteral("Serif")));
    unset(FilterKind::classes);

    open = &popup(FilterKind::languages);
    auto *search = open->findChild<QLineEdit *>(QStringLiteral("languageSearch"));
    QTest::keyClicks(search, QStringLiteral("francais")); // without the cedilla too
    QTest::keyClick(search, Qt::Key_Down);
    QTest::keyClick(open->findChild<CheckList *>(), Qt::Key_Space);
    EXPECT_EQ(filters(), Filters{.languageBits = *ScriptCoverage::bit("french")});
    search->clear();
    tick(*open, QStringLiteral("Grec"));
    EXPECT_EQ(filters().languageBits, *ScriptCoverage::bit("french") | *ScriptCoverage::bit("greek"));
    close(*open);
    unset(FilterKind::languages);

    open = &popup(FilterKind::tags);
    tick(*open, QStringLiteral("web & <b>co</b>"));
    EXPECT_EQ(filters(), Filters{.tags = {"web & <b>co</b>"}});
    QEvent languageChange(QEvent::LanguageChange);
    QApplication::sendEvent(open, &languageChange); // it is filled anew, and shows what is set
    auto *list = open->findChild<CheckList *>();
    ASSERT_NE(list, nullptr);
    ASSERT_EQ(list->topLevelItemCount(), 1);
    EXPECT_EQ(list->topLevelItem(0)->checkState(0), Qt::Checked);
    close(*open);
    unset(FilterKind::tags);

    open = &popup(FilterKind::italic);
    const auto choices = open->findChildren<QRadioButton *>();
    ASSERT_EQ(choices.size(), 3);
    QTest::keyClick(choices[0], Qt::Key_Down);
    EXPECT_EQ(filters(), Filters{.onlyItalic = true});
    QTest::keyClick(choices[1], Qt::Key_Down);
    EXPECT_EQ(filters(), Filters{.hideItalic = true});
    close(*open);
    unset(FilterKind::italic);
    EXPECT_EQ(filters(), Filters());
}

TEST_F(FilterBarTest, NarrowsTheWeightByKeysAndMouse)
{
    start();
    FilterPopup &open = popup(FilterKind::weight);
    auto *slider = open.findChild<RangeSlider *>();
    auto *lower = slider->findChild<QWidget *>(QStringLiteral("lowerWeight"));
    auto *upper = slider->findChild<QWidget *>(QStringLiteral("upperWeight"));
    EXPECT_TRUE(waitFor([&] { return lower->hasFocus(); }));
    QTest::keyClick(lower, Qt::Key_Right);
    QTest::keyClick(lower, Qt::Key_Tab);
    EXPECT_TRUE(upper->hasFocus());
    QTest::keyClick(upper, Qt::Key_Left);
    EXPECT_EQ(filters().weightRange, (WeightRange{200, 800}));
    QTest::keyClick(upper, Qt::Key_Home); // not below the other one
    EXPECT_EQ(filters().weightRange, (WeightRange{200, 200}));
    QTest::keyClick(upper, Qt::Key_End);

    QTest::mouseClick(slider, Qt::LeftButton, {}, {slider->width() * 3 / 4, slider->height() / 2});
    EXPECT_EQ(filters().weightRange, (WeightRange{200, 700}));
    QTest::mousePress(lower, Qt::LeftButton);
    QTest::mouseMove(lower, lower->mapFrom(slider, QPoint(slider->width() / 2, 10)));
    QTest::mouseRelease(lower, Qt::LeftButton);
    close(open);
    EXPECT_TRUE(chip(FilterKind::weight).text().contains(QStringLiteral("–700")));
}

TEST_F(FilterBarTest, StaysInOneRow)
{
    start();
    resize(widthOf({FilterKind::classes, FilterKind::languages, FilterKind::weight, FilterKind::variable,
                    FilterKind::color, FilterKind::italic, FilterKind::tags}));
    EXPECT_THAT(chips(), ElementsAre(FilterKind::classes, FilterKind::languages, FilterKind::weight,
                                     FilterKind::variable, FilterKind::color, FilterKind::italic, FilterKind::tags));
    const Filters twoSet{.riskyLicenseOnly = true, .requiredGlyphs = "é"}; // hidden before, now what matters
    state().filters = twoSet;
    const int buttons = m_bar->width() - find<QPushButton>("saveSmart").x();
    resize(widthOf({FilterKind::riskyLicense, FilterKind::glyphs}) + buttons);
    EXPECT_THAT(chips(), ElementsAre(FilterKind::riskyLicense, FilterKind::glyphs));
    resize(widthOf({FilterKind::riskyLicense}) + buttons); // none that is not set takes the place of the other one
    EXPECT_THAT(chips(), ElementsAre(FilterKind::riskyLicense));
    state().filters = Filters();
    EXPECT_LT(chips().size(), 7U);
    state().filters = Filters{.search = "x"};
    int end = 0;
    for (const FilterKind kind : chips()) {
        EXPECT_GE(chip(kind).x(), end);
        end = chip(kind).geometry().right();
    }
    EXPECT_LE(end, find<QToolButton>("moreFilters").x());
    EXPECT_LE(find<QToolButton>("moreFilters").geometry().right(), find<QPushButton>("saveSmart").x());

    click(find<QToolButton>("moreFilters"));
    auto *menu = m_bar->findChild<QMenu *>(QStringLiteral("moreFiltersMenu"));
    ASSERT_NE(menu, nullptr);
    for (QAction *action : menu->actions()) {
        if (action->text() == filterName(FilterKind::monospace))
            action->trigger();
    }
    EXPECT_TRUE(filters().onlyMonospace);
    menu->close();
}

TEST_F(FilterBarTest, SavesAndUpdatesSmartCollections)
{
    start();
    EXPECT_TRUE(find<QPushButton>("saveSmart").isHidden());
    m_bar->saveAsSmartCollection(); // of nothing
    EXPECT_EQ(m_bar->findChild<QLineEdit *>(QStringLiteral("smartName")), nullptr);

    click(chip(FilterKind::variable));
    click(find<QPushButton>("saveSmart"));
    auto *name = m_bar->findChild<QLineEdit *>(QStringLiteral("smartName"));
    ASSERT_NE(name, nullptr);
    name->insert(QStringLiteral("À régler")); // what a keyboard has no single keys for
    QTest::keyClick(name, Qt::Key_Return);
    ASSERT_THAT(state().smartCollections(), SizeIs(1));
    EXPECT_EQ(state().smartCollections().front().name, "À régler");
    EXPECT_EQ(state().smartCollections().front().filters, Filters{.onlyVariable = true});
    EXPECT_EQ(state().sidebarSelection.value().kind, SidebarSelection::Kind::smart);

    click(chip(FilterKind::color));
    click(find<QPushButton>("updateSmart"));
    EXPECT_EQ(state().smartCollections().front().filters, Filters{.onlyColor = true});
    click(find<QPushButton>("clearFilters"));
    EXPECT_EQ(filters(), Filters());
}

} // namespace
} // namespace kerlune
