#include "UI/Browser/CellPreviews.h"

#include <algorithm>
#include <cmath>

namespace kerlune {

namespace {

constexpr double kUsualCharacterWidth = 0.5; // of the em, of a usual text
constexpr double kWideCharacterWidth = 1;    // of one that is written in the em square
constexpr double kLeastListEm = 14;          // a line of the list is set no smaller than this
constexpr double kRoomOfWaterfall = 1.2;     // a line of the waterfall keeps its size in wide faces too
constexpr int kWidthStep = 8;                // so that a window that is resized does not want new previews all the time

bool isContinuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80;
}

// Characters from U+2E80 on are most of them ideographs, syllables or pictures.
double widthOfCharacterAt(std::string_view text, std::size_t position)
{
    const auto first = static_cast<unsigned char>(text[position]);
    const bool isWide = first >= 0xE3 || (first == 0xE2 && position + 1 < text.size() &&
                                          static_cast<unsigned char>(text[position + 1]) >= 0xBA);
    return isWide ? kWideCharacterWidth : kUsualCharacterWidth;
}

} // namespace

std::string leadingWords(std::string_view text, double emSize, double width)
{
    double used = 0;
    std::size_t end = 0; // of the last word that fits
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (isContinuation(text[i]))
            continue;
        if (used > width)
            return end == 0 ? std::string(text.substr(0, i)) + "…" : std::string(text.substr(0, end)) + "…";
        const double character = widthOfCharacterAt(text, i);
        if (i > 0 && (text[i] == ' ' || character == kWideCharacterWidth))
            end = i;
        used += character * emSize;
    }
    return std::string(text);
}

CellPreviews::CellPreviews(const BrowserLayout &layout, const std::string &text, const QColor &color,
                           qreal devicePixelRatio)
{
    using Mode = BrowserLayout::Mode;
    const Mode mode = layout.measures().mode;
    const double emSize = layout.measures().emSize;
    const std::vector<QRect> &places = layout.cell().previews;
    for (std::size_t slot = 0; slot < places.size(); ++slot) {
        const double width = std::max(kWidthStep, places[slot].width() / kWidthStep * kWidthStep);
        const double em = mode == Mode::waterfall ? BrowserLayout::waterfallSizes()[slot] : emSize;
        const double leastEm = mode == Mode::waterfall ? em * kRoomOfWaterfall : std::min(em, kLeastListEm);
        PreviewRequest request;
        request.text = mode == Mode::grid ? text : leadingWords(text, leastEm, width);
        request.emPixels = em * devicePixelRatio;
        request.size = QSize(static_cast<int>(std::lround(width * devicePixelRatio)),
                             static_cast<int>(std::lround(places[slot].height() * devicePixelRatio)));
        request.color = color;
        request.lines = mode == Mode::grid ? PreviewRequest::Lines::Many : PreviewRequest::Lines::One;
        m_slots.push_back(std::move(request));
    }
}

PreviewRequest CellPreviews::request(const FontRecordPointer &face, std::size_t slot) const
{
    PreviewRequest request = m_slots[slot];
    request.face = face;
    return request;
}

} // namespace kerlune
