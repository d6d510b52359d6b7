#include "Identify/GoogleIdentifyIndex.h"

#include "Catalogs/CheckedFont.h"
#include "Catalogs/GoogleFamilyFiles.h"
#include "Support/ParallelFor.h"

#include <QCoroFuture>
#include <QPointer>

#include <algorithm>

// A future is always named before it is awaited; see docs/decisions/0003-futures-are-named.md.

namespace kerlune {

void GoogleIdentifyIndex::loadFromCache(const GoogleFamilies &families)
{
    std::vector<const std::string *> missing;
    for (const GoogleFontFamily &family : families) {
        if (!m_descriptors.contains(family.family))
            missing.push_back(&family.family);
    }
    std::vector<FontRecordPointer> fonts(missing.size());
    parallelForRanges(missing.size(), [&](std::size_t first, std::size_t last) {
        for (std::size_t i = first; i != last; ++i)
            fonts[i] = checkedFont(GoogleSubsets::cacheFile(m_subsets.folder(), *missing[i]));
    });
    for (std::size_t i = 0; i < missing.size(); ++i) {
        if (fonts[i] != nullptr)
            m_descriptors.emplace(*missing[i], std::move(fonts[i]));
    }
    m_readyCount = m_descriptors.size(); // tells its observers of changes only
}

QCoro::Task<> GoogleIdentifyIndex::build(GoogleFamilies families)
{
    if (isBuilding())
        co_return;
    const QPointer<GoogleIdentifyIndex> self(this);
    m_isBuilding = true;
    m_lastError = std::nullopt;
    m_progress = 0;
    const auto total = static_cast<double>(std::max<std::size_t>(families.size(), 1));
    for (std::size_t begin = 0; begin < families.size(); begin += kBatch) {
        const std::size_t end = std::min(begin + kBatch, families.size());
        GoogleFamilies batch(families.begin() + static_cast<std::ptrdiff_t>(begin),
                             families.begin() + static_cast<std::ptrdiff_t>(end));
        co_await buildBatch(std::move(batch));
        if (!self)
            co_return;
        m_progress = static_cast<double>(end) / total;
        m_readyCount = m_descriptors.size();
    }
    m_progress = 1;
    m_readyCount = m_descriptors.size();
    if (m_descriptors.empty())
        m_lastError = nothingDownloadedMessage();
    m_isBuilding = false;
}

QCoro::Task<> GoogleIdentifyIndex::buildBatch(GoogleFamilies batch)
{
    std::vector<QCoro::Task<>> running;
    for (const GoogleFontFamily &family : batch) {
        if (!m_descriptors.contains(family.family)) {
            auto fetching = m_subsets.fetch(family.family, GoogleSubsets::alphabet(), family.cssStyleSpec());
            running.push_back(take(family.family, std::move(fetching)));
        }
    }
    for (QCoro::Task<> &fetching : running)
        co_await fetching;
}

QCoro::Task<> GoogleIdentifyIndex::take(std::string family, QFuture<FontRecordPointer> fetching)
{
    const QPointer<GoogleIdentifyIndex> self(this);
    const FontRecordPointer font = co_await fetching;
    if (self && font != nullptr)
        m_descriptors.emplace(std::move(family), font);
}

} // namespace kerlune
