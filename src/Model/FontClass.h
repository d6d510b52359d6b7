#pragma once

#include <array>
#include <optional>
#include <string>

namespace kerlune {

// What a face looks like. The values are stored.
enum class FontClass {
    sans = 0,
    serif = 1,
    slab = 2,
    mono = 3,
    script = 4,
    display = 5,
    decorative = 6,
    unknown = 7,
};

inline constexpr std::array kAllFontClasses{FontClass::sans,       FontClass::serif,  FontClass::slab,
                                            FontClass::mono,       FontClass::script, FontClass::display,
                                            FontClass::decorative, FontClass::unknown};

constexpr int rawValue(FontClass fontClass)
{
    return static_cast<int>(fontClass);
}

std::optional<FontClass> fontClassFromRawValue(long long rawValue); // absent outside 0…7
std::string label(FontClass fontClass);                             // for display

} // namespace kerlune
