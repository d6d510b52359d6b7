#include "Platform/FontFace.h"

#include "Support/CpuStopwatch.h"
#include "Support/Handle.h"

#include <hb-ot.h>
#include <hb.h>

#include <algorithm>
#include <array>
#include <utility>

namespace kerlune {

namespace {

constexpr std::size_t kMostNameBytes = 1U << 20;         // no offset of a 'name' table reaches further
constexpr std::size_t kMostInstanceNameBytes = 4U << 20; // 65,535 instances may share one name of 64 KiB

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

std::string asciiLettersAndDigits(const std::string &text)
{
    std::string kept;
    std::copy_if(text.begin(), text.end(), std::back_inserter(kept),
                 [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); });
    return kept;
}

} // namespace

struct FontFace::Source {
    Source(std::shared_ptr<const FontFile> openFile, std::uint32_t index, FaceTables faceTables)
        : file(std::move(openFile))
        , faceIndex(index)
        , tables(std::move(faceTables))
        , names(tables.read(tag("name"), kMostNameBytes))
        , harfBuzz(hb_face_create_for_tables(referenceTable, &tables, nullptr))
    {
        // OpenType 'head': unitsPerEm at 18, macStyle at 44.
        const auto head = tables.read(tag("head"), 54);
        unitsPerEm = readU16(head, 18).value_or(0);
        macStyle = readU16(head, 44).value_or(0);
        if (tables.has(tag("fvar")))
            readAxes();
    }

    void readAxes()
    {
        unsigned count = hb_ot_var_get_axis_count(harfBuzz.get());
        std::vector<hb_ot_var_axis_info_t> axes(count);
        hb_ot_var_get_axis_infos(harfBuzz.get(), 0, &count, axes.data());
        for (const hb_ot_var_axis_info_t &axis : axes)
            defaults.push_back({axis.tag, axis.default_value});
    }

    std::shared_ptr<const FontFile> file;
    std::uint32_t faceIndex;
    FaceTables tables;
    NameTable names;
    std::uint32_t unitsPerEm = 0;
    std::uint16_t macStyle = 0;
    std::vector<AxisValue> defaults;             // one for each axis
    Handle<hb_face_t, hb_face_destroy> harfBuzz; // reads through the tables
};

FontFace::FontFace(std::shared_ptr<const Source> source, std::uint32_t instanceIndex,
                   std::vector<AxisValue> coordinates)
    : m_source(std::move(source))
    , m_instanceIndex(instanceIndex)
    , m_coordinates(std::move(coordinates))
{}

tl::expected<std::shared_ptr<const FontFace>, FontError>
FontFace::open(const std::shared_ptr<const FontFile> &file, std::uint32_t faceIndex, std::uint32_t instanceIndex)
{
    auto tables = FaceTables::open(file, faceIndex);
    if (!tables)
        return tl::unexpected(tables.error());
    const std::shared_ptr<const FontFace> face(
        new FontFace(std::make_shared<const Source>(file, faceIndex, std::move(*tables)), 0, {}));
    if (instanceIndex == 0)
        return face;
    return face->instance(instanceIndex);
}

tl::expected<std::shared_ptr<const FontFace>, FontError> FontFace::open(const FontDescriptor &descriptor)
{
    const auto file = FontFile::open(descriptor.path);
    if (!file)
        return tl::unexpected(file.error());
    return open(*file, descriptor.faceIndex, descriptor.instanceIndex);
}

tl::expected<std::shared_ptr<const FontFace>, FontError> FontFace::instance(std::uint32_t instanceIndex) const
{
    if (instanceIndex > 0 && (!isVariable() || instanceIndex > hb_ot_var_get_named_instance_count(harfBuzz())))
        return tl::unexpected(FontError::NoSuchFace);
    auto coordinates = instanceIndex == 0 ? std::vector<AxisValue>() : instanceCoordinates(instanceIndex);
    return std::shared_ptr<const FontFace>(new FontFace(m_source, instanceIndex, std::move(coordinates)));
}

const std::shared_ptr<const FontFile> &FontFace::file() const
{
    return m_source->file;
}

std::uint32_t FontFace::faceIndex() const
{
    return m_source->faceIndex;
}

const FaceTables &FontFace::tables() const
{
    return m_source->tables;
}

std::uint32_t FontFace::unitsPerEm() const
{
    return m_source->unitsPerEm;
}

std::uint16_t FontFace::macStyle() const
{
    return m_source->macStyle;
}

bool FontFace::isVariable() const
{
    return !m_source->defaults.empty();
}

hb_face_t *FontFace::harfBuzz() const
{
    return m_source->harfBuzz.get();
}

std::optional<std::string> FontFace::name(NameId id) const
{
    return m_source->names.find(id);
}

std::optional<std::string> FontFace::postScriptName() const
{
    if (m_instanceIndex == 0)
        return name(NameId::PostScriptName);
    return instancePostScriptName(m_instanceIndex);
}

std::optional<std::string> FontFace::familyName() const
{
    auto family = name(NameId::TypographicFamily);
    return family ? family : name(NameId::Family);
}

std::optional<std::string> FontFace::styleName() const
{
    if (m_instanceIndex != 0)
        return instanceStyleName(m_instanceIndex);
    auto style = name(NameId::TypographicSubfamily);
    return style ? style : name(NameId::Subfamily);
}

tl::expected<void, FontError> FontFace::checkUsable() const
{
    const auto ownName = postScriptName();
    if (!ownName)
        return tl::unexpected(FontError::NoPostScriptName);
    if (ownName->front() == '.')
        return tl::unexpected(FontError::HiddenName);
    if (unitsPerEm() == 0)
        return tl::unexpected(FontError::NoUnitsPerEm);
    return {};
}

std::uint32_t FontFace::glyphCount() const
{
    return readU16(tables().read(tag("maxp"), 6), 4).value_or(0);
}

std::vector<NamedInstance> FontFace::otherInstances(std::chrono::nanoseconds mostTime) const
{
    const CpuStopwatch stopwatch;
    std::vector<NamedInstance> instances;
    std::size_t nameBytes = 0;
    const std::uint32_t count = isVariable() ? hb_ot_var_get_named_instance_count(harfBuzz()) : 0;
    for (std::uint32_t index = 1; index <= count; ++index) {
        if (stopwatch.elapsed() > mostTime || nameBytes > kMostInstanceNameBytes)
            break;
        if (instanceCoordinates(index) == m_source->defaults)
            continue;
        instances.push_back({index, instancePostScriptName(index), instanceStyleName(index).value_or("")});
        nameBytes += instances.back().postScriptName.size() + instances.back().styleName.size();
    }
    return instances;
}

std::vector<AxisValue> FontFace::instanceCoordinates(std::uint32_t instanceIndex) const
{
    std::vector<AxisValue> coordinates = m_source->defaults;
    std::vector<float> values(coordinates.size());
    auto count = static_cast<unsigned>(values.size());
    hb_ot_var_named_instance_get_design_coords(harfBuzz(), instanceIndex - 1, &count, values.data());
    for (std::size_t i = 0; i < count && i < coordinates.size(); ++i)
        coordinates[i].value = values[i];
    return coordinates;
}

// OpenType 'fvar', InstanceRecord: the record's own name, else the prefix that the family gives and the style.
std::string FontFace::instancePostScriptName(std::uint32_t instanceIndex) const
{
    const auto id = hb_ot_var_named_instance_get_postscript_name_id(harfBuzz(), instanceIndex - 1);
    if (id != HB_OT_NAME_ID_INVALID) {
        if (auto own = name(static_cast<NameId>(id)))
            return *own;
    }
    auto prefix = name(NameId::VariationsPostScriptNamePrefix);
    if (!prefix)
        prefix = asciiLettersAndDigits(familyName().value_or(""));
    if (prefix->empty()) {
        const std::string defaultName = name(NameId::PostScriptName).value_or("");
        prefix = defaultName.substr(0, defaultName.find('-'));
    }
    std::string style = instanceStyleName(instanceIndex).value_or("");
    std::erase(style, ' ');
    return *prefix + "-" + style;
}

std::optional<std::string> FontFace::instanceStyleName(std::uint32_t instanceIndex) const
{
    const auto id = hb_ot_var_named_instance_get_subfamily_name_id(harfBuzz(), instanceIndex - 1);
    return id == HB_OT_NAME_ID_INVALID ? std::nullopt : name(static_cast<NameId>(id));
}

} // namespace kerlune
