#include "Platform/Linux/FontLinks.h"

#include "FcList.h"
#include "FontconfigFile.h"
#include "TempFolder.h"
#include "TestFonts.h"
#include "Testing.h"

#include <sys/stat.h>

#include <array>

namespace kerlune {
namespace {

using Reason = RegistrationError::Reason;

class FontLinksTest : public testing::Test {
protected:
    FontLinksTest()
    {
        setenv("FONTCONFIG_FILE", writeFontconfigFile(m_home, {m_home / "fonts"}).c_str(), 1);
        fs::create_directories(library());
    }
    ~FontLinksTest() override { unsetenv("FONTCONFIG_FILE"); }

    fs::path library() const { return m_home / "library"; }
    fs::path folder() const { return m_home / "fonts/Kerlune"; }

    std::string put(const std::string &font, const std::string &name) const
    {
        const fs::path path = library() / name;
        fs::create_directories(path.parent_path());
        fs::copy_file(testFont(font), path);
        return path;
    }

    TempFolder m_home;
    FontLinks m_links{folder()};
};

TEST_F(FontLinksTest, ShowsFontsToOtherProgramsUntilTheyAreRemoved)
{
    const std::string longName = std::string(190, 'x') + "é.ttf"; // 196 bytes
    const std::vector<std::string> paths{put("plain.ttf", "a/Police.ttf"),
                                         put("italic.ttf", "b/Police.ttf"),
                                         put("family-9.ttf", "Été à Paris.ttf"),
                                         put("family-10.ttf", "two\nlines.ttf"),
                                         put("two-a.ttf", longName),
                                         put("collection.ttc", "no extension")};
    EXPECT_THAT(m_links.add(paths), IsEmpty());
    EXPECT_THAT(namesInFcList(), SizeIs(7));
    EXPECT_THAT(m_links.paths(), testing::UnorderedElementsAreArray(paths));
    EXPECT_THAT(m_links.add(paths), IsEmpty()); // again
    EXPECT_THAT(m_links.paths(), SizeIs(6));
    for (const fs::directory_entry &link : fs::directory_iterator(folder()))
        EXPECT_EQ(link.path().native().find('\n'), std::string::npos);

    fs::remove(paths[0]); // a file that has gone is still registered until it is removed
    EXPECT_THAT(m_links.remove(std::array{paths[0], paths[3], paths[5]}), IsEmpty());
    EXPECT_THAT(namesInFcList(), SizeIs(3));
    EXPECT_THAT(m_links.remove(paths), IsEmpty());
    EXPECT_THAT(namesInFcList(), IsEmpty());
    EXPECT_TRUE(fs::exists(paths[1])); // the fonts themselves stay
}

TEST_F(FontLinksTest, NeverTouchesWhatSomebodyElsePutThere)
{
    const std::string ours = put("plain.ttf", "a.ttf");
    const std::string theirs = put("italic.ttf", "b.ttf");
    fs::create_directories(folder());
    fs::copy_file(testFont("family-9.ttf"), folder() / "a.ttf");
    fs::create_symlink(theirs, folder() / "b.ttf");
    m_links.add(std::array{ours});
    EXPECT_THAT(m_links.paths(), ElementsAre(ours));
    EXPECT_THAT(m_links.remove(std::array{ours, theirs}), IsEmpty());
    EXPECT_TRUE(fs::exists(folder() / "a.ttf"));
    EXPECT_TRUE(fs::is_symlink(folder() / "b.ttf"));
    EXPECT_THAT(namesInFcList(), SizeIs(2));
}

TEST_F(FontLinksTest, SaysWhyAFileIsNotRegistered)
{
    const std::string font = put("plain.ttf", "a.ttf");
    m_links.add(std::array{font});
    const std::string link = fs::directory_iterator(folder())->path();
    const fs::path pipe = library() / "pipe.ttf";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const std::vector<std::string> paths{
        library() / "missing.ttf",    put("text.ttf", "text.ttf"), pipe, library() / std::string(5'000, 'x'), link,
        put("italic.ttf", "good.ttf")};
    const auto errors = m_links.add(paths);
    ASSERT_THAT(errors, SizeIs(5));
    EXPECT_EQ(errors[0], (RegistrationError{paths[0], Reason::UnusableFile, FontError::NotFound}));
    EXPECT_EQ(errors[1], (RegistrationError{paths[1], Reason::UnusableFile, FontError::UnknownFormat}));
    EXPECT_EQ(errors[2].fontError, FontError::NotAFile);
    EXPECT_EQ(errors[3].fontError, FontError::NameTooLong);
    EXPECT_EQ(errors[4].reason, Reason::OwnRegistration);
    EXPECT_EQ(errors[0].description(), "« missing.ttf » : fichier introuvable");
    EXPECT_THAT(m_links.paths(), ElementsAre(font, paths[5]));

    writeFile(m_home / "file", "");
    const auto refused = FontLinks(m_home / "file/Kerlune").add(std::array{font, paths[5]});
    ASSERT_THAT(refused, SizeIs(2));
    EXPECT_EQ(refused[0].reason, Reason::FolderNotWritable);
}

TEST_F(FontLinksTest, RegistersThousandsAtOnce)
{
    std::vector<std::string> paths;
    for (int i = 0; i < 5'000; ++i)
        paths.push_back(put("plain.ttf", std::to_string(i % 50) + "/" + std::to_string(i) + ".ttf"));
    EXPECT_THAT(m_links.add(paths), IsEmpty());
    EXPECT_THAT(namesInFcList(), SizeIs(5'000));
    EXPECT_THAT(m_links.remove(paths), IsEmpty());
    EXPECT_THAT(m_links.paths(), IsEmpty());
}

} // namespace
} // namespace kerlune
