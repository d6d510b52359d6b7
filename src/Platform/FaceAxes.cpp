#include "Platform/FaceAxes.h"

#include "Support/CpuStopwatch.h"
#include "Support/Localization.h"

#include <hb-ot.h>
#include <hb.h>

#include <algorithm>
#include <array>

namespace kerlune {

namespace {

constexpr std::chrono::milliseconds kMostTime{500};
constexpr std::size_t kMostNameBytes = 1U << 20;

std::string nameOf(const FontFace &face, hb_ot_name_id_t id)
{
    return id == HB_OT_NAME_ID_INVALID ? std::string() : face.name(static_cast<NameId>(id)).value_or(std::string());
}

std::vector<VariationAxis> readAxisRecords(const FontFace &face)
{
    unsigned count = hb_ot_var_get_axis_count(face.harfBuzz());
    std::vector<hb_ot_var_axis_info_t> infos(count);
    hb_ot_var_get_axis_infos(face.harfBuzz(), 0, &count, infos.data());
    infos.resize(std::min<std::size_t>(infos.size(), count));
    std::vector<VariationAxis> axes;
    axes.reserve(infos.size());
    for (const hb_ot_var_axis_info_t &info : infos)
        axes.push_back({info.tag, nameOf(face, info.name_id), info.min_value, info.default_value, info.max_value,
                        (static_cast<unsigned>(info.flags) & HB_OT_VAR_AXIS_FLAG_HIDDEN) != 0});
    return axes;
}

VariationInstance readInstance(const FontFace &face, unsigned index, const std::vector<VariationAxis> &axes)
{
    std::vector<float> values(axes.size());
    auto count = static_cast<unsigned>(values.size());
    hb_ot_var_named_instance_get_design_coords(face.harfBuzz(), index, &count, values.data());
    VariationInstance instance{nameOf(face, hb_ot_var_named_instance_get_subfamily_name_id(face.harfBuzz(), index)),
                               {}};
    for (std::size_t i = 0; i < axes.size(); ++i) {
        const double value = i < count ? values[i] : axes[i].standard;
        instance.coordinates.push_back({axes[i].tag, std::clamp(value, axes[i].minimum, axes[i].maximum)});
    }
    return instance;
}

} // namespace

const VariationAxis *FaceAxes::find(Tag tag) const
{
    const auto found = std::find_if(axes.begin(), axes.end(), [tag](const auto &axis) { return axis.tag == tag; });
    return found == axes.end() ? nullptr : &*found;
}

FaceAxes readAxes(const FontFace &face)
{
    if (!face.isVariable())
        return {};
    const CpuStopwatch stopwatch;
    FaceAxes space{readAxisRecords(face), {}};
    std::size_t nameBytes = 0;
    const unsigned count = hb_ot_var_get_named_instance_count(face.harfBuzz());
    for (unsigned index = 0; index < count && stopwatch.elapsed() < kMostTime && nameBytes < kMostNameBytes; ++index) {
        space.instances.push_back(readInstance(face, index, space.axes));
        nameBytes += space.instances.back().name.size();
    }
    return space;
}

std::string axisLabel(const VariationAxis &axis)
{
    struct Registered {
        Tag tag;
        const char *label;
    };
    // OpenType, Registered Axis Tags.
    static constexpr std::array<Registered, 5> kRegistered{{{tag("wght"), marked("Graisse")},
                                                            {tag("wdth"), marked("Chasse")},
                                                            {tag("slnt"), marked("Inclinaison")},
                                                            {tag("ital"), marked("Italique")},
                                                            {tag("opsz"), marked("Corps optique")}}};
    const auto *const found = std::find_if(kRegistered.begin(), kRegistered.end(),
                                           [&](const Registered &entry) { return entry.tag == axis.tag; });
    if (found != kRegistered.end())
        return localized(found->label);
    return axis.name.empty() ? tagText(axis.tag) : axis.name;
}

std::string tagText(Tag tag)
{
    std::string text;
    for (const unsigned shift : {24U, 16U, 8U, 0U}) {
        const auto byte = static_cast<unsigned char>(tag >> shift);
        text += byte >= 0x20 && byte < 0x7F ? static_cast<char>(byte) : '?';
    }
    return text;
}

} // namespace kerlune
