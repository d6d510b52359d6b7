#include "Model/FontRecord.h"

#include "Support/Hash.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <concepts>
#include <limits>

namespace kerlune {

namespace {

using nlohmann::json;

// Every stored field with its key, in order: what encoding, decoding and nothing else goes through.
template <typename Record, typename Visitor>
void visitFields(Record &record, Visitor &&visit)
{
    visit("postScriptName", record.postScriptName);
    visit("family", record.family);
    visit("style", record.style);
    visit("filePath", record.filePath);
    visit("mtime", record.mtime);
    visit("fileSize", record.fileSize);
    visit("weight", record.weight);
    visit("width", record.width);
    visit("slant", record.slant);
    visit("symbolicTraits", record.symbolicTraits);
    visit("isVariable", record.isVariable);
    visit("isMonospace", record.isMonospace);
    visit("isColor", record.isColor);
    visit("isItalic", record.isItalic);
    visit("xHeightRatio", record.xHeightRatio);
    visit("capHeightRatio", record.capHeightRatio);
    visit("glyphCount", record.glyphCount);
    visit("classification", record.classification);
    visit("scriptMask", record.scriptMask);
    visit("version", record.version);
    visit("foundry", record.foundry);
    visit("designer", record.designer);
    visit("licenseURL", record.licenseURL);
    visit("copyrightNotice", record.copyrightNotice);
    visit("fsType", record.fsType);
}

bool decode(const json &value, std::string &field)
{
    if (!value.is_string())
        return false;
    field = value.get_ref<const std::string &>();
    return true;
}

bool decode(const json &value, bool &field)
{
    if (!value.is_boolean())
        return false;
    field = value.get<bool>();
    return true;
}

bool decode(const json &value, double &field)
{
    if (!value.is_number())
        return false;
    field = value.get<double>();
    return true;
}

template <std::unsigned_integral Integer>
bool decode(const json &value, Integer &field)
{
    const bool isNatural = value.is_number_unsigned() || (value.is_number_integer() && value.get<std::int64_t>() >= 0);
    if (!isNatural || value.get<std::uint64_t>() > std::numeric_limits<Integer>::max())
        return false;
    field = static_cast<Integer>(value.get<std::uint64_t>());
    return true;
}

bool decode(const json &value, std::int64_t &field)
{
    constexpr auto kLargest = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
    if (!value.is_number_integer() || (value.is_number_unsigned() && value.get<std::uint64_t>() > kLargest))
        return false;
    field = value.get<std::int64_t>();
    return true;
}

bool decode(const json &value, FontClass &field)
{
    std::int64_t raw = 0;
    const auto decoded = decode(value, raw) ? fontClassFromRawValue(raw) : std::nullopt;
    field = decoded.value_or(FontClass::unknown);
    return decoded.has_value();
}

bool decode(const json &value, std::optional<std::string> &field)
{
    if (value.is_null()) // what a missing key reads as
        return true;
    return decode(value, field.emplace());
}

} // namespace

int FontRecord::cssWeight() const
{
    double clamped = weight < 1 ? weight : 1;
    if (clamped < -1)
        clamped = -1;
    const double offset = clamped <= 0 ? clamped * 300 : clamped * 500;
    return static_cast<int>(std::round((offset + 400) / 100)) * 100;
}

json encodeRecord(const FontRecord &record)
{
    json object = json::object();
    visitFields(record, [&]<typename Field>(const char *key, const Field &field) {
        if constexpr (std::same_as<Field, FontClass>)
            object[key] = rawValue(field);
        else if constexpr (std::same_as<Field, std::optional<std::string>>)
            object[key] = field ? json(*field) : json(nullptr);
        else
            object[key] = field;
    });
    return object;
}

std::optional<FontRecord> decodeRecord(const json &object)
{
    if (!object.is_object())
        return std::nullopt;
    static const json kMissing;
    FontRecord record;
    bool isComplete = true;
    visitFields(record, [&](const char *key, auto &field) {
        const auto found = object.find(key);
        isComplete = decode(found == object.end() ? kMissing : *found, field) && isComplete;
    });
    return isComplete ? std::optional(std::move(record)) : std::nullopt;
}

} // namespace kerlune

std::size_t std::hash<kerlune::FontRecord>::operator()(const kerlune::FontRecord &record) const
{
    kerlune::Hasher hasher;
    hasher.feed(record.postScriptName, record.family, record.style, record.filePath);
    hasher.feed(record.mtime, record.fileSize, record.weight, record.width, record.slant);
    hasher.feed(record.symbolicTraits);
    hasher.feed(record.isVariable, record.isMonospace, record.isColor, record.isItalic);
    hasher.feed(record.xHeightRatio, record.capHeightRatio, record.glyphCount);
    hasher.feed(kerlune::rawValue(record.classification), record.scriptMask);
    hasher.feed(record.version, record.foundry, record.designer, record.licenseURL, record.copyrightNotice);
    hasher.feed(record.fsType);
    return hasher.value();
}
