#include "State/RecordRefresh.h"

#include "Model/FontIndexer.h"
#include "Platform/FontCatalog.h"
#include "Platform/FontFile.h"

#include <algorithm>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace kerlune {

namespace {

using Records = std::vector<FontRecordPointer>;

// Says of files whether they are as the records have them; each is asked once.
class FileChecks final {
public:
    bool isUnchanged(const FontRecord &record)
    {
        const auto [known, isNew] = m_files.try_emplace(record.filePath);
        if (isNew)
            known->second = FontFile::status(record.filePath);
        const auto &status = known->second;
        return status && *status == FontFile::Status{record.fileSize, record.mtime};
    }

private:
    std::unordered_map<std::string_view, std::optional<FontFile::Status>> m_files; // views into the records
};

auto address(const FontRecordPointer &record)
{
    return std::tie(record->postScriptName, record->filePath);
}

} // namespace

std::optional<Records> refreshedRecords(const FontCatalog &catalog, const Records &known)
{
    const FontCatalog::Listing listing = catalog.availableFonts(Duplicates::Keep);
    if (systemObstacle(listing.skipped))
        return std::nullopt;

    std::unordered_multimap<std::string_view, FontRecordPointer> byName;
    for (const FontRecordPointer &record : known)
        byName.emplace(record->postScriptName, record);
    FileChecks checks;
    Records records;
    std::vector<FontDescriptor> unread;
    std::vector<std::size_t> places; // of the unread in `records`
    for (const FontDescriptor &font : listing.fonts) {
        const auto [first, last] = byName.equal_range(font.postScriptName);
        const auto same =
            std::find_if(first, last, [&](const auto &entry) { return entry.second->filePath == font.path; });
        if (same != last && checks.isUnchanged(*same->second)) {
            records.push_back(same->second);
            byName.erase(same); // two faces of a file may have one name
            continue;
        }
        places.push_back(records.size());
        unread.push_back(font);
        records.push_back(nullptr);
    }
    const auto read = FontIndexer::extractAll(unread);
    std::vector<FontDescriptor> costly;
    for (std::size_t i = 0; i < read.size(); ++i) {
        records[places[i]] = read[i].value_or(nullptr);
        if (!read[i] && read[i].error() == FontError::TooCostly)
            costly.push_back(unread[i]);
    }
    if (!costly.empty())
        catalog.leaveOut(costly, FontError::TooCostly); // or each refresh would spend its seconds again
    std::erase(records, nullptr);
    return records;
}

bool sameRecords(const Records &a, const Records &b)
{
    if (a.size() != b.size())
        return false;
    const auto ordered = [](Records records) {
        std::sort(records.begin(), records.end(),
                  [](const auto &one, const auto &other) { return address(one) < address(other); });
        return records;
    };
    const Records left = ordered(a);
    const Records right = ordered(b);
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](const auto &one, const auto &other) { return one == other || *one == *other; });
}

Records firstOfEachName(const Records &records)
{
    std::unordered_set<std::string_view> seen;
    Records kept;
    std::copy_if(records.begin(), records.end(), std::back_inserter(kept),
                 [&](const FontRecordPointer &record) { return seen.insert(record->postScriptName).second; });
    return kept;
}

} // namespace kerlune
