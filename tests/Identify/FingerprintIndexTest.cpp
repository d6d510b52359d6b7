#include "Identify/FingerprintIndex.h"

#include "Events.h"
#include "Model/FontIndexer.h"
#include "Model/ScriptCoverage.h"
#include "Platform/FontCatalog.h"
#include "TempFolder.h"
#include "TestFonts.h"

#include <QCoreApplication>
#include <QCoroTask>
#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>

namespace kerlune {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

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
    EXPECT_THAT(similar("Old"), testing::SizeIs(3)); // all with 0

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

TEST_F(FingerprintIndexTest, ComputesWhatIsMissingAndKeepsIt)
{
    const FingerprintIndex::Records records{recordOf("fingerprint-four.ttf"), recordOf("fingerprint-wide.ttf"),
                                            recordOf("fingerprint-three.ttf")}; // the last one has none
    FingerprintIndex index(m_store);
    QCoro::waitFor(index.build(records));
    EXPECT_FALSE(index.isBuilding());
    EXPECT_DOUBLE_EQ(index.progress(), 1);
    EXPECT_EQ(index.vectors().count(), 0U) << "nobody has asked for them";
    QCoro::waitFor(index.load());
    EXPECT_EQ(index.vectors().count(), 2U);
    const auto vector = index.vectors().find(records.front()->postScriptName);
    ASSERT_TRUE(vector);
    EXPECT_THAT(*Fingerprint::compute(openFace(testFont("fingerprint-four.ttf"))), testing::ElementsAreArray(*vector));

    FingerprintIndex again(m_store);
    m_store->saveFingerprints({{records.front()->postScriptName, atDegrees(0)}}); // seen if it were written again
    QCoro::waitFor(again.build({records[0], records[1]}));
    EXPECT_FALSE(again.isBuilding());
    EXPECT_DOUBLE_EQ(again.progress(), 1);
    EXPECT_EQ(m_store->loadFingerprints().at(records.front()->postScriptName), atDegrees(0));

    QCoro::waitFor(again.load());
    QCoro::waitFor(again.build({recordOf("plain.ttf")}));
    EXPECT_EQ(again.vectors().count(), 3U) << "what comes later is there at once";

    FingerprintIndex without(nullptr);
    QCoro::waitFor(without.build(records));
    EXPECT_EQ(without.vectors().count(), 0U);
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
