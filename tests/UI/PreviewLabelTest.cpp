#include "UI/Preview/PreviewLabel.h"

#include "UI/InterfaceText.h"
#include "UI/Preview/LargePreview.h"
#include "WindowHome.h"

#include <QLabel>
#include <QLineEdit>

namespace kerlune {
namespace {

class PreviewLabelTest : public WindowHome {
protected:
    PreviewLabelTest()
    {
        m_label.resize(200, 60);
        m_label.show();
    }

    static FontRecordPointer recordOf(const std::string &path, const std::string &postScriptName)
    {
        auto record = std::make_shared<FontRecord>();
        record->filePath = path;
        record->postScriptName = postScriptName;
        record->family = "Famille <b>";
        record->scriptMask = 1;
        return record;
    }

    QImage shownImage()
    {
        EXPECT_TRUE(waitFor([&] { return m_program.previews.isIdle(); }));
        return m_label.grab().toImage();
    }

    std::string toolTip() const { return m_label.toolTip().toStdString(); }

    Program m_program{*this};
    PreviewLabel m_label{m_program.workspace};
    const FontRecordPointer m_face = recordOf(systemFont("truetype/dejavu/DejaVuSans.ttf"), "DejaVuSans");
};

bool isBlank(const QImage &image, const QRect &area)
{
    const QImage part = image.copy(area);
    for (int y = 0; y < part.height(); ++y) {
        for (int x = 0; x < part.width(); ++x) {
            if (part.pixel(x, y) != part.pixel(0, 0))
                return false;
        }
    }
    return true;
}

bool hasPixel(const QImage &image, const QColor &color)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == color)
                return true;
        }
    }
    return false;
}

TEST_F(PreviewLabelTest, ShowsTheFaceAndKeepsTheLastImageUntilTheNextOneIsThere)
{
    EXPECT_TRUE(isBlank(shownImage(), m_label.rect()));
    m_label.setContent({.face = m_face, .text = "Un", .emSize = 24});
    const QImage first = shownImage();
    EXPECT_FALSE(isBlank(first, m_label.rect()));
    EXPECT_EQ(m_label.accessibleName(), QStringLiteral("Un"));
    EXPECT_EQ(toolTip(), "");
    m_label.setContent({.face = m_face, .text = "Deux", .emSize = 24});
    EXPECT_EQ(m_label.grab().toImage(), first);
    EXPECT_NE(shownImage(), first);
    m_program.theme.setAppearance(Appearance::dark);
    EXPECT_NE(shownImage().pixel(0, 0), 0U);
    m_label.setContent({});
    EXPECT_TRUE(isBlank(shownImage(), m_label.rect()));
}

TEST_F(PreviewLabelTest, SaysWhatItCouldNotDo)
{
    m_label.setContent({.face = recordOf("/nowhere.ttf", "Nowhere"), .text = "Un", .emSize = 24});
    EXPECT_FALSE(isBlank(shownImage(), m_label.rect())); // the name and a mark
    EXPECT_THAT(toolTip(), HasSubstr("ne peut pas être lue"));
    m_label.setContent({.face = m_face, .text = "人人", .emSize = 24});
    shownImage();
    EXPECT_THAT(toolTip(), HasSubstr("un autre texte"));
}

TEST_F(PreviewLabelTest, WritesTheSizeOfReducedTextBesideTheInk)
{
    const QRect corner(170, 48, 30, 12);
    m_label.setContent({.face = m_face, .text = "Un texte bien trop long pour la place", .emSize = 24});
    EXPECT_FALSE(isBlank(shownImage(), corner));
    EXPECT_THAT(toolTip(), HasSubstr("Réduit à"));
    for (const char *text : {"Åg", "ÅgÅgg", "ÅgÅggg", "ÅgÅgÅgÅg"}) { // as high as the label, as wide, or both
        m_label.setContent({.face = m_face, .text = text, .emSize = 80});
        const QImage part = shownImage().copy(corner);
        EXPECT_FALSE(isBlank(part, part.rect())) << text;
        EXPECT_FALSE(hasPixel(part, m_program.theme.colors().text)) << text;
    }
}

using LargePreviewTest = WindowHome;

TEST_F(LargePreviewTest, StepsThroughTheVisibleFamiliesAndGivesTheFocusBack)
{
    offer({"family-9.ttf", "family-10.ttf", "plain.ttf"});
    const auto program = openLoaded();
    AppState &state = program->state;
    const auto families = state.visibleFamilies();
    ASSERT_EQ(families.size(), 3U);
    QWidget window;
    window.resize(800, 500);
    QLineEdit field(&window);
    LargePreview preview(program->workspace, &window);
    window.show();
    window.activateWindow();
    field.setFocus();
    ASSERT_TRUE(waitFor([&] { return field.hasFocus(); }));

    preview.open();
    EXPECT_FALSE(preview.isVisible()); // nothing is selected
    program->workspace.select({families[0]->name});
    preview.open();
    ASSERT_TRUE(preview.isVisible());
    EXPECT_EQ(preview.geometry(), window.rect());
    EXPECT_TRUE(preview.hasFocus());
    const auto *position = preview.findChild<QLabel *>(QStringLiteral("largePreviewPosition"));
    EXPECT_EQ(position->text(), QStringLiteral("1 / 3"));

    QTest::keyClick(&preview, Qt::Key_Left); // there is none before
    EXPECT_EQ(state.selectedFamily.value(), families[0]->name);
    QTest::keyClick(&preview, Qt::Key_Right);
    QTest::keyClick(&preview, Qt::Key_Down);
    EXPECT_EQ(state.selectedFamily.value(), families[2]->name);
    EXPECT_THAT(program->workspace.selectedFamilies.value(), ElementsAre(families[2]->name));
    EXPECT_EQ(position->text(), QStringLiteral("3 / 3"));
    EXPECT_TRUE(preview.accessibleName().contains(QStringLiteral("3 / 3")));

    auto *label = preview.findChild<PreviewLabel *>();
    const double size = label->content().emSize;
    QTest::keyClick(&preview, Qt::Key_Plus);
    EXPECT_GT(label->content().emSize, size);
    program->workspace.coordinates = std::vector<AxisValue>{{tag("wght"), 700}};
    EXPECT_EQ(label->content().coordinates, program->workspace.coordinates.value());

    QTest::keyClick(&preview, Qt::Key_Tab);
    EXPECT_TRUE(preview.hasFocus());
    window.resize(600, 400);
    EXPECT_EQ(preview.geometry(), window.rect());
    QTest::keyClick(&preview, Qt::Key_Space);
    EXPECT_FALSE(preview.isVisible());
    EXPECT_TRUE(field.hasFocus());
}

} // namespace
} // namespace kerlune
