#include "Platform/FontCatalog.h"

#include "Platform/FontFace.h"
#include "Support/CpuStopwatch.h"
#include "Support/Text.h"

#include <algorithm>
#include <chrono>

namespace kerlune {

namespace {

tl::expected<void, FontError> appendFace(std::vector<FontDescriptor> &fonts,
                                         const std::shared_ptr<const FontFile> &file, std::uint32_t faceIndex,
                                         std::chrono::nanoseconds mostTime)
{
    const auto face = FontFace::open(file, faceIndex);
    if (!face)
        return tl::unexpected(face.error());
    if (const auto usable = (*face)->checkUsable(); !usable)
        return usable;
    fonts.push_back({file->path(), faceIndex, 0, *(*face)->postScriptName()});
    for (NamedInstance &instance : (*face)->otherInstances(mostTime)) {
        if (instance.postScriptName.front() != '.')
            fonts.push_back({file->path(), faceIndex, instance.index, std::move(instance.postScriptName)});
    }
    return {};
}

} // namespace

std::optional<FontDescriptor> FontCatalog::findFont(const std::string &postScriptName) const
{
    const Listing listing = availableFonts(Duplicates::Remove);
    const FontDescriptor *similar = nullptr;
    for (const FontDescriptor &font : listing.fonts) {
        if (font.postScriptName == postScriptName)
            return font;
        if (similar == nullptr && equalIgnoringCase(font.postScriptName, postScriptName))
            similar = &font;
    }
    return similar == nullptr ? std::nullopt : std::optional(*similar);
}

std::optional<SkippedFont> systemObstacle(std::span<const SkippedFont> skipped)
{
    const auto pipe = std::find_if(skipped.begin(), skipped.end(),
                                   [](const SkippedFont &font) { return font.reason == FontError::BlocksReaders; });
    return pipe == skipped.end() ? std::nullopt : std::optional(*pipe);
}

FontCatalog::Listing fontsOfFile(const std::string &path)
{
    FontCatalog::Listing listing;
    const auto skip = [&](FontError reason) {
        if (listing.skipped.empty() || listing.skipped.back().reason != reason)
            listing.skipped.push_back({path, reason});
    };
    const auto file = FontFile::open(path);
    if (!file) {
        skip(file.error());
        return listing;
    }
    const auto count = FaceTables::faceCount(*file);
    if (!count) {
        skip(count.error());
        return listing;
    }
    const CpuStopwatch stopwatch;
    for (std::uint32_t i = 0; i < *count; ++i) {
        const auto timeLeft = FontFace::kMostTimeForFaces - stopwatch.elapsed();
        if (timeLeft.count() < 0) {
            skip(FontError::TooCostly);
            break;
        }
        if (const auto appended = appendFace(listing.fonts, *file, i, timeLeft); !appended)
            skip(appended.error());
    }
    return listing;
}

} // namespace kerlune
