#include "Platform/FontCatalog.h"

#include "Events.h"
#include "FontconfigFile.h"
#include "Platform/DescriptorCache.h"
#include "Platform/Directories.h"
#include "Platform/Linux/FontconfigCatalog.h"
#include "Platform/Linux/LinuxFontRegistry.h"
#include "Platform/Linux/ProcessFonts.h"
#include "TempFolder.h"
#include "TestFonts.h"
#include "Testing.h"

#include <QCoreApplication>

#include <chrono>
#include <thread>
#include <vector>

namespace kerlune {
namespace {

class FontCatalogTest : public testing::Test {
protected:
    FontCatalogTest()
    {
        fs::create_directories(fonts());
        setenv("FONTCONFIG_FILE", writeFontconfigFile(m_home, {fonts()}).c_str(), 1);
    }
    ~FontCatalogTest() override { unsetenv("FONTCONFIG_FILE"); }

    fs::path fonts() const { return m_home / "fonts"; }
    fs::path cacheFile() const { return m_home / "cache/descriptors"; }
    void offer(const std::string &name, const std::string &as) { fs::copy_file(testFont(name), fonts() / as); }

    std::vector<std::string> names(Duplicates duplicates = Duplicates::Remove) const
    {
        std::vector<std::string> names;
        for (const FontDescriptor &font : m_catalog.availableFonts(duplicates).fonts)
            names.push_back(font.postScriptName);
        return names;
    }

    TempFolder m_home;
    std::shared_ptr<ProcessFonts> m_processFonts = std::make_shared<ProcessFonts>();
    FontconfigCatalog m_catalog{m_processFonts, cacheFile()};
};

TEST_F(FontCatalogTest, OffersRegisteredFilesThenTheSystemsByPathFaceAndInstance)
{
    offer("variable.ttf", "b.ttf");
    offer("collection.ttc", "a.ttc");
    EXPECT_THAT(names(), ElementsAre("EssaiCollection-Regular", "EssaiCollection-Bold", "EssaiVariable-Regular",
                                     "EssaiVariable-Gras", "EssaiVariable-CondensedLight", "EssaiVariable-Slanted"));

    LinuxFontRegistry registry(m_processFonts, m_home / "links");
    int changes = 0;
    QObject::connect(&registry, &FontRegistry::registeredFontsChanged, &registry, [&] { ++changes; });
    const std::vector<std::string> files{testFont("plain.ttf"), testFont("family-9.ttf"), fonts() / "a.ttc"};
    registry.registerForProcess(files);
    registry.registerForProcess(files);
    EXPECT_EQ(changes, 1);
    const auto offered = names();
    ASSERT_EQ(offered.size(), 8U);
    EXPECT_EQ(offered[0], "EssaiPlain-Regular");
    EXPECT_EQ(offered[2], "EssaiCollection-Regular"); // once, at its place among the registered
    EXPECT_EQ(offered[4], "EssaiVariable-Regular");

    registry.unregisterForProcess(files);
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(names().size(), 6U);
}

TEST_F(FontCatalogTest, ResolvesLinksAndRemovesDuplicateNames)
{
    offer("two-a.ttf", "2.ttf");
    offer("two-b.ttf", "1.ttf");
    fs::create_symlink(fonts() / "2.ttf", fonts() / "0.ttf");
    const auto all = m_catalog.availableFonts(Duplicates::Keep).fonts;
    ASSERT_EQ(all.size(), 2U);
    EXPECT_EQ(all[0].path, fs::canonical(fonts()) / "1.ttf");
    const auto kept = m_catalog.availableFonts(Duplicates::Remove).fonts;
    ASSERT_EQ(kept.size(), 1U);
    EXPECT_EQ(kept[0], all[0]);
    EXPECT_EQ(m_catalog.findFont("essaidouble-REGULAR"), all[0]);
    EXPECT_EQ(m_catalog.findFont("Nobody"), std::nullopt);
}

// fontconfig says nothing of the files that it leaves out; a user would look for them.
TEST_F(FontCatalogTest, NamesTheFilesThatFontconfigDoesNotOffer)
{
    offer("plain.ttf", "a.ttf");
    offer("text.ttf", "sub.ttf");
    writeFile(fonts() / "deeper/notes.txt", "no font");
    fs::copy_file(testFont("text.ttf"), fonts() / "deeper/c.OTF");
    offer("huge-offsets.ttf", ".hidden.ttf");
    fs::create_directory(fonts() / "folder.ttf");
    fs::create_directory_symlink(fonts(), fonts() / "deeper/around");
    const auto listing = m_catalog.availableFonts(Duplicates::Remove);
    EXPECT_EQ(listing.fonts.size(), 1U);
    EXPECT_THAT(listing.skipped, ElementsAre(SkippedFont{fonts() / "deeper/c.OTF", FontError::UnknownFormat},
                                             SkippedFont{fonts() / "sub.ttf", FontError::UnknownFormat}));

    writeFile(m_home / "fonts.conf",
              "<?xml version=\"1.0\"?><fontconfig><dir>" + fonts().string() + "</dir><cachedir>" +
                  (m_home / "fontconfig-cache").string() +
                  "</cachedir><selectfont><rejectfont><glob>*/a.ttf</glob></rejectfont></selectfont></fontconfig>");
    EXPECT_THAT(m_catalog.availableFonts(Duplicates::Remove).fonts, IsEmpty());
    EXPECT_THAT(m_catalog.availableFonts(Duplicates::Remove).skipped,
                Contains(SkippedFont{fonts() / "a.ttf", FontError::RefusedBySystem}));
}

TEST_F(FontCatalogTest, NoticesWhatCameAfterItReadAhead)
{
    offer("plain.ttf", "a.ttf");
    m_catalog.readAhead();
    EXPECT_THAT(names(), ElementsAre("EssaiPlain-Regular"));
    m_catalog.readAhead();
    std::this_thread::sleep_for(20ms); // folders tell their times by ticks
    fs::remove(fonts() / "a.ttf");
    offer("variable.ttf", "deeper.ttf");
    EXPECT_THAT(names(), Contains("EssaiVariable-Regular"));
}

// What a start-up must not do is read fonts that have not changed.
TEST_F(FontCatalogTest, ReadsAFileAgainOnlyWhenItsTimeOrSizeChanged)
{
    offer("plain.ttf", "a.ttf");
    const auto path = fonts() / "a.ttf";
    EXPECT_THAT(names(), ElementsAre("EssaiPlain-Regular"));
    const auto time = fs::last_write_time(path);

    // The same size and time, other bytes: the cache answers, in this catalogue and in the next one.
    const std::string unread(fs::file_size(path), 'x');
    writeFile(path, unread);
    fs::last_write_time(path, time);
    const FontconfigCatalog next(m_processFonts, cacheFile());
    const std::vector<std::string> registered{path};
    m_processFonts->add(registered); // fontconfig itself no longer offers what is no font
    EXPECT_EQ(next.availableFonts(Duplicates::Keep).fonts.size(), 1U);

    fs::last_write_time(path, time + std::chrono::nanoseconds(1'000'000));
    EXPECT_THAT(next.availableFonts(Duplicates::Keep).fonts, IsEmpty());
    EXPECT_THAT(next.availableFonts(Duplicates::Keep).skipped,
                ElementsAre(SkippedFont{fs::canonical(path), FontError::UnknownFormat}));
}

// A face that takes too long is found out when it is indexed; it must not be offered again at every start.
TEST_F(FontCatalogTest, ForgetsAFaceThatCouldNotBeIndexed)
{
    offer("two-a.ttf", "a.ttf");
    offer("two-b.ttf", "b.ttf");
    const FontDescriptor costly = m_catalog.availableFonts(Duplicates::Remove).fonts.at(0);
    m_catalog.leaveOut(std::span(&costly, 1), FontError::TooCostly);
    const FontconfigCatalog next(m_processFonts, cacheFile());
    for (const FontCatalog *catalog : std::initializer_list<const FontCatalog *>{&m_catalog, &next}) {
        const auto listing = catalog->availableFonts(Duplicates::Remove);
        ASSERT_EQ(listing.fonts.size(), 1U);
        EXPECT_EQ(listing.fonts[0].path, fonts() / "b.ttf"); // the other face of that name steps in
        EXPECT_THAT(listing.skipped, ElementsAre(SkippedFont{costly.path, FontError::TooCostly}));
    }
}

TEST_F(FontCatalogTest, DoesWithoutADamagedOrUnwritableCache)
{
    offer("variable.ttf", "a.ttf");
    const auto expected = names();
    const std::string sound = readFile(cacheFile());
    ASSERT_GT(sound.size(), 100U);
    for (std::size_t i = 0; i < sound.size(); ++i) {
        std::string damaged = sound;
        damaged[i] = static_cast<char>(damaged[i] ^ 0x55);
        writeFile(cacheFile(), damaged);
        const FontconfigCatalog catalog(m_processFonts, cacheFile());
        ASSERT_EQ(catalog.availableFonts(Duplicates::Remove).fonts.size(), expected.size()) << i;
        writeFile(cacheFile(), sound.substr(0, i));
        ASSERT_EQ(DescriptorCache(cacheFile()).find(fonts() / "a.ttf", {}), nullptr) << i;
    }
    const FontconfigCatalog nowhere(m_processFonts, cacheFile() / "below/a/file");
    EXPECT_EQ(nowhere.availableFonts(Duplicates::Remove).fonts.size(), expected.size());
}

TEST_F(FontCatalogTest, TellsWhenAFontFolderChanges)
{
    int argc = 0;
    const QCoreApplication application(argc, nullptr);
    LinuxFontRegistry registry(m_processFonts, fonts() / "links");
    int changes = 0;
    QObject::connect(&registry, &FontRegistry::registeredFontsChanged, &registry, [&] { ++changes; });
    registry.watchSystemFolders();
    offer("plain.ttf", "new.ttf");
    ASSERT_TRUE(waitUntil([&] { return changes > 0; }));

    changes = 0;
    auto registered = registry.registerPersistently({testFont("italic.ttf"), m_home / "missing.ttf"});
    ASSERT_TRUE(waitUntil([&] { return registered.isFinished() && changes > 0; }));
    EXPECT_EQ(registered.result().size(), 1U);
    EXPECT_EQ(names().size(), 2U);
}

TEST(Directories, FollowTheXdgBaseDirectories)
{
    setenv("HOME", "/home/someone", 1);
    setenv("XDG_DATA_HOME", "/data", 1);
    setenv("XDG_CACHE_HOME", "relative", 1); // not absolute: not taken
    unsetenv("XDG_CONFIG_HOME");
    const auto directories = Directories::fromEnvironment();
    EXPECT_EQ(directories.applicationSupport, "/data/Kerlune");
    EXPECT_EQ(directories.userLibrary, "/data");
    EXPECT_EQ(directories.caches, "/home/someone/.cache/Kerlune");
    EXPECT_EQ(directories.configuration, "/home/someone/.config/Kerlune");
}

} // namespace
} // namespace kerlune
