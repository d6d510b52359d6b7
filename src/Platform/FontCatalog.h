#pragma once

#include "Platform/FontDescriptor.h"
#include "Platform/FontFile.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace kerlune {

// A font file, or some of its faces, that the system, the catalogue or the indexer passed over.
struct SkippedFont {
    std::string path;
    FontError reason;

    bool operator==(const SkippedFont &) const = default;
};

enum class Duplicates {
    Keep,
    Remove, // the first face of each PostScript name stays
};

// The fonts that this process can use.
//
// Thread: any; the queries block while they read, run them off the main thread.
class FontCatalog {
public:
    struct Listing {
        std::vector<FontDescriptor> fonts;
        std::vector<SkippedFont> skipped;
    };

    FontCatalog() = default;
    virtual ~FontCatalog() = default;
    FontCatalog(const FontCatalog &) = delete;
    FontCatalog &operator=(const FontCatalog &) = delete;

    // Every face on offer, the files registered for this process first and in that order, then the system's by path,
    // face and instance. Faces that could not be indexed are not offered: those without a PostScript name, hidden
    // ones, those with an em of 0 units. They are named in `skipped`, as are the files in the system's font folders
    // that the system itself does not offer.
    virtual Listing availableFonts(Duplicates duplicates) const = 0;

    // Asks the system now for what the next listing needs, and blocks as long. When fonts come or go between the two,
    // that listing asks again.
    virtual void readAhead() const {}

    // Offers these faces no longer, until their files change: it turned out that they cannot be indexed.
    virtual void leaveOut(std::span<const FontDescriptor> fonts, FontError reason) const = 0;

    // The face on offer with that PostScript name, or else with one that differs only in case.
    std::optional<FontDescriptor> findFont(const std::string &postScriptName) const;
};

// The pipe in a font folder because of which the system could not be asked for its fonts, if there is one. What a
// listing lacks then has not gone.
std::optional<SkippedFont> systemObstacle(std::span<const SkippedFont> skipped);

// The faces of one file in its order: of a variable face its default instance, then its other named instances.
// Faces that could not be indexed are left out and named in `skipped`, as is a file that cannot be read. Of a file that
// takes more than two seconds of processor time, the faces found until then are listed.
//
// Thread: any; blocks while it reads.
FontCatalog::Listing fontsOfFile(const std::string &path);

} // namespace kerlune
