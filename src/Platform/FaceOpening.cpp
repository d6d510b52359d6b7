#include "Platform/FaceOpening.h"

#include "Support/CpuStopwatch.h"

#include <algorithm>

namespace kerlune {

tl::expected<std::shared_ptr<const FontFace>, FontError> openFace(const std::string &path,
                                                                  const std::string &postScriptName)
{
    const auto file = FontFile::open(path);
    if (!file)
        return tl::unexpected(file.error());
    const auto count = FaceTables::faceCount(*file);
    if (!count)
        return tl::unexpected(count.error());

    const CpuStopwatch stopwatch;
    auto error = FontError::NoSuchFace;
    for (std::uint32_t i = 0; i < *count; ++i) {
        const auto timeLeft = FontFace::kMostTimeForFaces - stopwatch.elapsed();
        if (timeLeft.count() < 0)
            return tl::unexpected(FontError::TooCostly);
        auto face = FontFace::open(*file, i);
        if (!face) {
            error = face.error();
            continue;
        }
        if ((*face)->postScriptName() == postScriptName)
            return face;
        const auto instances = (*face)->otherInstances(timeLeft);
        const auto instance = std::find_if(instances.begin(), instances.end(), [&](const NamedInstance &candidate) {
            return candidate.postScriptName == postScriptName;
        });
        if (instance != instances.end())
            return (*face)->instance(instance->index);
    }
    return tl::unexpected(error);
}

} // namespace kerlune
