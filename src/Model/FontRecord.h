#pragma once

#include "Model/EmbeddingRights.h"
#include "Model/FontClass.h"

#include <nlohmann/json_fwd.hpp>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace kerlune {

// One face, as the index keeps it. Its PostScript name identifies it.
struct FontRecord {
    std::string postScriptName;
    std::string family;
    std::string style;
    std::string filePath;             // absolute
    double mtime = 0;                 // seconds since 1970-01-01 UTC
    std::uint64_t fileSize = 0;       // bytes
    double weight = 0;                // −1…1, 0 regular
    double width = 0;                 // −1…1, 0 normal
    double slant = 0;                 // −1…1, 0 upright, positive leans right
    std::uint32_t symbolicTraits = 0; // see FontTraits
    bool isVariable = false;          // has variation axes
    bool isMonospace = false;
    bool isColor = false;
    bool isItalic = false;
    double xHeightRatio = 0;   // of the em
    double capHeightRatio = 0; // of the em
    std::int64_t glyphCount = 0;
    FontClass classification = FontClass::unknown;
    std::uint64_t scriptMask = 0;               // see ScriptCoverage
    std::optional<std::string> version;         // OpenType 'name', ID 5
    std::optional<std::string> foundry;         // ID 8
    std::optional<std::string> designer;        // ID 9
    std::optional<std::string> licenseURL;      // ID 14
    std::optional<std::string> copyrightNotice; // ID 0
    std::uint16_t fsType = 0;                   // OpenType OS/2, fsType

    const std::string &id() const { return postScriptName; }
    int cssWeight() const; // 100…900, in hundreds
    EmbeddingRights embeddingRights() const { return embeddingRightsFromFsType(fsType); }

    bool operator==(const FontRecord &) const = default;
};

// Records are shared and never change: lists of them copy pointers.
using FontRecordPointer = std::shared_ptr<const FontRecord>;

// An object with one key for each field; an absent text is null.
nlohmann::json encodeRecord(const FontRecord &record);
// Absent when a key is missing or holds a value of another kind. The five optional texts may be missing or null.
std::optional<FontRecord> decodeRecord(const nlohmann::json &object);

} // namespace kerlune

template <>
struct std::hash<kerlune::FontRecord> {
    std::size_t operator()(const kerlune::FontRecord &record) const;
};
