#include "UI/Inspector/Inspector.h"

#include "UI/Panels/GlyphGrid.h"
#include "WindowHome.h"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>
#include <QToolButton>

namespace kerlune {
namespace {

class InspectorTest : public WindowHome {
protected:
    // With the fonts of the home's "Polices" watched.
    void open()
    {
        m_program = openWatching();
        m_inspector = std::make_unique<Inspector>(m_program->workspace);
        m_inspector->resize(300, 900);
        m_inspector->show();
    }

    // Selects the family, and waits until the inspector shows it.
    void select(const std::string &family)
    {
        workspace().select({family});
        EXPECT_TRUE(waitFor([&] { return text("familyName") == QString::fromStdString(family); }));
    }

    template <typename Widget>
    Widget *find(const char *name) const
    {
        return &child<Widget>(*m_inspector, name);
    }

    // A control that is made when the font has been read.
    template <typename Widget>
    Widget *await(const char *name) const
    {
        EXPECT_TRUE(waitFor([&] { return m_inspector->findChild<Widget *>(QLatin1String(name)) != nullptr; })) << name;
        return find<Widget>(name);
    }

    QString text(const char *label) const
    {
        const auto *const found = m_inspector->findChild<QLabel *>(QLatin1String(label));
        return found == nullptr || !found->isVisible() ? QString() : found->text();
    }

    void click(const char *button) const { WindowHome::click(*m_inspector, button); }
    static QString clipboard() { return QGuiApplication::clipboard()->text(); }

    std::unique_ptr<Inspector> m_inspector;
};

TEST_F(InspectorTest, FollowsTheSelection)
{
    put("Polices/plain.ttf");
    put("Polices/variable.ttf", "variable.ttf");
    open();
    EXPECT_EQ(text("familyName"), QString());
    select("Essai Plain");
    select("Essai Variable");
    auto *const styles = find<QComboBox>("styleChooser");
    ASSERT_EQ(styles->count(), 4);
    const int bold = styles->findText(QStringLiteral("Bold"));
    styles->setCurrentIndex(bold);
    Q_EMIT styles->activated(bold);
    EXPECT_EQ(state().selectedFace.value(), "EssaiVariable-Gras");

    // Its files go: the inspector lets go of it.
    fs::remove(m_home / "Polices/variable.ttf");
    QCoro::waitFor(state().rebuildIndex());
    EXPECT_TRUE(waitFor([&] { return text("familyName").isEmpty(); }));
}

TEST_F(InspectorTest, ActivatesAndStarsByClick)
{
    put("Polices/plain.ttf");
    open();
    select("Essai Plain");
    click("toggleActivation");
    EXPECT_TRUE(waitFor([&] { return linked().size() == 1 && text("activationState") == QStringLiteral("Active"); }));
    click("toggleActivation");
    EXPECT_TRUE(waitFor([&] { return linked().empty() && text("activationState") == QStringLiteral("Inactive"); }));
    click("favorite");
    EXPECT_THAT(state().favorites(), ElementsAre("Essai Plain"));
    workspace().undoStack().undo();
    EXPECT_TRUE(waitFor([&] { return !find<QToolButton>("favorite")->isChecked(); }));
}

TEST_F(InspectorTest, CopiesAndTags)
{
    put("Polices/plain.ttf");
    open();
    commands().setTag("web", {"Essai Plain"}, true);
    select("Essai Plain");
    click("copyPostScriptName");
    EXPECT_EQ(clipboard(), QStringLiteral("EssaiPlain-Regular"));
    click("copyCss");
    EXPECT_TRUE(clipboard().startsWith(QStringLiteral("font-family: \"Essai Plain\";")));
    const auto tags = [&] { return find<QWidget>("tags")->findChildren<QToolButton *>(); };
    ASSERT_THAT(tags(), SizeIs(2)); // × and +
    QTest::mouseClick(tags().back(), Qt::LeftButton);
    EXPECT_THAT(state().tags("Essai Plain"), IsEmpty());
    QTest::mouseClick(tags().front(), Qt::LeftButton);
    EXPECT_THAT(state().tagPromptFamilies.value().value(), ElementsAre("Essai Plain"));
}

TEST_F(InspectorTest, ChoosesAStyleInItsList)
{
    put("Polices/variable.ttf", "variable.ttf");
    open();
    select("Essai Variable");
    click("stylesTab");
    auto *const list = find<QListView>("styles");
    ASSERT_EQ(list->model()->rowCount(), 4);
    EXPECT_FALSE(state().selectedFace.value()) << "showing the styles chooses none";
    list->setFocus();
    QTest::keyClick(list, Qt::Key_End);
    ASSERT_TRUE(state().selectedFace.value());
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(list->model()->index(0, 0)).center());
    EXPECT_TRUE(waitFor([&] {
        return find<QComboBox>("styleChooser")->currentText() == list->model()->index(0, 0).data().toString();
    }));
}

TEST_F(InspectorTest, MovesThroughTheDesignSpaceLive)
{
    put("Polices/variable.ttf", "variable.ttf");
    put("Polices/plain.ttf");
    open();
    select("Essai Variable");
    m_inspector->showPanel(Workspace::Panel::axes);
    auto *const slider = await<QSlider>("slider-wght");
    slider->setFocus();
    QTest::keyClick(slider, Qt::Key_End);
    EXPECT_THAT(workspace().coordinates.value(),
                ElementsAre(AxisValue{tag("wght"), 900}, AxisValue{tag("wdth"), 100}, AxisValue{tag("slnt"), 0}));
    EXPECT_EQ(find<QDoubleSpinBox>("field-wght")->value(), 900);
    EXPECT_FALSE(find<QSlider>("slider-wdth")->isVisible()) << "a hidden axis";
    click("copyAxes");
    EXPECT_EQ(clipboard(), QStringLiteral("font-variation-settings: \"wght\" 900, \"wdth\" 100, \"slnt\" 0;\n"));

    auto *const instances = find<QComboBox>("instances");
    EXPECT_EQ(instances->currentIndex(), 0);
    Q_EMIT instances->activated(instances->findText(QStringLiteral("Condensed Light")));
    EXPECT_EQ(slider->value(), 250); // wght 300 of 100…900
    EXPECT_EQ(instances->currentText(), QStringLiteral("Condensed Light"));
    click("resetAxes");
    EXPECT_THAT(workspace().coordinates.value(), IsEmpty());
    EXPECT_EQ(find<QDoubleSpinBox>("field-wght")->value(), 400);

    QTest::keyClick(slider, Qt::Key_Home);
    EXPECT_THAT(workspace().coordinates.value(), SizeIs(3));
    select("Essai Plain");
    EXPECT_THAT(workspace().coordinates.value(), IsEmpty());
    EXPECT_FALSE(text("axesMessage").isEmpty());
}

TEST_F(InspectorTest, SwitchesFeaturesLive)
{
    put("Polices/features.ttf", "features.ttf");
    put("Polices/plain.ttf");
    open();
    select("Essai Fonctions");
    m_inspector->showPanel(Workspace::Panel::features);
    auto *const ligatures = await<QCheckBox>("feature-liga");
    EXPECT_TRUE(ligatures->isChecked());
    EXPECT_EQ(find<QCheckBox>("feature-ss01")->text(), QStringLiteral("Formes rondes"));
    ligatures->click();
    find<QSpinBox>("alternate-salt")->setValue(2);
    EXPECT_THAT(workspace().features.value(), ElementsAre(FeatureValue{tag("liga"), 0}, FeatureValue{tag("salt"), 2}));
    EXPECT_TRUE(find<QCheckBox>("feature-salt")->isChecked());
    click("copyFeatures");
    EXPECT_EQ(clipboard(), QStringLiteral("font-feature-settings: \"liga\" 0, \"salt\" 2;\n"));
    click("resetFeatures");
    EXPECT_THAT(workspace().features.value(), IsEmpty());
    EXPECT_TRUE(ligatures->isChecked());
    EXPECT_EQ(find<QSpinBox>("alternate-salt")->value(), 0);
    find<QCheckBox>("feature-ss01")->click();
    select("Essai Plain");
    EXPECT_THAT(workspace().features.value(), IsEmpty());
}

TEST_F(InspectorTest, SearchesAndCopiesCharacters)
{
    put("Polices/plain.ttf");
    open();
    select("Essai Plain");
    m_inspector->showPanel(Workspace::Panel::glyphs);
    auto *const grid = find<GlyphGrid>("glyphGrid");
    ASSERT_TRUE(waitFor([&] { return grid->entries().size() == 69; }));
    EXPECT_EQ(find<QComboBox>("glyphBlocks")->itemText(1), QStringLiteral("Latin de base (69)"));
    const auto searchFor = [&](const char *query, std::size_t count) {
        auto *const field = find<QLineEdit>("glyphSearch");
        field->clear();
        QTest::keyClicks(field, QLatin1String(query));
        EXPECT_TRUE(waitFor([&] { return grid->entries().size() == count; })) << query;
    };
    searchFor("question mark", 1);
    EXPECT_EQ(text("characterName"), QStringLiteral("QUESTION MARK"));
    searchFor("U+0042", 1);
    EXPECT_TRUE(waitFor([&] { return text("characterName") == QStringLiteral("LATIN CAPITAL LETTER B"); }));
    click("copyCharacter");
    EXPECT_EQ(clipboard(), QStringLiteral("B"));
    searchFor("nothing like that", 0);
    EXPECT_FALSE(text("glyphMessage").isEmpty());
    searchFor("latin small letter", 26);
    grid->setFocus();
    QTest::keyClick(grid, Qt::Key_End);
    QTest::keyClick(grid, Qt::Key_Left);
    QTest::keyClick(grid, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), QStringLiteral("y"));
    QTest::keyClick(grid, Qt::Key_Home);
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, grid->cellRect(2).center());
    QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, grid->cellRect(2).center());
    EXPECT_EQ(clipboard(), QStringLiteral("c"));
}

TEST_F(InspectorTest, OffersWhatSeveralFamiliesCanHave)
{
    put("Polices/plain.ttf");
    put("Polices/variable.ttf", "variable.ttf");
    open();
    workspace().select({"Essai Plain", "Essai Variable"});
    EXPECT_TRUE(waitFor([&] { return text("selectionCount") == QStringLiteral("2 familles sélectionnées"); }));
    click("favoriteAll");
    EXPECT_THAT(state().favorites(), ElementsAre("Essai Plain", "Essai Variable"));
    click("tagAll");
    EXPECT_THAT(state().tagPromptFamilies.value().value(), SizeIs(2));
    click("activateAll");
    EXPECT_TRUE(waitFor([&] { return linked().size() == 2; }));
    click("compareAll");
    EXPECT_EQ(state().viewMode.value(), ViewMode::compare);
    EXPECT_THAT(state().comparisonSet.value(), ElementsAre("Essai Plain", "Essai Variable"));
    select("Essai Plain");
}

} // namespace
} // namespace kerlune
