#include "UI/Panels/SimilarPanel.h"

#include "UI/Panels/FaceList.h"
#include "WindowHome.h"

#include <QCheckBox>
#include <QLabel>
#include <QListView>
#include <QPushButton>

namespace kerlune {
namespace {

class SimilarPanelTest : public WindowHome {
protected:
    // With the panel about a face of this family.
    void open(const std::string &family)
    {
        m_program = openLoaded();
        m_panel = std::make_unique<SimilarPanel>(m_program->workspace);
        m_panel->resize(300, 900);
        m_panel->show();
        show(family);
    }

    void show(const std::string &family) const
    {
        const FontFamilyPointer shown = state().family(family);
        ASSERT_NE(shown, nullptr) << family;
        m_panel->setFace(shown, shown->representative());
        EXPECT_TRUE(waitFor([&] { return m_panel->isSettled(); }));
    }

    template <typename Widget>
    Widget *find(const char *name) const
    {
        return &child<Widget>(*m_panel, name);
    }

    void click(const char *button) const { WindowHome::click(*m_panel, button); }

    std::vector<std::string> seenTexts() const
    {
        std::vector<std::string> texts;
        for (const QLabel *label : m_panel->findChildren<QLabel *>()) {
            if (label->isVisible())
                texts.push_back(label->text().toStdString());
        }
        return texts;
    }

    // As a screen reader says them: "Essai Plain, 97 %".
    std::vector<std::string> results() const
    {
        std::vector<std::string> lines;
        const auto *const list = find<QListView>("similar");
        for (int i = 0; list->isVisible() && i < list->model()->rowCount(); ++i)
            lines.push_back(list->model()->index(i, 0).data(Qt::AccessibleTextRole).toString().toStdString());
        return lines;
    }

    void analyse() const
    {
        click("analyse");
        EXPECT_TRUE(waitFor([&] { return !state().fingerprints().isBuilding(); }));
    }

    std::unique_ptr<SimilarPanel> m_panel;
};

TEST_F(SimilarPanelTest, AnalysesTheLibraryAndShowsEightFontsInTheirOwnFaces)
{
    offer({"plain.ttf", "i-sans.ttf", "i-slab.ttf", "i-serif.ttf", "i-short.ttf", "i-tall.ttf", "family-9.ttf",
           "family-10.ttf", "slanted.ttf", "backslanted.ttf", "mono-post.ttf"});
    open("Essai Plain");
    EXPECT_THAT(seenTexts(), ElementsAre("Kerlune compare les polices en analysant le dessin réel de leurs glyphes."));
    EXPECT_EQ(find<QPushButton>("analyse")->text(), QStringLiteral("Analyser ma bibliothèque"));

    click("analyse");
    EXPECT_THAT(seenTexts(), ElementsAre("Analyse visuelle de la bibliothèque…"));
    ASSERT_TRUE(waitFor([&] { return !results().empty(); }));
    EXPECT_THAT(results(), SizeIs(8)); // of nine; the two that lean come last
    EXPECT_EQ(results().front(), "Essai 10, 100 %");
    EXPECT_THAT(results().back(), testing::ContainsRegex("Slanted|Backslanted"));
    EXPECT_THAT(results(), Not(Contains(HasSubstr("Courier"))));
    EXPECT_THAT(seenTexts(),
                ElementsAre("Polices similaires", "Écritures non latines",
                            "Les polices arabes, indiennes ou asiatiques ont souvent un latin générique qui remonte à "
                            "tort dans les résultats."));
    EXPECT_EQ(find<QCheckBox>("similarLatinOnly")->text(), QStringLiteral("Écarter les polices non latines"));
    EXPECT_TRUE(waitFor([&] { return m_program->previews.isIdle(); }));
    EXPECT_TRUE(waitFor([&] { return !state().fingerprints().isBuilding(); }));
}

TEST_F(SimilarPanelTest, SelectsByClickAndCompares)
{
    offer({"plain.ttf", "i-sans.ttf", "i-slab.ttf"});
    open("Essai Plain");
    analyse();
    ASSERT_THAT(results(), SizeIs(2));
    click("compareSimilar");
    EXPECT_EQ(state().comparisonSet.value().front(), "Essai Plain");
    EXPECT_THAT(state().comparisonSet.value(), SizeIs(3));
    EXPECT_EQ(state().viewMode.value(), ViewMode::compare);

    const auto *const list = find<FaceList>("similar");
    const QModelIndex second = list->model()->index(1, 0);
    const std::string family = second.data().toString().toStdString();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(second).center());
    EXPECT_EQ(state().selectedFamily.value(), family);
    ASSERT_NE(state().activeRecord(), nullptr);
    EXPECT_EQ(state().activeRecord()->family, family);
}

TEST_F(SimilarPanelTest, LeavesOutOtherScriptsWhereItIsTold)
{
    offer({"plain.ttf", "fingerprint-arabic.ttf"});
    open("Essai Plain");
    analyse();
    EXPECT_THAT(results(), IsEmpty());
    EXPECT_THAT(seenTexts(), Contains("Aucune correspondance trouvée."));
    EXPECT_FALSE(find<QPushButton>("compareSimilar")->isEnabled());
    click("similarLatinOnly");
    EXPECT_FALSE(m_program->preferences.similarLatinOnly.value());
    EXPECT_THAT(results(), ElementsAre("Essai Empreinte Arabe, 100 %"));
    m_program->preferences.similarLatinOnly = true; // in the settings
    EXPECT_TRUE(find<QCheckBox>("similarLatinOnly")->isChecked());
    EXPECT_THAT(results(), IsEmpty());
}

// The first analysis runs by itself while somebody opens the panel.
TEST_F(SimilarPanelTest, ShowsWhatIsFoundWhileItIsOpen)
{
    offer({"plain.ttf", "i-sans.ttf"});
    m_program = openLoaded();
    auto building = state().fingerprints().build(state().allRecords());
    m_panel = std::make_unique<SimilarPanel>(m_program->workspace);
    m_panel->show();
    show("Essai Plain");
    QCoro::waitFor(building);
    EXPECT_THAT(results(), ElementsAre("Essai Alpha, 100 %"));
}

} // namespace
} // namespace kerlune
