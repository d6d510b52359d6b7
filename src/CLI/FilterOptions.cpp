#include "CLI/FilterOptions.h"

#include "CLI/Arguments.h"
#include "CLI/DisplayText.h"
#include "Model/ScriptCoverage.h"
#include "State/SidebarSelection.h"
#include "Support/Localization.h"

#include <CLI/CLI.hpp>

#include <charconv>
#include <optional>
#include <string_view>

namespace kerlune {

namespace {

void append(std::string &list, std::string_view word)
{
    if (!list.empty())
        list += ", ";
    list += word;
}

std::string languageIds()
{
    std::string list;
    for (const ScriptCoverage::Language &language : ScriptCoverage::all())
        append(list, language.id);
    return list;
}

// A whole number of decimal digits.
std::optional<int> digits(std::string_view text)
{
    int number = 0;
    const char *const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    const bool isNumber = !text.empty() && text.front() != '-' && result.ec == std::errc() && result.ptr == end;
    return isNumber ? std::optional(number) : std::nullopt;
}

std::optional<WeightRange> weightRange(std::string_view text)
{
    const std::size_t dash = text.find('-');
    const auto lower = digits(text.substr(0, dash));
    const auto upper = dash == std::string_view::npos ? lower : digits(text.substr(dash + 1));
    constexpr WeightRange kAll;
    if (!lower || !upper || *lower > *upper || !kAll.contains(*lower) || !kAll.contains(*upper))
        return std::nullopt;
    return WeightRange{*lower, *upper};
}

} // namespace

std::string classKeys()
{
    std::string list;
    for (const FontClass fontClass : kAllFontClasses)
        append(list, classKey(fontClass));
    return list;
}

void addFilterOptions(CLI::App &app, FilterOptions &options)
{
    const auto group = localized("Filtres") + "\u00A0"; // CLI11 adds the colon
    const auto text = [&](const char *name, std::string &value, const std::string &type, const std::string &what) {
        addText(app, name, value, what)->type_name(type)->group(group);
    };
    const auto texts = [&](const char *name, std::vector<std::string> &values, const std::string &type,
                           const std::string &what) {
        addTexts(app, name, values, what)->type_name(type + " ...")->group(group);
    };
    const auto flag = [&](const char *name, bool &value, const std::string &what) {
        app.add_flag(name, value, what)->group(group);
    };
    text("--search", options.search, localized("TEXTE"),
         localized("Le nom, un nom PostScript, la fonderie ou l’auteur contient ce texte."));
    texts("--class", options.classes, localized("CLASSE"), localized("Classes : %1.", {classKeys()}));
    flag("--variable", options.variable, localized("Polices variables."));
    flag("--monospace", options.monospace, localized("Polices à chasse fixe."));
    flag("--color", options.color, localized("Polices en couleur."));
    flag("--italic", options.italic, localized("Seulement les italiques."));
    flag("--no-italic", options.noItalic, localized("Sans les italiques."));
    texts("--language", options.languages, localized("LANGUE"),
          localized("Langues et jeux de signes que la famille couvre tous (voir le manuel)."));
    text("--weight", options.weight, localized("MIN-MAX"), localized("Graisses de 100 à 900 : 400 ou 300-700."));
    flag("--risky-license", options.riskyLicense, localized("Polices dont l’intégration est interdite."));
    text("--glyphs", options.glyphs, localized("TEXTE"), localized("La police a tous ces caractères."));
    texts("--tag", options.tags, localized("TAG"), localized("La famille porte tous ces tags."));
}

tl::expected<Filters, std::string> filtersFromOptions(const FilterOptions &options)
{
    Filters filters{.search = options.search,
                    .onlyVariable = options.variable,
                    .onlyMonospace = options.monospace,
                    .onlyColor = options.color,
                    .onlyItalic = options.italic,
                    .hideItalic = options.noItalic,
                    .riskyLicenseOnly = options.riskyLicense,
                    .requiredGlyphs = options.glyphs,
                    .tags = {options.tags.begin(), options.tags.end()}};
    filters.tags.erase("");
    for (const std::string &key : options.classes) {
        const auto fontClass = classFromKey(key);
        if (fontClass)
            filters.classes.insert(*fontClass);
        else if (!key.empty())
            return tl::unexpected(
                localized("Classe inconnue : « %1 ». Les classes sont : %2.", {displayText(key), classKeys()}));
    }
    for (const std::string &id : options.languages) {
        const auto bit = ScriptCoverage::bit(id);
        if (bit)
            filters.languageBits |= *bit;
        else if (!id.empty())
            return tl::unexpected(
                localized("Langue inconnue : « %1 ». Les langues sont : %2.", {displayText(id), languageIds()}));
    }
    if (!options.weight.empty()) {
        const auto range = weightRange(options.weight);
        if (!range)
            return tl::unexpected(localized("Graisse incorrecte : « %1 ». Il faut un nombre entier de 100 à 900, ou "
                                            "deux, le plus petit d’abord, comme 300-700.",
                                            {displayText(options.weight)}));
        filters.weightRange = *range;
    }
    return filters;
}

} // namespace kerlune
