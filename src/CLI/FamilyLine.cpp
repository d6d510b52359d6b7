#include "CLI/FamilyLine.h"

#include "CLI/DisplayText.h"
#include "Support/Localization.h"

namespace kerlune {

std::string familyLine(const FontFamily &family)
{
    return displayText(family.name) + " — " + label(family.representative()->classification) + ", " +
           localizedCount("%1 graisse", "%1 graisses", static_cast<std::int64_t>(family.faces.size()));
}

} // namespace kerlune
