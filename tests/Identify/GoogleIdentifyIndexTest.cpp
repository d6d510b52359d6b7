#include "Identify/GoogleIdentifyIndex.h"

#include "Catalogs/HttpsClient.h"
#include "Events.h"
#include "GoogleServer.h"
#include "Identify/Fingerprint.h"
#include "Testing.h"

#include <QCoroTask>

namespace kerlune {
namespace {

using testing::Key;

constexpr const char *kNothingCame = "Aucune police n'a pu être téléchargée. Vérifiez votre connexion.";

class GoogleIdentifyIndexTest : public testing::Test {
protected:
    ~GoogleIdentifyIndexTest() override { finishBackgroundWork(); }

    static GoogleFamilies families(int count)
    {
        GoogleFamilies all;
        for (int i = 0; i < count; ++i)
            all.push_back({.family = "F" + std::to_string(i), .variants = {"400"}});
        return all;
    }
    void build(const GoogleFamilies &all) { QCoro::waitFor(m_index.build(all)); }

    int m_argc = 0;
    QCoreApplication m_application{m_argc, nullptr};
    GoogleServer m_server;
    TempFolder m_home;
    HttpsClient m_client;
    GoogleSubsets m_subsets{m_client, GoogleAddresses::from({}, QString::fromStdString(m_server.url("/css2"))),
                            m_home / "GoogleSubsets", 500ms};
    GoogleIdentifyIndex m_index{m_subsets};
};

TEST_F(GoogleIdentifyIndexTest, FetchesInBatchesOfSixAndTellsHowFarItIs)
{
    nlohmann::json fonts;
    for (int i = 0; i < 13; ++i)
        fonts["F" + std::to_string(i)] = {{"file", testFont("plain.ttf")}, {"delay", 0.03}};
    fonts["F3"] = {{"status", 500}};
    m_server.setPlan({{"font", fonts}});
    std::vector<std::pair<double, std::size_t>> seen;
    const auto observer = m_index.bindableProgress().addNotifier(
        [&] { seen.emplace_back(m_index.progress(), m_server.requestsFor("/font/")); });
    auto first = m_index.build(families(13));
    EXPECT_TRUE(m_index.isBuilding());
    auto second = m_index.build(families(20)); // is passed over
    EXPECT_TRUE(second.isReady());
    QCoro::waitFor(std::move(first));
    EXPECT_THAT(seen, ElementsAre(Pair(6.0 / 13, 6), Pair(12.0 / 13, 12), Pair(1.0, 13)));
    EXPECT_FALSE(m_index.isBuilding());
    EXPECT_EQ(m_index.readyCount(), 12U);
    EXPECT_EQ(m_index.lastError(), std::nullopt);
    EXPECT_LE(m_server.mostConnections(), 6);
    EXPECT_EQ(m_server.requestsFor("/css2?family=F0&text=ABC"), 1U);

    m_server.setPlan({});
    build(families(13)); // only the one that failed
    EXPECT_EQ(m_index.readyCount(), 13U);
    EXPECT_EQ(m_server.requestsFor("/font/"), 14U);
}

TEST_F(GoogleIdentifyIndexTest, LivesOnWhatIsCachedWhenTheNetworkIsOff)
{
    m_server.stop();
    build(families(3));
    EXPECT_EQ(m_index.lastError(), kNothingCame);
    EXPECT_EQ(m_index.progress(), 1);
    build({});
    EXPECT_EQ(m_index.lastError(), kNothingCame);

    writeFile(m_home / "GoogleSubsets/F1.ttf", readFile(testFont("plain.ttf")));
    writeFile(m_home / "GoogleSubsets/F2.ttf", "no font");
    m_index.loadFromCache(families(3));
    EXPECT_EQ(m_index.readyCount(), 1U);
    build(families(3));
    EXPECT_EQ(m_index.lastError(), std::nullopt);
    EXPECT_THAT(m_index.descriptors(), ElementsAre(Key("F1")));
    EXPECT_EQ(m_index.progress(), 1);
}

TEST_F(GoogleIdentifyIndexTest, TakesEachFontAsItComes)
{
    m_server.setPlan({{"font", {{"F0", {{"file", testFont("plain.ttf")}, {"delay", 0.4}}}}}});
    auto building = m_index.build(families(3));
    ASSERT_TRUE(waitUntil([&] { return m_index.descriptors().size() == 2; }));
    EXPECT_THAT(m_index.descriptors(), ElementsAre(Key("F1"), Key("F2")));
    EXPECT_EQ(m_index.readyCount(), 0U); // told once for the batch
    QCoro::waitFor(std::move(building));
    EXPECT_EQ(m_index.readyCount(), 3U);
}

TEST_F(GoogleIdentifyIndexTest, MayGoWhileItBuilds)
{
    m_server.setPlan({{"font", {{"F0", {{"stall", 5}}}}}});
    auto index = std::make_unique<GoogleIdentifyIndex>(m_subsets);
    auto building = index->build(families(8));
    ASSERT_TRUE(waitUntil([&] { return m_server.requestsFor("/font/F0") == 1; }));
    index.reset();
    QCoro::waitFor(std::move(building));
    EXPECT_EQ(m_server.requestsFor("/font/F7"), 0U);
}

} // namespace
} // namespace kerlune
