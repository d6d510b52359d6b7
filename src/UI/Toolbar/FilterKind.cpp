#include "UI/Toolbar/FilterKind.h"

#include "Model/ScriptCoverage.h"
#include "Support/Localization.h"
#include "UI/InterfaceText.h"

#include <QStringList>

#include <algorithm>

namespace kerlune {

namespace {

// The first one by its name, the others by their number.
QString listed(const QStringList &names)
{
    return names.size() < 2 ? names.join(QString()) : QStringLiteral("%1 +%2").arg(names.front()).arg(names.size() - 1);
}

QString classNames(const Filters &filters)
{
    QStringList names;
    for (const FontClass fontClass : filters.classes)
        names.push_back(shown(label(fontClass)));
    return listed(names);
}

QString languageNames(const Filters &filters)
{
    QStringList names;
    for (const ScriptCoverage::Language &language : ScriptCoverage::languages(filters.languageBits))
        names.push_back(shown(language.label()));
    return listed(names);
}

QString tagNames(const Filters &filters)
{
    QStringList names;
    for (const std::string &tag : filters.tags)
        names.push_back(shown(tag));
    return listed(names);
}

QString weights(const WeightRange &range)
{
    return range.lower == range.upper ? QString::number(range.lower)
                                      : QStringLiteral("%1–%2").arg(range.lower).arg(range.upper);
}

} // namespace

QString filterName(FilterKind kind)
{
    switch (kind) {
    case FilterKind::classes:
        return uiText("Classe");
    case FilterKind::languages:
        return uiText("Langues");
    case FilterKind::weight:
        return uiText("Graisse");
    case FilterKind::variable:
        return uiText("Variable");
    case FilterKind::color:
        return uiText("Couleur");
    case FilterKind::italic:
        return uiText("Italique");
    case FilterKind::tags:
        return uiText("Tags");
    case FilterKind::monospace:
        return uiText("Chasse fixe");
    case FilterKind::riskyLicense:
        return uiText("Licence à risque");
    case FilterKind::glyphs:
        return uiText("Caractères requis");
    }
    return {};
}

QString filterText(FilterKind kind, const Filters &filters)
{
    if (!isSet(kind, filters))
        return filterName(kind);
    switch (kind) {
    case FilterKind::classes:
        return uiText("Classe : %1", {classNames(filters)});
    case FilterKind::languages:
        return uiText("Langues : %1", {languageNames(filters)});
    case FilterKind::weight:
        return uiText("Graisse : %1", {weights(filters.weightRange)});
    case FilterKind::italic:
        return filters.onlyItalic ? uiText("Italiques seuls") : uiText("Sans italiques");
    case FilterKind::tags:
        return uiText("Tags : %1", {tagNames(filters)});
    case FilterKind::glyphs:
        return uiText("Caractères : %1", {shown(filters.requiredGlyphs)});
    case FilterKind::variable:
    case FilterKind::color:
    case FilterKind::monospace:
    case FilterKind::riskyLicense:
        break;
    }
    return filterName(kind);
}

bool isSet(FilterKind kind, const Filters &filters)
{
    Filters without = filters;
    unset(kind, without);
    return without != filters;
}

void unset(FilterKind kind, Filters &filters)
{
    const Filters none;
    switch (kind) {
    case FilterKind::classes:
        filters.classes = none.classes;
        break;
    case FilterKind::languages:
        filters.languageBits = none.languageBits;
        break;
    case FilterKind::weight:
        filters.weightRange = none.weightRange;
        break;
    case FilterKind::variable:
        filters.onlyVariable = false;
        break;
    case FilterKind::color:
        filters.onlyColor = false;
        break;
    case FilterKind::italic:
        filters.onlyItalic = false;
        filters.hideItalic = false;
        break;
    case FilterKind::tags:
        filters.tags = none.tags;
        break;
    case FilterKind::monospace:
        filters.onlyMonospace = false;
        break;
    case FilterKind::riskyLicense:
        filters.riskyLicenseOnly = false;
        break;
    case FilterKind::glyphs:
        filters.requiredGlyphs = none.requiredGlyphs;
        break;
    }
}

bool isSwitch(FilterKind kind)
{
    return kind == FilterKind::variable || kind == FilterKind::color || kind == FilterKind::monospace ||
           kind == FilterKind::riskyLicense;
}

void switchOn(FilterKind kind, Filters &filters)
{
    filters.onlyVariable = filters.onlyVariable || kind == FilterKind::variable;
    filters.onlyColor = filters.onlyColor || kind == FilterKind::color;
    filters.onlyMonospace = filters.onlyMonospace || kind == FilterKind::monospace;
    filters.riskyLicenseOnly = filters.riskyLicenseOnly || kind == FilterKind::riskyLicense;
}

bool hasOwnChip(FilterKind kind)
{
    return kind != FilterKind::monospace && kind != FilterKind::riskyLicense && kind != FilterKind::glyphs;
}

QString weightName(int cssWeight)
{
    switch (std::clamp(cssWeight / 100, 1, 9)) {
    case 1:
        return uiText("Ultra-fin");
    case 2:
        return uiText("Extra-léger");
    case 3:
        return uiText("Léger");
    case 4:
        return uiText("Normal");
    case 5:
        return uiText("Moyen");
    case 6:
        return uiText("Demi-gras");
    case 7:
        return uiText("Gras");
    case 8:
        return uiText("Extra-gras");
    default:
        return uiText("Noir");
    }
}

} // namespace kerlune
