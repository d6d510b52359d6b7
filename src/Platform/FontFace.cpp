#include "Platform/FontFace.h"

#include <hb-ot.h>
#include <hb.h>

#include <algorithm>
#include <array>
#include <utility>

namespace kerlune {

namespace {

constexpr std::size_t kMostNameBytes = 1U << 20; // no offset of a 'name' table reaches further

// Hands a table to HarfBuzz, which keeps it as long as its face.
hb_blob_t *referenceTable(hb_face_t *, hb_tag_t tableTag, void *tables)
{
    auto bytes = static_cast<const FaceTables *>(tables)->read(tableTag);
    if (bytes.empty())
        return hb_blob_get_empty();
    auto *owned = new std::vector<std::uint8_t>(std::move(bytes)); // NOLINT(cppcoreguidelines-owning-memory)
    return hb_blob_create(reinterpret_cast<const char *>(owned->data()), static_cast<unsigned>(owned->size()),
                          HB_MEMORY_MODE_READONLY, owned,
                          [](void *vector) { delete static_cast<std::vector<std::uint8_t> *>(vector); });
}

std::vector<hb_ot_var_axis_info_t> readAxes(hb_face_t *face)
{
    unsigned count = hb_ot_var_get_axis_count(face);
    std::vector<hb_ot_var_axis_info_t> axes(count);
    hb_ot_var_get_axis_infos(face, 0, &count, axes.data());
    axes.resize(count);
    return axes;
}

std::string asciiLettersAndDigits(const std::string &text)
{
    std::string kept;
    std::copy_if(text.begin(), text.end(), std::back_inserter(kept),
                 [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); });
    return kept;
}

} // namespace

FontFace::FontFace(std::shared_ptr<const FontFile> file, std::uint32_t faceIndex, FaceTables tables)
    : m_file(std::move(file))
    , m_faceIndex(faceIndex)
    , m_tables(std::move(tables))
    , m_names(m_tables.read(tag("name"), kMostNameBytes))
    , m_harfBuzz(hb_face_create_for_tables(referenceTable, &m_tables, nullptr))
{
    // OpenType 'head': unitsPerEm at 18, macStyle at 44.
    const auto head = m_tables.read(tag("head"), 54);
    m_unitsPerEm = readU16(head, 18).value_or(0);
    m_macStyle = readU16(head, 44).value_or(0);
    if (m_tables.has(tag("fvar")))
        m_axisCount = hb_ot_var_get_axis_count(m_harfBuzz.get());
}

tl::expected<std::shared_ptr<const FontFace>, FontError>
FontFace::open(const std::shared_ptr<const FontFile> &file, std::uint32_t faceIndex, std::uint32_t instanceIndex)
{
    auto tables = FaceTables::open(file, faceIndex);
    if (!tables)
        return tl::unexpected(tables.error());
    const std::shared_ptr<FontFace> face(new FontFace(file, faceIndex, std::move(*tables)));
    if (const auto selected = face->selectInstance(instanceIndex); !selected)
        return tl::unexpected(selected.error());
    return face;
}

tl::expected<std::shared_ptr<const FontFace>, FontError> FontFace::open(const FontDescriptor &descriptor)
{
    const auto file = FontFile::open(descriptor.path);
    if (!file)
        return tl::unexpected(file.error());
    return open(*file, descriptor.faceIndex, descriptor.instanceIndex);
}

tl::expected<void, FontError> FontFace::selectInstance(std::uint32_t instanceIndex)
{
    if (instanceIndex == 0)
        return {};
    if (m_axisCount == 0 || instanceIndex > hb_ot_var_get_named_instance_count(m_harfBuzz.get()))
        return tl::unexpected(FontError::NoSuchFace);
    m_instanceIndex = instanceIndex;
    m_coordinates = instanceCoordinates(instanceIndex);
    return {};
}

std::optional<std::string> FontFace::postScriptName() const
{
    if (m_instanceIndex == 0)
        return m_names.find(NameId::PostScriptName);
    return instancePostScriptName(m_instanceIndex);
}

std::optional<std::string> FontFace::familyName() const
{
    auto family = m_names.find(NameId::TypographicFamily);
    return family ? family : m_names.find(NameId::Family);
}

std::optional<std::string> FontFace::styleName() const
{
    if (m_instanceIndex != 0)
        return instanceStyleName(m_instanceIndex);
    auto style = m_names.find(NameId::TypographicSubfamily);
    return style ? style : m_names.find(NameId::Subfamily);
}

tl::expected<void, FontError> FontFace::checkUsable() const
{
    const auto name = postScriptName();
    if (!name)
        return tl::unexpected(FontError::NoPostScriptName);
    if (name->front() == '.')
        return tl::unexpected(FontError::HiddenName);
    if (m_unitsPerEm == 0)
        return tl::unexpected(FontError::NoUnitsPerEm);
    return {};
}

std::uint32_t FontFace::glyphCount() const
{
    return readU16(m_tables.read(tag("maxp"), 6), 4).value_or(0);
}

std::vector<NamedInstance> FontFace::otherInstances() const
{
    if (m_axisCount == 0)
        return {};
    std::vector<AxisValue> defaults;
    for (const hb_ot_var_axis_info_t &axis : readAxes(m_harfBuzz.get()))
        defaults.push_back({axis.tag, axis.default_value});

    std::vector<NamedInstance> instances;
    const std::uint32_t count = std::min(hb_ot_var_get_named_instance_count(m_harfBuzz.get()), kMostInstances);
    for (std::uint32_t index = 1; index <= count; ++index) {
        if (instanceCoordinates(index) != defaults)
            instances.push_back({index, instancePostScriptName(index), instanceStyleName(index).value_or("")});
    }
    return instances;
}

std::vector<AxisValue> FontFace::instanceCoordinates(std::uint32_t instanceIndex) const
{
    std::vector<float> values(m_axisCount);
    unsigned count = m_axisCount;
    hb_ot_var_named_instance_get_design_coords(m_harfBuzz.get(), instanceIndex - 1, &count, values.data());
    std::vector<AxisValue> coordinates;
    for (const hb_ot_var_axis_info_t &axis : readAxes(m_harfBuzz.get())) {
        if (coordinates.size() < count)
            coordinates.push_back({axis.tag, values[coordinates.size()]});
    }
    return coordinates;
}

// OpenType 'fvar', InstanceRecord: the record's own name, else the prefix that the family gives and the style.
std::string FontFace::instancePostScriptName(std::uint32_t instanceIndex) const
{
    const auto id = hb_ot_var_named_instance_get_postscript_name_id(m_harfBuzz.get(), instanceIndex - 1);
    if (id != HB_OT_NAME_ID_INVALID) {
        if (auto own = m_names.find(static_cast<NameId>(id)))
            return *own;
    }
    auto prefix = m_names.find(NameId::VariationsPostScriptNamePrefix);
    if (!prefix)
        prefix = asciiLettersAndDigits(familyName().value_or(""));
    if (prefix->empty()) {
        const std::string defaultName = m_names.find(NameId::PostScriptName).value_or("");
        prefix = defaultName.substr(0, defaultName.find('-'));
    }
    std::string style = instanceStyleName(instanceIndex).value_or("");
    std::erase(style, ' ');
    return *prefix + "-" + style;
}

std::optional<std::string> FontFace::instanceStyleName(std::uint32_t instanceIndex) const
{
    const auto id = hb_ot_var_named_instance_get_subfamily_name_id(m_harfBuzz.get(), instanceIndex - 1);
    return id == HB_OT_NAME_ID_INVALID ? std::nullopt : m_names.find(static_cast<NameId>(id));
}

} // namespace kerlune
