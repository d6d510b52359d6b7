#pragma once

#include "UI/Preview/PreviewRequest.h"

#include <memory>
#include <vector>

namespace kerlune {

// Draws previews. It keeps the few faces last used open, so that several sizes of one are cheap.
//
// Thread: one at a time; blocks while it reads the file.
// Errors: never throws; what cannot be drawn is told in Preview::failure.
class PreviewRenderer final {
public:
    PreviewRenderer();
    ~PreviewRenderer();
    PreviewRenderer(const PreviewRenderer &) = delete;
    PreviewRenderer &operator=(const PreviewRenderer &) = delete;

    Preview draw(const PreviewRequest &request) noexcept;

private:
    struct OpenFace;

    Preview drawn(const PreviewRequest &request);
    OpenFace *open(const FontRecord &record); // null when it cannot be opened

    std::vector<std::unique_ptr<OpenFace>> m_faces; // the one last used first
};

} // namespace kerlune
