#include "CLI/Commands.h"
#include "CLI/DisplayText.h"
#include "CLI/FamilyLine.h"
#include "CLI/FilterOptions.h"
#include "CLI/NamedThings.h"
#include "CLI/StateSession.h"
#include "Support/Localization.h"

#include <nlohmann/json.hpp>

#include <iostream>

namespace kerlune {

namespace {

nlohmann::json encodeFamily(const FontFamilyPointer &family)
{
    auto faces = nlohmann::json::array();
    for (const FontRecordPointer &face : family->faces)
        faces.push_back(encodeRecord(*face));
    return {{"name", family->name}, {"faces", std::move(faces)}};
}

// Why the list is empty.
void explainNothing(const AppState &state)
{
    if (state.families().empty()) {
        printMessage(localized("La bibliothèque est vide : aucune police n’est disponible."));
        return;
    }
    const SidebarSelection &selection = state.sidebarSelection.value();
    const std::string filters = displayText(summary(state.filters.value()));
    printMessage(selection == SidebarSelection()
                     ? localized("Aucune famille ne correspond. Filtres : %1.", {filters})
                     : localized("Aucune famille ne correspond. Sélection : %1. Filtres : %2.",
                                 {displayText(selectionText(selection)), filters}));
}

} // namespace

int runFamiliesCommand(const CommandContext &context, const FilterOptions &options, const std::string &selectionText,
                       OutputFormat format)
{
    auto filters = filtersFromOptions(options);
    if (!filters)
        return reportWrongUsage(filters.error());
    const auto session = StateSession::open(context);
    if (session == nullptr)
        return kFailed;
    AppState &state = session->state();
    const auto selection = selectionNamed(state, selectionText.empty() ? "all" : selectionText);
    if (!selection)
        return report(selection.error());

    using Kind = SidebarSelection::Kind;
    if (selection->kind == Kind::adobeFonts || selection->kind == Kind::googleFonts)
        printMessage(localized("Les catalogues en ligne n’existent pas encore : rien n’est restreint."));
    const bool showsDuplicates = selection->kind == Kind::duplicates;
    session->load(showsDuplicates ? Duplicates::Keep : Duplicates::Remove);
    state.filters = *std::move(filters);
    state.sidebarSelection = *selection;
    const AppState::Families &families = state.visibleFamilies();
    if (format == OutputFormat::Json) {
        printJsonLines(families, encodeFamily);
    } else {
        for (const FontFamilyPointer &family : families)
            std::cout << familyLine(*family) << '\n';
    }
    if (families.empty())
        explainNothing(state);
    return kDone;
}

} // namespace kerlune
