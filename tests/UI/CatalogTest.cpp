#include "Catalogs/GoogleFontsCatalog.h"
#include "Catalogs/GoogleSubsets.h"
#include "UI/Browser/BrowserLayout.h"
#include "UI/Catalog/CatalogList.h"
#include "UI/Catalog/CatalogPage.h"
#include "UI/Catalog/CatalogQuery.h"
#include "UI/Window/MainWindow.h"
#include "WindowHome.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>

#include <fstream>
#include <set>

namespace kerlune {
namespace {

using Kind = SidebarSelection::Kind;

GoogleFontFamily made(const std::string &name, const std::string &category, std::int64_t popularity,
                      const std::string &date, bool isVariable = false)
{
    return {.family = name,
            .category = category,
            .popularity = popularity,
            .trending = 100 - popularity,
            .dateAdded = date,
            .designers = {"Zoé Müller"},
            .variants = {"400", "700"},
            .isVariable = isVariable};
}

const GoogleFamilies kCatalog{made("Deux", "Serif", 2, "2020-01-01"), made("Un", "Sans Serif", 1, "2019-01-01", true),
                              made("Trois", "Serif", 3, "2024-01-01", true), made("Été", "Serif", 3, "2021-05-05")};

std::vector<std::string> namesOf(const GoogleFamilies &families)
{
    std::vector<std::string> names;
    for (const GoogleFontFamily &family : families)
        names.push_back(family.family);
    return names;
}

TEST(CatalogQuery, NarrowsAndOrders)
{
    const auto names = [](const CatalogQuery &query) { return namesOf(listed(kCatalog, {"Deux"}, query)); };
    EXPECT_THAT(names({}), ElementsAre("Un", "Deux", "Été", "Trois")); // the same rank: by name
    EXPECT_THAT(names({.order = CatalogOrder::trending}), ElementsAre("Été", "Trois", "Deux", "Un"));
    EXPECT_THAT(names({.order = CatalogOrder::newest}), ElementsAre("Trois", "Été", "Deux", "Un"));
    EXPECT_THAT(names({.order = CatalogOrder::name}), ElementsAre("Deux", "Été", "Trois", "Un"));
    EXPECT_THAT(names({.search = " ETE "}), ElementsAre("Été"));
    EXPECT_THAT(names({.search = "muller", .onlyInstalled = true}), ElementsAre("Deux"));
    EXPECT_THAT(names({.category = "Serif", .onlyVariable = true}), ElementsAre("Trois"));
    EXPECT_THAT(categoriesOf(kCatalog), ElementsAre("Serif", "Sans Serif"));
}

// The service answers to nobody here: what is listed comes from the copy on disk, and previews from the subsets.
class CatalogTest : public WindowHome {
protected:
    CatalogTest()
    {
        setenv("KERLUNE_GOOGLE_METADATA_URL", "https://127.0.0.1:9/metadata/fonts", 1);
        setenv("KERLUNE_GOOGLE_CSS_URL", "https://127.0.0.1:9/css2", 1);
    }
    ~CatalogTest() override
    {
        unsetenv("KERLUNE_GOOGLE_METADATA_URL");
        unsetenv("KERLUNE_GOOGLE_CSS_URL");
    }

    void putCatalog(const GoogleFamilies &catalog = kCatalog) const
    {
        nlohmann::json families = nlohmann::json::array();
        for (const GoogleFontFamily &family : catalog)
            families.push_back(encodeGoogleFamily(family));
        const auto file = GoogleFontsCatalog::cacheFile(m_directories);
        fs::create_directories(file.parent_path());
        std::ofstream(file) << families;
    }

    void putPreview(const std::string &family) const
    {
        const auto file = GoogleSubsets::cacheFile(GoogleSubsets::cacheDirectory(m_directories), family);
        put(fs::relative(file, m_home.path()));
    }

    std::unique_ptr<MainWindow> open()
    {
        m_program = openLoaded();
        auto window = std::make_unique<MainWindow>(workspace());
        window->present();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window.get(), 60'000));
        state().sidebarSelection = SidebarSelection{.kind = Kind::googleFonts};
        EXPECT_TRUE(waitFor([&] { return window->isPainted(); }));
        return window;
    }

    static QStringList listedNames(const QWidget &window)
    {
        const auto &list = child<QListView>(window, "catalogList");
        QStringList names;
        for (int row = 0; row < list.model()->rowCount(); ++row)
            names.push_back(list.model()->index(row, 0).data().toString());
        return names;
    }
};

TEST_F(CatalogTest, ListsWhatTheFiltersLeave)
{
    putCatalog();
    putPreview("Un");
    const auto window = open();
    EXPECT_EQ(listedNames(*window), (QStringList{QStringLiteral("Un"), QStringLiteral("Deux"), QStringLiteral("Été"),
                                                 QStringLiteral("Trois")}));
    EXPECT_FALSE(child<QWidget>(*window, "filterBar").isVisible());
    EXPECT_TRUE(waitFor([&] { return state().googlePreviews().hasFailed("Deux"); }));
    EXPECT_NE(state().googlePreviews().descriptor("Un"), nullptr);

    child<QComboBox>(*window, "catalogCategories").setCurrentIndex(1);
    child<QCheckBox>(*window, "catalogVariable").click();
    EXPECT_TRUE(waitFor([&] { return listedNames(*window) == QStringList{QStringLiteral("Trois")}; }));
    state().filters = Filters{.search = "rien de tel"};
    EXPECT_TRUE(waitFor([&] { return listedNames(*window).isEmpty(); }));
    QPushButton *clear = nullptr;
    EXPECT_TRUE(waitFor([&] {
        for (QPushButton *button : window->findChildren<QPushButton *>()) {
            if (button->isVisible() && button->text() == QStringLiteral("Tout effacer"))
                clear = button;
        }
        return clear != nullptr;
    }));
    click(*clear);
    EXPECT_TRUE(waitFor([&] { return listedNames(*window).size() == 4; }));
}

TEST_F(CatalogTest, BeginsAtTheTopWhenOtherFamiliesAreListed)
{
    GoogleFamilies many;
    for (int i = 0; i < 400; ++i)
        many.push_back(made("F" + std::to_string(i), i % 2 == 0 ? "Serif" : "Display", i, "2020-01-01"));
    putCatalog(many);
    const auto window = open();
    QScrollBar &bar = *child<QListView>(*window, "catalogList").verticalScrollBar();
    ASSERT_TRUE(waitFor([&] { return bar.maximum() > 1000; }));
    bar.setValue(bar.maximum());
    child<QComboBox>(*window, "catalogCategories").setCurrentIndex(1);
    EXPECT_TRUE(waitFor([&] { return listedNames(*window).size() == 200; }));
    EXPECT_EQ(bar.value(), 0);
    bar.setValue(500);
    click(*window, "catalogRefresh");
    EXPECT_TRUE(waitFor([&] { return child<QPushButton>(*window, "catalogRetry").isVisible(); }));
    EXPECT_EQ(bar.value(), 500);
}

TEST_F(CatalogTest, SaysWhatFailedAndKeepsWhatIsThere)
{
    putCatalog();
    const auto window = open();
    child<QListView>(*window, "catalogList")
        .setCurrentIndex(child<QListView>(*window, "catalogList").model()->index(1, 0));
    EXPECT_EQ(state().googleSelectedFamily.value(), "Deux");
    EXPECT_TRUE(waitFor([&] { return child<QLabel>(*window, "catalogName").isVisible(); }));
    click(*window, "catalogInstall");
    EXPECT_TRUE(waitFor([&] { return child<QLabel>(*window, "catalogError").isVisible(); }));
    EXPECT_FALSE(child<QLabel>(*window, "catalogError").text().isEmpty());
    EXPECT_TRUE(child<QPushButton>(*window, "catalogInstall").isEnabled()); // and again

    EXPECT_FALSE(child<QPushButton>(*window, "catalogRetry").isVisible());
    click(*window, "catalogRefresh");
    EXPECT_TRUE(waitFor([&] { return child<QPushButton>(*window, "catalogRetry").isVisible(); }));
    EXPECT_EQ(listedNames(*window).size(), 4);
}

TEST_F(CatalogTest, OffersToTryAgainWhereThereIsNoList)
{
    const auto window = open();
    EXPECT_TRUE(state().googleCatalogError());
    const auto labels = window->findChildren<QLabel *>();
    EXPECT_TRUE(std::any_of(labels.begin(), labels.end(), [](const QLabel *label) {
        return label->isVisible() && label->text() == QStringLiteral("Catalogue indisponible");
    }));
}

TEST_F(CatalogTest, ShowsAWaterfallOfSizes)
{
    putCatalog();
    putPreview("Un");
    const auto window = open();
    state().viewMode = ViewMode::waterfall;
    auto &list = child<QListView>(*window, "catalogList");
    const BrowserLayout layout({.mode = BrowserLayout::Mode::waterfall, .width = list.viewport()->width(), .count = 1});
    ASSERT_TRUE(waitFor([&] { return list.gridSize().height() == layout.cellSize().height(); }));
    EXPECT_TRUE(waitFor([&] { return window->isPainted(); }));
    const QImage image = list.viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
    const QRect row = list.visualRect(list.model()->index(0, 0));
    for (const QRect &line : layout.cell().previews) {
        const QRect area = line.translated(row.topLeft());
        std::set<QRgb> colors;
        for (int x = area.left(); x < area.right() && x < image.width(); ++x)
            colors.insert(image.pixel(x, area.center().y()));
        EXPECT_GT(colors.size(), 1U) << "no letters in the line of " << line.height();
    }
}

TEST_F(CatalogTest, ComparesWithTheUsersOwn)
{
    putCatalog();
    putPreview("Un");
    put("data/fonts/plain.ttf");
    const auto window = open();
    const std::string own = state().families().front()->name;
    state().googleSelectedFamily = "Un";
    EXPECT_TRUE(waitFor([&] { return child<QPushButton>(*window, "catalogCompare").isVisible(); }));
    workspace().addToComparison({own});
    click(*window, "catalogCompare");
    EXPECT_THAT(state().comparisonSet.value(), ElementsAre(own, "Un"));
    EXPECT_TRUE(waitFor([&] { return workspace().comparedFace("Un") != nullptr; }));
    state().viewMode = ViewMode::compare;
    EXPECT_TRUE(waitFor([&] { return window->isPainted(); }));
}

} // namespace
} // namespace kerlune
