#include "UI/Preview/PreviewCache.h"

namespace kerlune {

namespace {

// What an entry takes beside its image; a failure is no more than that.
std::size_t bytesOf(const PreviewRequest &request, const Preview &preview)
{
    return sizeof(Preview) + 2 * (sizeof(PreviewRequest) + request.text.size()) +
           sizeof(QChar) * static_cast<std::size_t>(preview.text.size()) +
           static_cast<std::size_t>(preview.image.sizeInBytes());
}

} // namespace

PreviewCache::PreviewCache(std::size_t byteLimit)
    : m_byteLimit(byteLimit)
{}

PreviewPointer PreviewCache::find(const PreviewRequest &request)
{
    const auto place = m_places.find(request);
    if (place == m_places.end())
        return nullptr;
    m_entries.splice(m_entries.begin(), m_entries, place->second);
    return place->second->preview;
}

void PreviewCache::insert(const PreviewRequest &request, PreviewPointer preview)
{
    const std::size_t byteCount = bytesOf(request, *preview);
    if (const auto place = m_places.find(request); place != m_places.end()) {
        m_entries.splice(m_entries.end(), m_entries, place->second);
        removeLast();
    }
    m_entries.push_front({request, std::move(preview), byteCount});
    m_places.emplace(request, m_entries.begin());
    m_byteCount += byteCount;
    while (m_byteCount > m_byteLimit && m_entries.size() > 1)
        removeLast();
}

void PreviewCache::clear()
{
    m_places.clear();
    m_entries.clear();
    m_byteCount = 0;
}

void PreviewCache::removeLast()
{
    m_byteCount -= m_entries.back().byteCount;
    m_places.erase(m_entries.back().request);
    m_entries.pop_back();
}

} // namespace kerlune
