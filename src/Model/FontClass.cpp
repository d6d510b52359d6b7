#include "Model/FontClass.h"

#include "Support/Localization.h"

namespace kerlune {

std::optional<FontClass> fontClassFromRawValue(long long rawValue)
{
    if (rawValue < 0 || rawValue > 7)
        return std::nullopt;
    return static_cast<FontClass>(rawValue);
}

std::string label(FontClass fontClass)
{
    switch (fontClass) {
    case FontClass::sans:
        return localized("Sans serif");
    case FontClass::serif:
        return localized("Serif");
    case FontClass::slab:
        return localized("Slab");
    case FontClass::mono:
        return localized("Monospace");
    case FontClass::script:
        return localized("Script");
    case FontClass::display:
        return localized("Display");
    case FontClass::decorative:
        return localized("Fantaisie");
    case FontClass::unknown:
        return localized("Non classée");
    }
    return {};
}

} // namespace kerlune
