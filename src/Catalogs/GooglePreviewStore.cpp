#include "Catalogs/GooglePreviewStore.h"

#include <QCoroFuture>
#include <QPointer>

#include <system_error>

// A future is always named before it is awaited; see docs/decisions/0003-futures-are-named.md.

namespace kerlune {

GooglePreviewStore::GooglePreviewStore(GoogleSubsets &subsets, const Directories &directories)
    : m_subsets(subsets)
{
    std::error_code ignored;
    std::filesystem::remove_all(directories.caches / "GooglePreviews", ignored);
}

FontRecordPointer GooglePreviewStore::descriptor(const std::string &family) const
{
    const auto found = m_descriptors.find(family);
    return found == m_descriptors.end() ? nullptr : found->second;
}

void GooglePreviewStore::request(const GoogleFontFamily &family)
{
    if (m_descriptors.contains(family.family) || m_failed.contains(family.family))
        return;
    if (m_pending.insert(family.family).second)
        load(family);
    else
        m_subsets.hurry(family.family);
}

QCoro::Task<> GooglePreviewStore::load(GoogleFontFamily family)
{
    const QPointer<GooglePreviewStore> self(this);
    const auto fetching =
        m_subsets.fetch(family.family, GoogleSubsets::alphabet() + family.shownName(), family.cssStyleSpec());
    const FontRecordPointer font = co_await fetching;
    if (!self)
        co_return;
    m_pending.erase(family.family);
    if (font == nullptr)
        m_failed.insert(family.family);
    else
        m_descriptors.insert_or_assign(family.family, font);
    m_revision = m_revision.value() + 1;
    Q_EMIT settled(family.family);
}

} // namespace kerlune
