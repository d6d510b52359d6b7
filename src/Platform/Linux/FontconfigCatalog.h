#pragma once

#include "Platform/FontCatalog.h"

#include <filesystem>
#include <memory>

namespace kerlune {

class ProcessFonts;

// The catalogue of a Linux desktop: the files registered for this process, then fontconfig's system fonts. Type 1 and
// bitmap fonts, which fontconfig offers too, are skipped. Symbolic links are resolved, so that a link and its target
// are one file.
//
// Thread: any; one listing at a time, others wait.
class FontconfigCatalog final : public FontCatalog {
public:
    // Descriptors are kept in `cacheFile` from one start to the next.
    FontconfigCatalog(std::shared_ptr<const ProcessFonts> processFonts, std::filesystem::path cacheFile);
    ~FontconfigCatalog() override;

    Listing availableFonts(Duplicates duplicates) const override;
    void readAhead() const override;
    void leaveOut(std::span<const FontDescriptor> fonts, FontError reason) const override;

private:
    struct Implementation;
    std::unique_ptr<Implementation> m_implementation;
};

} // namespace kerlune
