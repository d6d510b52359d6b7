#include "UI/Preview/PreviewRequest.h"

#include "Support/Hash.h"

namespace kerlune {

namespace {

bool isSameFace(const FontRecordPointer &a, const FontRecordPointer &b)
{
    if (a == b || a == nullptr || b == nullptr)
        return a == b;
    return a->postScriptName == b->postScriptName && a->mtime == b->mtime && a->filePath == b->filePath;
}

} // namespace

bool PreviewRequest::operator==(const PreviewRequest &other) const
{
    return isSameFace(face, other.face) && text == other.text && emPixels == other.emPixels && size == other.size &&
           color == other.color && lines == other.lines && sample == other.sample && features == other.features &&
           coordinates == other.coordinates;
}

std::size_t qHash(const PreviewRequest &request, std::size_t seed) noexcept
{
    Hasher hasher;
    hasher.feed(seed, request.text, request.emPixels, request.size.width(), request.size.height(), request.color.rgba(),
                request.lines, request.sample);
    if (request.face != nullptr)
        hasher.feed(request.face->postScriptName, request.face->mtime);
    for (const FeatureValue &feature : request.features)
        hasher.feed(feature.feature, feature.value);
    for (const AxisValue &coordinate : request.coordinates)
        hasher.feed(coordinate.axis, coordinate.value);
    return hasher.value();
}

} // namespace kerlune
