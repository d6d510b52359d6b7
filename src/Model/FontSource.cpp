#include "Model/FontSource.h"

#include "Platform/Font.h"
#include "Platform/FontCatalog.h"

#include <utility>

namespace kerlune {

namespace {

constexpr double kPreviewSize = 25; // points

std::unique_ptr<Font> openFont(const FontDescriptor &descriptor, double size)
{
    auto face = FontFace::open(descriptor);
    if (!face)
        return nullptr;
    auto font = Font::create(*std::move(face), size);
    return font ? *std::move(font) : nullptr;
}

} // namespace

FontSource::FontSource(std::string id, std::string family, std::string styleName, std::optional<FontRecord> record,
                       std::optional<FontDescriptor> descriptor)
    : m_id(std::move(id))
    , m_family(std::move(family))
    , m_styleName(std::move(styleName))
    , m_record(std::move(record))
    , m_descriptor(std::move(descriptor))
{}

std::unique_ptr<Font> FontSource::font(double size, const FontCatalog &catalog) const
{
    if (m_descriptor)
        return openFont(*m_descriptor, size);
    if (!m_record)
        return nullptr;
    const auto offered = catalog.findFont(m_record->postScriptName);
    return offered ? openFont(*offered, size) : nullptr;
}

std::unique_ptr<Font> FontSource::previewFont(const FontCatalog &catalog) const
{
    return font(kPreviewSize, catalog);
}

} // namespace kerlune
