#pragma once

#include "UI/Browser/BrowserLayout.h"
#include "UI/Preview/PreviewRequest.h"

#include <QColor>

#include <string>
#include <string_view>
#include <vector>

namespace kerlune {

// The words that a text begins with, as many as about fit into so many pixels; "…" stands for the rest. At least one
// word, at least the text's own characters where nothing is to be cut.
std::string leadingWords(std::string_view text, double emSize, double width);

// The previews that each cell of a layout shows: the same for all families but for the face.
class CellPreviews final {
public:
    CellPreviews() = default;
    CellPreviews(const BrowserLayout &layout, const std::string &text, const QColor &color, qreal devicePixelRatio);

    std::size_t count() const { return m_slots.size(); }
    PreviewRequest request(const FontRecordPointer &face, std::size_t slot) const;

private:
    std::vector<PreviewRequest> m_slots; // without a face
};

} // namespace kerlune
