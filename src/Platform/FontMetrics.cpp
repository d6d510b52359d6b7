#include "Platform/FontMetrics.h"

#include "Platform/Font.h"
#include "Support/Handle.h"

#include <hb-ot.h>
#include <hb.h>

namespace kerlune {

namespace {

double drawnHeight(const Font &font, char32_t character)
{
    const std::uint32_t glyph = font.glyph(character);
    const auto box = glyph == 0 ? std::nullopt : font.boundingBox(glyph);
    return box ? box->y + box->height : 0;
}

} // namespace

FontMetrics readMetrics(const std::shared_ptr<const FontFace> &face)
{
    if (face->unitsPerEm() == 0)
        return {};
    const Handle<hb_font_t, hb_font_destroy> measured(hb_font_create(face->harfBuzz()));
    const int em = static_cast<int>(face->unitsPerEm()) * 64; // 64ths of a unit: variations keep their fractions
    hb_font_set_scale(measured.get(), em, em);
    if (face->instanceIndex() > 0)
        hb_font_set_var_named_instance(measured.get(), face->instanceIndex() - 1);

    const auto measure = [&](hb_ot_metrics_tag_t metric) {
        hb_position_t position = 0;
        return hb_ot_metrics_get_position(measured.get(), metric, &position) != 0 ? 1.0 * position / em : 0.0;
    };
    FontMetrics metrics;
    metrics.ascent = measure(HB_OT_METRICS_TAG_HORIZONTAL_ASCENDER);
    metrics.descent = -measure(HB_OT_METRICS_TAG_HORIZONTAL_DESCENDER);
    metrics.xHeight = measure(HB_OT_METRICS_TAG_X_HEIGHT);
    metrics.capHeight = measure(HB_OT_METRICS_TAG_CAP_HEIGHT);
    if (metrics.xHeight != 0 && metrics.capHeight != 0)
        return metrics;

    // OpenType OS/2, sxHeight and sCapHeight: tools that do not know them write 0, early versions have no such fields.
    if (const auto drawn = Font::create(face, 1.0)) {
        if (metrics.xHeight == 0)
            metrics.xHeight = drawnHeight(**drawn, U'x');
        if (metrics.capHeight == 0)
            metrics.capHeight = drawnHeight(**drawn, U'H');
    }
    return metrics;
}

} // namespace kerlune
