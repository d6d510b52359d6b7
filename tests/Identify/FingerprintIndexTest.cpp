#include "Identify/FingerprintIndex.h"

#include "Events.h"
#include "Model/FontIndexer.h"
#include "Model/ScriptCoverage.h"
#include "Platform/FontCatalog.h"
#include "TempFolder.h"
#include "TestFonts.h"
#include "Testing.h"

#include <QCoreApplication>
#include <QCoroTask>
#include <sqlite3.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <mutex>

namespace kerlune {
namespace {

using Fingerprint::Vector;

// At this angle from the first axis, in the plane of the first two: the score of two is the cosine between them.
Vector atDegrees(double degrees)
{
    Vector vector(Fingerprint::kLength);
    vector[0] = static_cast<float>(std::cos(degrees * std::acos(-1) / 180));
    vector[1] = static_cast<float>(std::sin(degrees * std::acos(-1) / 180));
    return vector;
}

std::uint64_t maskOf(std::string_view language)
{
    const auto &all = ScriptCoverage::all();
    const auto found = std::find_if(all.begin(), all.end(), [&](const auto &known) { return known.id == language; });
    return std::uint64_t{1} << (found - all.begin());
}

class FingerprintIndexTest : public testing::Test {
protected:
    void SetUp() override
    {
        auto store = FontIndexStore::open(m_home.path() / "index.sqlite");
        ASSERT_TRUE(store);
        m_store = *std::move(store);
    }
    ~FingerprintIndexTest() override { finishBackgroundWork(); }

    void add(const std::string &name, const std::string &family, const Vector &vector, std::uint64_t mask = 1,
             bool isMonospace = false)
    {
        FontRecord record;
        record.postScriptName = name;
        record.family = family;
        record.scriptMask = mask;
        record.isMonospace = isMonospace;
        m_records.push_back(std::make_shared<const FontRecord>(std::move(record)));
        if (!vector.empty())
            m_store->saveFingerprints({{name, vector}});
    }

    std::vector<std::pair<std::string, int>> similar(const std::string &name, std::size_t limit = 100,
                                                     bool latinFocusOnly = true) const
    {
        FingerprintIndex index(m_store);
        QCoro::waitFor(index.load());
        std::vector<std::pair<std::string, int>> found; // with the score in hundredths
        for (const auto &[record, score] : index.similar(name, m_records, limit, latinFocusOnly))
            found.emplace_back(record->postScriptName, static_cast<int>(std::lround(score * 100)));
        return found;
    }

    static FontRecordPointer recordOf(const std::string &font)
    {
        auto record = FontIndexer::extract(fontsOfFile(testFont(font)).fonts.at(0));
        if (!record)
            throw std::runtime_error(font);
        return std::make_shared<const FontRecord>(*std::move(record));
    }

    void execute(const std::string &sql) const
    {
        sqlite3 *database = nullptr;
        ASSERT_EQ(sqlite3_open((m_home.path() / "index.sqlite").c_str(), &database), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK) << sql;
        sqlite3_close(database);
    }

    int m_argc = 0;
    QCoreApplication m_application{m_argc, nullptr};
    TempFolder m_home;
    std::shared_ptr<FontIndexStore> m_store;
    FingerprintIndex::Records m_records;
};

TEST_F(FingerprintIndexTest, ListsTheBestFaceOfEachOtherFamilyByScore)
{
    add("R", "Reference", atDegrees(0));
    add("RBold", "Reference", atDegrees(1)); // of the same family
    add("B1", "B", atDegrees(60));
    add("B2", "B", atDegrees(10));
    add("B3", "B", atDegrees(10)); // equal: the first one stays
    add("C", "C", atDegrees(30));
    add("Old", "Old", Vector(10, 1.0F)); // of another length
    add("None", "None", {});
    EXPECT_THAT(similar("R"), ElementsAre(Pair("B2", 98), Pair("C", 87), Pair("Old", 0)));
    EXPECT_THAT(similar("R", 1), ElementsAre(Pair("B2", 98)));
    EXPECT_THAT(similar("R", 0), IsEmpty());
    EXPECT_THAT(similar("None"), IsEmpty());
    EXPECT_THAT(similar("Old"), SizeIs(3)); // all with 0

    m_records.erase(m_records.begin()); // a reference that is no candidate: its family is not known then
    EXPECT_THAT(similar("R"), ElementsAre(Pair("RBold", 100), Pair("B2", 98), Pair("C", 87), Pair("Old", 0)));
}

TEST_F(FingerprintIndexTest, KeepsToTheSpacingAndToLatin)
{
    add("Latin", "A", atDegrees(0));
    add("Mono", "B", atDegrees(5), 1, true);
    add("Mono2", "B2", atDegrees(6), 1, true);
    add("Arabic", "C", atDegrees(5), 1 | maskOf("arabic"));
    add("Greek", "D", atDegrees(20), 1 | maskOf("greek"));
    add("Japanese", "E", atDegrees(30), 1 | maskOf("japanese"));
    EXPECT_THAT(similar("Latin"), ElementsAre(Pair("Greek", 94)));
    EXPECT_THAT(similar("Latin", 100, false),
                ElementsAre(Pair("Arabic", 100), Pair("Greek", 94), Pair("Japanese", 87)));
    EXPECT_THAT(similar("Japanese"), ElementsAre(Pair("Greek", 98), Pair("Arabic", 91), Pair("Latin", 87)));
    EXPECT_THAT(similar("Mono"), ElementsAre(Pair("Mono2", 100)));
}

// What it remembers of the candidates is theirs alone.
TEST_F(FingerprintIndexTest, FollowsTheCandidatesAndTheVectors)
{
    const FontRecordPointer computed = recordOf("fingerprint-four.ttf");
    const FontRecordPointer wide = recordOf("fingerprint-wide.ttf");
    add("R", "Reference", *Fingerprint::compute(openFace(wide->filePath)));
    add("A", "A", atDegrees(0));
    FingerprintIndex index(m_store);
    QCoro::waitFor(index.load());
    const auto found = [&](const FingerprintIndex::Records &candidates) {
        return index.similar("R", candidates, 100, false).size();
    };
    EXPECT_EQ(found(m_records), 1U);
    EXPECT_EQ(found({m_records[0]}), 0U);
    FontRecord moved = *m_records[1];
    moved.family = "Reference";
    EXPECT_EQ(found({m_records[0], std::make_shared<const FontRecord>(moved)}), 0U);

    m_records.push_back(computed);
    EXPECT_EQ(found(m_records), 1U) << "it has no vector yet";
    QCoro::waitFor(index.build({computed}));
    EXPECT_EQ(found(m_records), 2U);
}

TEST_F(FingerprintIndexTest, PassesOverNumbersThatAreNone)
{
    Vector broken = atDegrees(0);
    broken[5] = std::numeric_limits<float>::quiet_NaN();
    Vector endless = atDegrees(0);
    endless[0] = -std::numeric_limits<float>::infinity();
    add("R", "Reference", atDegrees(0));
    add("Broken", "A", broken);
    add("Endless", "B", endless);
    add("C", "C", atDegrees(30));
    EXPECT_THAT(similar("R"), ElementsAre(Pair("C", 87), Pair("Broken", 0), Pair("Endless", 0)));
}

TEST_F(FingerprintIndexTest, ComputesWhatIsMissingAndKeepsIt)
{
    const FingerprintIndex::Records records{recordOf("fingerprint-four.ttf"), recordOf("fingerprint-wide.ttf"),
                                            recordOf("fingerprint-three.ttf")}; // the last one has none
    const std::string &name = records.front()->postScriptName;
    FingerprintIndex index(m_store);
    QCoro::waitFor(index.build(records));
    EXPECT_FALSE(index.isBuilding());
    EXPECT_DOUBLE_EQ(index.progress(), 1);
    EXPECT_EQ(index.vectors().count(), 0U) << "nobody has asked for them";
    QCoro::waitFor(index.load());
    EXPECT_EQ(index.vectors().count(), 2U);
    const auto vector = index.vectors().find(name);
    ASSERT_TRUE(vector);
    EXPECT_THAT(*Fingerprint::compute(openFace(testFont("fingerprint-four.ttf"))), testing::ElementsAreArray(*vector));
    EXPECT_THAT(m_store->loadFingerprints().at(name), testing::ElementsAreArray(*vector));

    m_store->saveFingerprints({{name, atDegrees(0)}}); // seen if it were computed or written again
    FingerprintIndex again(m_store);
    QCoro::waitFor(again.build({records[0], records[1]}));
    EXPECT_FALSE(again.isBuilding());
    EXPECT_DOUBLE_EQ(again.progress(), 1);
    EXPECT_EQ(m_store->loadFingerprints().at(name), atDegrees(0));

    QCoro::waitFor(again.load());
    EXPECT_THAT(atDegrees(0), testing::ElementsAreArray(*again.vectors().find(name)));
    QCoro::waitFor(again.build({recordOf("plain.ttf")}));
    EXPECT_EQ(again.vectors().count(), 3U) << "what comes later is there at once";

    FingerprintIndex without(nullptr);
    QCoro::waitFor(without.build(records));
    EXPECT_EQ(without.vectors().count(), 0U);
}

// As a window keeps them: every face of a name that several files have.
TEST_F(FingerprintIndexTest, TakesTheFirstFaceOfAName)
{
    const FontRecordPointer first = recordOf("fingerprint-four.ttf");
    FontRecord second = *recordOf("fingerprint-four.ttf");
    second.filePath = testFont("fingerprint-namesake.ttf");
    const auto own = Fingerprint::compute(openFace(second.filePath));
    ASSERT_TRUE(own);
    for (const bool isFirst : {true, false}) {
        FingerprintIndex::Records records{first, std::make_shared<const FontRecord>(second)};
        if (!isFirst)
            std::swap(records[0], records[1]);
        auto store = FontIndexStore::open(m_home.path() / (isFirst ? "a.sqlite" : "b.sqlite"));
        ASSERT_TRUE(store);
        FingerprintIndex index(*std::move(store));
        QCoro::waitFor(index.load());
        QCoro::waitFor(index.build(records));
        const auto vector = index.vectors().find(first->postScriptName);
        ASSERT_TRUE(vector);
        EXPECT_EQ(std::equal(vector->begin(), vector->end(), own->begin()), !isFirst);
    }
}

TEST_F(FingerprintIndexTest, ComputesWhatIsStoredWrongAgain)
{
    const FontRecordPointer record = recordOf("fingerprint-four.ttf");
    execute("INSERT INTO fingerprints VALUES('" + record->postScriptName + "', x'00112233445566778899')");
    FingerprintIndex index(m_store);
    QCoro::waitFor(index.load());
    EXPECT_FALSE(index.vectors().contains(record->postScriptName));
    QCoro::waitFor(index.build({record}));
    EXPECT_TRUE(index.vectors().contains(record->postScriptName));
    EXPECT_THAT(m_store->loadFingerprints().at(record->postScriptName), SizeIs(Fingerprint::kLength));
}

TEST_F(FingerprintIndexTest, BuildsOnceAtATime)
{
    FingerprintIndex index(m_store);
    auto first = index.build({recordOf("fingerprint-four.ttf")});
    EXPECT_TRUE(index.isBuilding());
    QCoro::waitFor(index.build({recordOf("fingerprint-wide.ttf")})); // ends at once
    EXPECT_TRUE(index.isBuilding());
    QCoro::waitFor(first);
    QCoro::waitFor(index.load());
    EXPECT_EQ(index.vectors().count(), 1U);
}

TEST_F(FingerprintIndexTest, LosesNothingToAReadingThatComesBeforeTheyAreSaved)
{
    FingerprintIndex index(m_store);
    QCoro::waitFor(index.build({})); // the names are known: computing begins at once
    auto building = index.build({recordOf("fingerprint-four.ttf")});
    auto reading = index.load(); // behind it, and before the saving
    auto sameReading = index.load();
    QCoro::waitFor(building);
    QCoro::waitFor(reading);
    QCoro::waitFor(sameReading);
    EXPECT_TRUE(index.isLoaded());
    EXPECT_EQ(index.vectors().count(), 1U);
}

TEST_F(FingerprintIndexTest, ReportsEveryHundredthFaceThatHasOne)
{
    std::mutex mutex;
    std::vector<std::size_t> reported;
    const auto compute = [&](const char *font, std::size_t count) {
        reported.clear();
        const FingerprintIndex::Records records(count, recordOf(font));
        computeFingerprints(records,
                            [&](std::size_t done) {
                                const std::lock_guard turn(mutex);
                                reported.push_back(done);
                            },
                            {});
        return reported;
    };
    EXPECT_THAT(compute("fingerprint-four.ttf", 250), UnorderedElementsAre(100, 200));
    EXPECT_THAT(compute("fingerprint-three.ttf", 100), IsEmpty());
}

TEST_F(FingerprintIndexTest, FindsTheFacesOfCollectionsAndVariableFonts)
{
    FingerprintIndex::Records records;
    for (const char *font : {"collection.ttc", "variable.ttf"}) {
        for (const FontDescriptor &descriptor : fontsOfFile(testFont(font)).fonts) {
            auto record = FontIndexer::extract(descriptor);
            ASSERT_TRUE(record);
            records.push_back(std::make_shared<const FontRecord>(*std::move(record)));
        }
    }
    const auto vectors = computeFingerprints(records, [](std::size_t) {}, {});
    ASSERT_EQ(vectors.size(), records.size());
    for (const FontRecordPointer &record : records)
        EXPECT_TRUE(vectors.contains(record->postScriptName)) << record->postScriptName;
    EXPECT_NE(vectors.at("EssaiVariable-Regular"), vectors.at("EssaiVariable-Gras"));
}

} // namespace
} // namespace kerlune
