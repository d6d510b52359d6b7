#include "Store/FontIndexStore.h"

#include "FullDiskVfs.h"
#include "TempFolder.h"
#include "Testing.h"

#include <sqlite3.h>

#include <algorithm>
#include <atomic>
#include <functional>
#include <thread>

namespace kerlune {
namespace {

FontRecord sampleRecord(const std::string &name)
{
    FontRecord record;
    record.postScriptName = name;
    record.family = "Famille « É »";
    record.style = "Gras";
    record.filePath = "/fonts/it's.otf";
    record.mtime = 1700000000.123456;
    record.fileSize = 5'000'000'000;
    record.weight = 0.6;
    record.width = -0.25;
    record.slant = 0.4;
    record.symbolicTraits = 0xF0002003;
    record.isVariable = true;
    record.isMonospace = false;
    record.isColor = true;
    record.isItalic = false;
    record.xHeightRatio = 0.5;
    record.capHeightRatio = 0.7;
    record.glyphCount = 65535;
    record.classification = FontClass::slab;
    record.scriptMask = 0x8000000000000001;
    record.version = "Version 1";
    record.foundry = "Fonderie";
    record.designer = "Élodie";
    record.licenseURL = "https://example.org";
    record.copyrightNotice = "©";
    record.fsType = 0xFFFF;
    return record;
}

std::vector<FontRecordPointer> shared(std::initializer_list<FontRecord> records)
{
    std::vector<FontRecordPointer> pointers;
    for (const FontRecord &record : records)
        pointers.push_back(std::make_shared<const FontRecord>(record));
    return pointers;
}

class FontIndexStoreTest : public testing::Test {
protected:
    std::unique_ptr<FontIndexStore> open()
    {
        auto store = FontIndexStore::open(path(), [this] { return m_now += 1; });
        EXPECT_TRUE(store) << store.error().message;
        return store ? *std::move(store) : nullptr;
    }

    // Runs SQL on a connection of its own and returns the rows, columns joined by "|".
    std::vector<std::string> sql(const std::string &statements)
    {
        sqlite3 *connection = nullptr;
        std::vector<std::string> rows;
        EXPECT_EQ(sqlite3_open(path().c_str(), &connection), SQLITE_OK);
        const auto collect = [](void *out, int count, char **values, char **) {
            std::string row;
            for (int i = 0; i < count; ++i)
                row += (i > 0 ? "|" : "") + std::string(values[i] == nullptr ? "NULL" : values[i]);
            static_cast<std::vector<std::string> *>(out)->push_back(row);
            return 0;
        };
        char *message = nullptr;
        sqlite3_exec(connection, statements.c_str(), collect, &rows, &message);
        EXPECT_EQ(message, nullptr) << message;
        sqlite3_close(connection);
        return rows;
    }

    fs::path path() const { return m_folder / "index.sqlite"; }

    TempFolder m_folder;
    std::atomic<double> m_now = 1'000'000;
};

TEST_F(FontIndexStoreTest, KeepsEveryFieldOfARecord)
{
    FontRecord bare;
    bare.postScriptName = "Bare";
    bare.family = "Bare";
    FontRecord empty = bare;
    empty.postScriptName = "Empty";
    empty.version = "";
    open()->replaceAll(shared({sampleRecord("A"), bare, empty}));

    const auto loaded = open()->loadAll();
    ASSERT_EQ(loaded.size(), 3U);
    EXPECT_EQ(*loaded[0], sampleRecord("A"));
    EXPECT_EQ(*loaded[1], bare);
    EXPECT_EQ(loaded[2]->version, std::nullopt); // empty and absent are stored alike
}

TEST_F(FontIndexStoreTest, LoadsManyRecordsInTheirOrderOrNone)
{
    std::vector<FontRecordPointer> many;
    for (int i = 0; i < 1000; ++i) {
        FontRecord record = sampleRecord(std::to_string(i * 7919 % 1000));
        record.designer = std::string(static_cast<std::size_t>(i), 'd');
        many.push_back(std::make_shared<const FontRecord>(record));
    }
    many[0] = std::make_shared<const FontRecord>(sampleRecord("0")); // an empty text is none
    for (const std::size_t count : {1U, 127U, 128U, 129U, 1000U}) {
        open()->replaceAll(std::span(many).first(count));
        const auto loaded = open()->loadAll();
        ASSERT_EQ(loaded.size(), count);
        for (std::size_t i = 0; i < count; ++i)
            ASSERT_EQ(*loaded[i], *many[i]) << i;
    }

    std::string bytes = readFile(path());
    ASSERT_GT(bytes.size(), 500'000U);
    std::fill(bytes.begin() + 200'000, bytes.end(), '\xFF'); // behind the first pages of the tables
    writeFile(path(), bytes);
    EXPECT_THAT(open()->loadAll(), IsEmpty());
}

TEST_F(FontIndexStoreTest, WritesColumnsThatOtherProgramsRead)
{
    open()->replaceAll(shared({sampleRecord("A")}));
    EXPECT_THAT(
        sql("SELECT * FROM fonts"),
        ElementsAre("A|Famille « É »|Gras|/fonts/it's.otf|1700000000.12346|5000000000|0.6|-0.25|0.4|4026540035|1|"
                    "0|1|0|0.5|0.7|65535|2|-9223372036854775807|Version 1|Fonderie|Élodie|https://example.org|©|"
                    "65535"));
    EXPECT_THAT(sql("SELECT key, value FROM meta ORDER BY key"),
                ElementsAre("count|1", "indexed_at|1000001.0", "schema_version|3"));
    EXPECT_THAT(sql("SELECT name FROM sqlite_master WHERE name NOT LIKE 'sqlite_%' ORDER BY name"),
                ElementsAre("collection_items", "collections", "favorites", "fingerprints", "fonts", "idx_fonts_class",
                            "idx_fonts_family", "meta", "recents", "smart_collections", "tags"));
    EXPECT_THAT(sql("PRAGMA journal_mode"), ElementsAre("wal"));
}

TEST_F(FontIndexStoreTest, ReadsRowsThatOtherProgramsWrote)
{
    open();
    sql("INSERT INTO fonts(ps_name, family, classification, script_mask, is_color, glyph_count)"
        " VALUES('A', 'F', 9, -1, 7, 12)");
    const auto loaded = open()->loadAll();
    ASSERT_EQ(loaded.size(), 1U);
    EXPECT_EQ(loaded[0]->style, "");
    EXPECT_EQ(loaded[0]->designer, std::nullopt);
    EXPECT_EQ(loaded[0]->classification, FontClass::unknown);
    EXPECT_EQ(loaded[0]->scriptMask, ~std::uint64_t{0});
    EXPECT_TRUE(loaded[0]->isColor);
    EXPECT_EQ(loaded[0]->glyphCount, 12);
}

TEST_F(FontIndexStoreTest, ReplacesTheIndexAndCountsWhatItWasGiven)
{
    const auto store = open();
    EXPECT_EQ(store->indexedCount(), 0);
    FontRecord second = sampleRecord("A");
    second.style = "Second";
    store->replaceAll(shared({sampleRecord("B"), sampleRecord("C")}));
    store->replaceAll(shared({sampleRecord("A"), second}));
    EXPECT_THAT(sql("SELECT ps_name, style FROM fonts"), ElementsAre("A|Second"));
    EXPECT_THAT(store->indexedFamilies(), ElementsAre("Famille « É »"));
    EXPECT_EQ(store->indexedCount(), 2);
    store->setMeta("count", "12x");
    EXPECT_EQ(store->indexedCount(), 0);
}

TEST_F(FontIndexStoreTest, DropsOnlyTheIndexWhenTheSchemaVersionDiffers)
{
    for (const char *version : {"'2'", "'4'", "'three'", "NULL"}) {
        {
            const auto store = open();
            store->replaceAll(shared({sampleRecord("A")}));
            store->setFavorite("F", true);
        }
        sql(std::string("UPDATE meta SET value=") + version + " WHERE key='schema_version'");
        const auto store = open();
        EXPECT_THAT(store->loadAll(), IsEmpty()) << version;
        EXPECT_EQ(store->meta("schema_version"), "3") << version;
        EXPECT_THAT(store->favorites(), ElementsAre("F")) << version;
    }
    open()->replaceAll(shared({sampleRecord("A")}));
    sql("UPDATE meta SET value='+3' WHERE key='schema_version'");
    EXPECT_EQ(open()->loadAll().size(), 1U);
}

TEST_F(FontIndexStoreTest, KeepsTheOldIndexWhenWritingFails)
{
    const auto store = open();
    store->replaceAll(shared({sampleRecord("A"), sampleRecord("B")}));

    sql("CREATE TRIGGER refuse BEFORE INSERT ON fonts WHEN new.ps_name='bad' BEGIN SELECT RAISE(FAIL,'non'); END");
    const auto refused = store->replaceAll(shared({sampleRecord("C"), sampleRecord("bad")}));
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error().description(), "Écriture impossible : non");
    EXPECT_EQ(store->loadAll().size(), 2U);

    sql("ALTER TABLE fonts ADD COLUMN more TEXT");
    const auto unprepared = store->replaceAll(shared({sampleRecord("C")}));
    ASSERT_FALSE(unprepared);
    EXPECT_THAT(unprepared.error().description(), StartsWith("Requête invalide : table fonts has 26 columns"));
    EXPECT_EQ(store->loadAll().size(), 2U);
    EXPECT_EQ(store->indexedCount(), 2);
    store->setFavorite("still writable", true);
    EXPECT_THAT(sql("SELECT family FROM favorites"), ElementsAre("still writable"));
}

TEST_F(FontIndexStoreTest, KeepsTheOldIndexWhenTheDiskFills)
{
    const FullDiskVfs disk;
    std::vector<FontRecordPointer> many;
    for (int i = 0; i < 2000; ++i)
        many.push_back(std::make_shared<const FontRecord>(sampleRecord("N" + std::to_string(i))));
    const auto writeInto = [&](const std::string &name, std::int64_t room) {
        const auto store = FontIndexStore::open(m_folder / name);
        EXPECT_TRUE((*store)->replaceAll(shared({sampleRecord("A")})));
        disk.setRoom(room);
        auto written = (*store)->replaceAll(many);
        const std::int64_t used = room - disk.room();
        disk.setRoom(FullDiskVfs::kUnlimited);
        EXPECT_EQ((*store)->loadAll().size(), written ? many.size() : 1U) << room;
        EXPECT_EQ((*store)->indexedCount(), written ? 2000 : 1) << room;
        return std::pair(std::move(written), used);
    };

    const auto [complete, needed] = writeInto("complete", 100'000'000);
    ASSERT_TRUE(complete);
    // Room for nothing, for some pages, for half of them, and for all but the last pages: those of the commit.
    for (const std::int64_t room : {std::int64_t{0}, std::int64_t{20'000}, needed / 2, needed - 20'000}) {
        const auto [written, used] = writeInto("full-" + std::to_string(room), room);
        ASSERT_FALSE(written) << room;
        EXPECT_EQ(written.error().description(), "Écriture impossible : database or disk is full");
        EXPECT_EQ(written.error().cause, FontIndexStore::StoreError::Cause::diskFull);
    }
}

TEST_F(FontIndexStoreTest, SaysWhyItCannotBeOpened)
{
    using Cause = FontIndexStore::StoreError::Cause;
    writeFile(m_folder / "not-a-database", std::string(4096, 'x'));
    const auto noDatabase = FontIndexStore::open(m_folder / "not-a-database");
    ASSERT_FALSE(noDatabase);
    EXPECT_EQ(noDatabase.error().description(), "Ouverture de l'index impossible : file is not a database");
    EXPECT_EQ(noDatabase.error().cause, Cause::notADatabase);
    EXPECT_EQ(readFile(m_folder / "not-a-database"), std::string(4096, 'x'));

    const auto nowhere = FontIndexStore::open(m_folder / "not-a-database/index.sqlite");
    ASSERT_FALSE(nowhere);
    EXPECT_EQ(nowhere.error().description(), "Ouverture de l'index impossible : unable to open database file");
    EXPECT_EQ(nowhere.error().cause, Cause::notWritable);
}

TEST_F(FontIndexStoreTest, KeepsFingerprintsAsPackedFloats)
{
    const auto store = open();
    store->saveFingerprints({{"A", {1.0F, -2.5F}}, {"B", {}}});
    store->saveFingerprints({{"C", {0.5F}}});
    EXPECT_THAT(sql("SELECT ps_name, hex(vector), typeof(vector) FROM fingerprints ORDER BY ps_name"),
                ElementsAre("A|0000803F000020C0|blob", "B||blob", "C|0000003F|blob"));
    sql("INSERT INTO fingerprints VALUES('odd', zeroblob(10)), ('null', NULL), (NULL, zeroblob(4))");
    EXPECT_THAT(store->loadFingerprints(), UnorderedElementsAre(Pair("A", ElementsAre(1.0F, -2.5F)),
                                                                Pair("B", IsEmpty()), Pair("C", ElementsAre(0.5F))));
}

TEST_F(FontIndexStoreTest, SavesASmartCollectionAgainInItsPlace)
{
    const auto store = open();
    store->saveSmartCollection({"1", "Un", "{}"});
    store->saveSmartCollection({"2", "Deux", "{}"});
    store->saveSmartCollection({"1", "Uno", R"({"search":"é"})"});
    EXPECT_THAT(store->smartCollections(),
                ElementsAre(FontIndexStore::SmartCollectionRow{"1", "Uno", R"({"search":"é"})"},
                            FontIndexStore::SmartCollectionRow{"2", "Deux", "{}"}));
    store->deleteSmartCollection("1");
    EXPECT_EQ(store->smartCollections().size(), 1U);
}

// Something in every table of the user's.
std::string fillUserData(FontIndexStore &store)
{
    const std::vector<std::string> families{"F", "G"};
    std::string collection = store.createCollection("Une").value_or("");
    const bool isFilled = store.setFavorite("F", true) && store.noteRecent("G") &&
                          store.addToCollection(collection, families) && store.setTag("t", families, true) &&
                          store.saveSmartCollection({"1", "Un", "{}"});
    EXPECT_TRUE(isFilled);
    return collection;
}

TEST_F(FontIndexStoreTest, SaysWhenAChangeOfTheUserWasNotWritten)
{
    const FullDiskVfs disk;
    const auto store = open();
    const std::string collection = fillUserData(*store);
    const std::optional<UserData> before = store->userData();
    const std::vector<std::string> families{"G", "H"};
    UserData more = *before;
    more.tags["H"] = {"t"};
    const std::vector<std::function<bool()>> changes{
        [&] { return store->setFavorite("G", true); },
        [&] { return store->setFavorite("F", false); },
        [&] { return store->noteRecent("F"); },
        [&] { return store->createCollection("Deux").has_value(); },
        [&] { return store->renameCollection(collection, "Deux"); },
        [&] { return store->addToCollection(collection, families); },
        [&] { return store->removeFromCollection(collection, families); },
        [&] { return store->deleteCollection(collection); },
        [&] { return store->setTag("t", families, true); },
        [&] { return store->setTag("t", families, false); },
        [&] { return store->renameTag("t", "u"); },
        [&] { return store->deleteTag("t"); },
        [&] {
            return store->saveSmartCollection({"1", "Deux", "{}"});
        },
        [&] { return store->deleteSmartCollection("1"); },
        [&] { return store->restore(more).has_value(); },
    };
    disk.setRoom(0);
    for (std::size_t i = 0; i < changes.size(); ++i) {
        EXPECT_FALSE(changes[i]()) << i;
        EXPECT_EQ(store->userData(), before) << i;
    }
    disk.setRoom(FullDiskVfs::kUnlimited);
    for (std::size_t i = 0; i < changes.size(); ++i) {
        EXPECT_TRUE(changes[i]()) << i;
        EXPECT_NE(store->userData(), before) << i;
        sql("DELETE FROM favorites; DELETE FROM recents; DELETE FROM collections; DELETE FROM collection_items;"
            "DELETE FROM tags; DELETE FROM smart_collections");
        EXPECT_TRUE(store->restore(*before)) << i;
    }
}

TEST_F(FontIndexStoreTest, WritesManyFamiliesWhollyOrNotAtAll)
{
    const FullDiskVfs disk;
    std::vector<std::string> many;
    for (int i = 0; i < 5000; ++i)
        many.push_back("Family " + std::to_string(i));
    UserData data{.collections = {{.id = "1", .name = "Une", .families = {many.begin(), many.end()}}}};
    for (const std::string &family : many)
        data.tags[family] = {"t"};

    const auto store = open();
    const std::string id = *store->createCollection("Vide");
    const auto before = store->userData();
    for (const std::int64_t room : {20'000, 200'000}) { // some pages, and many
        disk.setRoom(room);
        EXPECT_FALSE(store->addToCollection(id, many));
        EXPECT_FALSE(store->setTag("t", many, true));
        const auto restored = store->restore(data);
        ASSERT_FALSE(restored);
        EXPECT_EQ(restored.error().cause, FontIndexStore::StoreError::Cause::diskFull);
        EXPECT_EQ(restored.error().description(), "Écriture impossible : database or disk is full");
        disk.setRoom(FullDiskVfs::kUnlimited);
        EXPECT_EQ(store->userData(), before);
    }

    // A step that fails for another reason leaves the transaction open.
    for (const char *table : {"tags", "collection_items"})
        sql(std::string("CREATE TRIGGER refuse_") + table + " BEFORE INSERT ON " + table +
            " WHEN new.family='Family 4999' BEGIN SELECT RAISE(FAIL,'non'); END");
    EXPECT_FALSE(store->setTag("t", many, true));
    EXPECT_FALSE(store->addToCollection(id, many));
    const auto refused = store->restore(data);
    ASSERT_FALSE(refused);
    EXPECT_EQ(refused.error().description(), "Écriture impossible : non");
    EXPECT_TRUE(store->setTag("t", std::vector<std::string>{"A"}, true));
    EXPECT_THAT(sql("SELECT family FROM tags UNION ALL SELECT family FROM collection_items"), ElementsAre("A"));
}

TEST_F(FontIndexStoreTest, BringsBackWhatTheUserMade)
{
    const auto store = open();
    const std::string id = fillUserData(*store);
    const auto saved = store->userData();
    ASSERT_TRUE(saved);
    EXPECT_EQ(*saved, (UserData{.favorites = {{"F", 1'000'002}},
                                .collections = {{id, "Une", 1'000'001, 0, {"F", "G"}}},
                                .tags = {{"F", {"t"}}, {"G", {"t"}}},
                                .smartCollections = {{"1", "Un", "{}", 1'000'004}},
                                .recents = {{"G", 1'000'003}}}));

    const auto other = *FontIndexStore::open(m_folder / "other.sqlite");
    for (int time = 0; time < 2; ++time) {
        EXPECT_TRUE(other->restore(*saved));
        EXPECT_EQ(other->userData(), saved);
    }
}

TEST_F(FontIndexStoreTest, AddsABackupToWhatIsThere)
{
    const auto store = open();
    EXPECT_TRUE(store->restore({.favorites = {{"A", 10}},
                                .collections = {{"1", "Une", 10, 0, {"A"}}, {"2", "Deux", 20}},
                                .tags = {{"A", {"a"}}},
                                .smartCollections = {{"s", "S", "{}", 10}},
                                .recents = {{"A", 10}, {"B", 10}}}));
    sql("INSERT INTO recents VALUES('C', NULL)");
    const UserData backup{.favorites = {{"A", 5}, {"B", 5}},
                          .collections = {{"1", "Uno", 5, 0, {"B"}}, {"0", "Zéro", 5, 0, {"A"}}},
                          .tags = {{"A", {"b"}}, {"B", {"a"}}},
                          .smartCollections = {{"s", "T", "[]", 5}, {"r", "R", "{}", 5}},
                          .recents = {{"A", 5}, {"B", 15}, {"C", 5}}};
    const UserData united{
        .favorites = {{"A", 10}, {"B", 5}},
        .collections = {{"0", "Zéro", 5, 0, {"A"}}, {"1", "Uno", 10, 0, {"A", "B"}}, {"2", "Deux", 20}},
        .tags = {{"A", {"a", "b"}}, {"B", {"a"}}},
        .smartCollections = {{"r", "R", "{}", 5}, {"s", "T", "[]", 10}},
        .recents = {{"A", 10}, {"B", 15}, {"C", 5}}};
    for (int time = 0; time < 2; ++time) {
        EXPECT_TRUE(store->restore(backup));
        EXPECT_EQ(store->userData(), united);
    }
}

TEST_F(FontIndexStoreTest, ReadsTheUsersDataWhollyOrNotAtAll)
{
    const auto store = open();
    sql("INSERT INTO favorites VALUES(NULL, 1), ('A', 9e999), ('B', NULL);"
        "INSERT INTO collections VALUES('1', 'Une', 'x', 7);"
        "INSERT INTO collection_items VALUES('1', 'A'), ('gone', 'A');"
        "INSERT INTO smart_collections VALUES(NULL, 'Un', '{}', 1)");
    EXPECT_EQ(store->userData(),
              (UserData{.favorites = {{"A", 0}, {"B", 0}}, .collections = {{"1", "Une", 0, 7, {"A"}}}}));
    for (const char *table : {"favorites", "recents", "collections", "collection_items", "tags", "smart_collections"}) {
        sql(std::string("ALTER TABLE ") + table + " RENAME TO away");
        EXPECT_EQ(store->userData(), std::nullopt) << table;
        sql(std::string("ALTER TABLE away RENAME TO ") + table);
    }
    EXPECT_TRUE(store->userData());
}

TEST_F(FontIndexStoreTest, ServesSeveralThreadsAndConnections)
{
    const auto store = open();
    const auto other = open();
    const auto write = [](FontIndexStore &target, const std::string &prefix) {
        for (int i = 0; i < 50; ++i) {
            target.setFavorite(prefix + std::to_string(i), true);
            target.replaceAll(shared({sampleRecord(prefix)}));
            EXPECT_EQ(target.loadAll().size(), 1U);
        }
    };
    std::thread first([&] { write(*store, "a"); });
    std::thread second([&] { write(*store, "b"); });
    write(*other, "c");
    first.join();
    second.join();
    EXPECT_EQ(store->favorites().size(), 150U);
}

} // namespace
} // namespace kerlune
