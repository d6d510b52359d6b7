#include "UI/Preview/PreviewRenderer.h"

#include "Platform/FaceOpening.h"
#include "Platform/LineDrawing.h"
#include "UI/Preview/PreviewLayout.h"
#include "UI/Preview/PreviewSample.h"

#include <algorithm>
#include <cstring>
#include <exception>

namespace kerlune {

namespace {

constexpr std::size_t kMostFaces = 4;

Preview failed(Preview::Failure failure)
{
    return {.failure = failure};
}

// Whether most of what the text shows is missing from the face.
bool isMostlyMissing(const ShapedLine &line, std::string_view text)
{
    const auto isSpace = [&](std::uint32_t cluster) { return cluster < text.size() && text[cluster] == ' '; };
    std::vector<std::uint32_t> clusters;
    for (const ShapedGlyph &glyph : line.glyphs) {
        if (!isSpace(glyph.cluster))
            clusters.push_back(glyph.cluster);
    }
    std::sort(clusters.begin(), clusters.end());
    clusters.erase(std::unique(clusters.begin(), clusters.end()), clusters.end());
    const auto missing = std::count_if(line.missingClusters.begin(), line.missingClusters.end(),
                                       [&](std::uint32_t cluster) { return !isSpace(cluster); });
    return 2 * static_cast<std::size_t>(missing) > clusters.size();
}

Color colorOf(const QColor &color)
{
    const QRgb rgb = color.rgba();
    return {static_cast<std::uint8_t>(qRed(rgb)), static_cast<std::uint8_t>(qGreen(rgb)),
            static_cast<std::uint8_t>(qBlue(rgb)), static_cast<std::uint8_t>(qAlpha(rgb))};
}

QImage asImage(const ColorImage &drawn)
{
    QImage image(static_cast<int>(drawn.width()), static_cast<int>(drawn.height()),
                 QImage::Format_ARGB32_Premultiplied);
    for (std::uint32_t y = 0; !image.isNull() && y < drawn.height(); ++y)
        std::memcpy(image.scanLine(static_cast<int>(y)), drawn.row(y).data(), drawn.row(y).size_bytes());
    return image;
}

} // namespace

struct PreviewRenderer::OpenFace {
    OpenFace(const FontRecord &record, const std::shared_ptr<const FontFace> &openedFace,
             std::unique_ptr<LineDrawing> openedDrawing)
        : path(record.filePath)
        , postScriptName(record.postScriptName)
        , mtime(record.mtime)
        , characters(openedFace->characterMap())
        , drawing(std::move(openedDrawing))
        , layoutFace{openedFace, *drawing, readMetrics(openedFace),
                     characters.contains(U'x') || characters.contains(U'H')}
    {}

    bool isOf(const FontRecord &record) const
    {
        return postScriptName == record.postScriptName && mtime == record.mtime && path == record.filePath;
    }

    std::string path;
    std::string postScriptName;
    double mtime;
    CharacterMap characters;
    std::unique_ptr<LineDrawing> drawing;
    PreviewLayout::Face layoutFace;
};

PreviewRenderer::PreviewRenderer() = default;
PreviewRenderer::~PreviewRenderer() = default;

Preview PreviewRenderer::draw(const PreviewRequest &request) noexcept
{
    try {
        return drawn(request);
    } catch (const std::exception &) { // no memory for it
        m_faces.clear();
        return failed(Preview::Failure::TooCostly);
    }
}

Preview PreviewRenderer::drawn(const PreviewRequest &request)
{
    OpenFace *const face = request.face == nullptr ? nullptr : open(*request.face);
    if (face == nullptr)
        return failed(Preview::Failure::Unreadable);
    if (request.size.isEmpty() || request.text.empty())
        return failed(Preview::Failure::NoInk);
    auto image = ColorImage::create(static_cast<std::uint32_t>(request.size.width()),
                                    static_cast<std::uint32_t>(request.size.height()));
    if (!image)
        return failed(Preview::Failure::TooCostly);

    const ShapingOptions options{
        .size = request.emPixels, .features = request.features, .coordinates = request.coordinates};
    PreviewLayout layout(face->layoutFace, options, request.size); // its time runs from here on
    std::string text = request.text;
    ShapedLine line = shape(face->layoutFace.face, text, options);
    Preview preview{.missingCharacters = static_cast<int>(line.missingClusters.size())};
    if (request.sample == PreviewRequest::Sample::OfCoveredScript && !line.isTooCostly && isMostlyMissing(line, text)) {
        text = PreviewSample::forFace(request.face->scriptMask, face->characters);
        line = shape(face->layoutFace.face, text, options);
        preview.isSubstitute = true;
    }
    if (line.isTooCostly || layout.isTooCostly())
        return failed(Preview::Failure::TooCostly);
    if (preview.isSubstitute && isMostlyMissing(line, text))
        return failed(Preview::Failure::NoInk);
    const auto placed = request.lines == PreviewRequest::Lines::One ? layout.placeLine(std::move(line))
                                                                    : layout.placeParagraphs(text, line);
    if (!placed)
        return failed(layout.isTooCostly() ? Preview::Failure::TooCostly : Preview::Failure::NoInk);
    bool isInked = false;
    for (const PlacedText::Line &part : placed->lines) {
        const auto outcome = face->drawing->draw(part.shaped, part.placement, colorOf(request.color), *image);
        if (outcome == LineDrawing::Outcome::TooCostly || layout.isTooCostly())
            return failed(Preview::Failure::TooCostly);
        isInked = isInked || outcome == LineDrawing::Outcome::Inked;
    }
    if (!isInked)
        return failed(Preview::Failure::NoInk);
    preview.image = asImage(*image);
    preview.emPixels = request.emPixels * placed->scale;
    preview.baseline = placed->baseline;
    preview.text = QString::fromStdString(text);
    return preview;
}

PreviewRenderer::OpenFace *PreviewRenderer::open(const FontRecord &record)
{
    const auto known =
        std::find_if(m_faces.begin(), m_faces.end(), [&](const auto &face) { return face->isOf(record); });
    if (known != m_faces.end()) {
        std::rotate(m_faces.begin(), known, known + 1);
        return m_faces.front().get();
    }
    auto face = openFace(record.filePath, record.postScriptName);
    if (!face)
        return nullptr;
    auto drawing = LineDrawing::create(*face);
    if (!drawing)
        return nullptr;
    if (m_faces.size() == kMostFaces)
        m_faces.pop_back();
    m_faces.insert(m_faces.begin(), std::make_unique<OpenFace>(record, *face, *std::move(drawing)));
    return m_faces.front().get();
}

} // namespace kerlune
