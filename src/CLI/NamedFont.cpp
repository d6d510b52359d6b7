#include "CLI/NamedFont.h"

#include "CLI/DisplayText.h"
#include "CLI/Output.h"
#include "Support/Localization.h"

namespace kerlune {

NamedFont NamedFont::find(const CommandContext &context, const std::string &postScriptName)
{
    NamedFont font{StateSession::open(context), nullptr};
    if (font.session == nullptr)
        return font;
    font.session->load(Duplicates::Remove);
    font.record = font.session->state().record(postScriptName);
    if (font.record == nullptr)
        reportFailure(localized("Aucune police « %1 » dans la bibliothèque.", {displayText(postScriptName)}));
    return font;
}

int reportFontNameMissing()
{
    return reportWrongUsage(localized("Donnez le nom PostScript d’une police ; « kerlune faces » les affiche."));
}

} // namespace kerlune
