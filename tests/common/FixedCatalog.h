#pragma once

#include "Platform/FontCatalog.h"

#include <utility>

namespace kerlune {

// Offers the faces of the given files and nothing of the system.
class FixedCatalog final : public FontCatalog {
public:
    explicit FixedCatalog(std::vector<std::string> paths = {})
        : m_paths(std::move(paths))
    {}

    Listing availableFonts(Duplicates) const override
    {
        Listing all;
        for (const std::string &path : m_paths) {
            Listing file = fontsOfFile(path);
            all.fonts.insert(all.fonts.end(), file.fonts.begin(), file.fonts.end());
            all.skipped.insert(all.skipped.end(), file.skipped.begin(), file.skipped.end());
        }
        return all;
    }

    void leaveOut(std::span<const FontDescriptor>, FontError) const override {}

private:
    std::vector<std::string> m_paths;
};

} // namespace kerlune
