#pragma once

#include "Platform/FontCatalog.h"
#include "Support/Handle.h"

#include <fontconfig/fontconfig.h>

#include <set>
#include <string>
#include <vector>

namespace kerlune {

// The default instances of the faces that fontconfig offers, by path: what a bare loop over the same files does too.
inline std::vector<FontDescriptor> systemFaces()
{
    std::set<std::string> paths;
    const Handle<FcConfig, FcConfigDestroy> config(FcInitLoadConfigAndFonts());
    const FcFontSet *fonts = FcConfigGetFonts(config.get(), FcSetSystem);
    for (int i = 0; i < fonts->nfont; ++i) {
        FcChar8 *file = nullptr;
        FcPatternGetString(fonts->fonts[i], FC_FILE, 0, &file);
        paths.insert(reinterpret_cast<const char *>(file));
    }
    std::vector<FontDescriptor> faces;
    for (const std::string &path : paths) {
        for (const FontDescriptor &font : fontsOfFile(path).fonts) {
            if (font.instanceIndex == 0)
                faces.push_back(font);
        }
    }
    return faces;
}

} // namespace kerlune
