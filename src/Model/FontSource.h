#pragma once

#include "Model/FontRecord.h"
#include "Platform/FontDescriptor.h"

#include <memory>
#include <optional>
#include <string>

namespace kerlune {

class Font;
class FontCatalog;

// A candidate when a font is identified: a face of the library, or one from elsewhere such as a downloaded subset.
// Shared, never changed.
class FontSource final {
public:
    FontSource(std::string id, std::string family, std::string styleName, std::optional<FontRecord> record,
               std::optional<FontDescriptor> descriptor);

    const std::string &id() const { return m_id; }
    const std::string &family() const { return m_family; }
    const std::string &styleName() const { return m_styleName; }
    const std::optional<FontRecord> &record() const { return m_record; }
    const std::optional<FontDescriptor> &descriptor() const { return m_descriptor; }

    bool isInstalled() const { return m_record.has_value(); }

    // The font at a size in points: of the descriptor, else the face that `catalog` offers under the record's
    // PostScript name (case does not count). Null when there is none or it cannot be read.
    std::unique_ptr<Font> font(double size, const FontCatalog &catalog) const;
    std::unique_ptr<Font> previewFont(const FontCatalog &catalog) const; // at 25 points

private:
    std::string m_id;
    std::string m_family;
    std::string m_styleName;
    std::optional<FontRecord> m_record;
    std::optional<FontDescriptor> m_descriptor;
};

} // namespace kerlune
