#include "State/Preferences.h"

#include "State/SettingsFile.h"

#include <QFile>

#include <array>
#include <utility>

namespace kerlune {

namespace {

template <typename Value>
using Words = std::array<std::pair<Value, const char *>, 3>;

constexpr Words<InterfaceLanguage> kLanguages{{{InterfaceLanguage::system, "system"},
                                               {InterfaceLanguage::french, "french"},
                                               {InterfaceLanguage::english, "english"}}};
constexpr const char *kAutoActivateMissingFonts = "autoActivateMissingFonts";
constexpr const char *kResolvePath = "resolvePath";

constexpr Words<Appearance> kAppearances{
    {{Appearance::system, "system"}, {Appearance::light, "light"}, {Appearance::dark, "dark"}}};

template <typename Value>
Value valueOfWord(const Words<Value> &words, const QString &text)
{
    for (const auto &[value, word] : words) {
        if (text == QLatin1String(word))
            return value;
    }
    return Value::system;
}

template <typename Value>
QString wordOfValue(const Words<Value> &words, Value wanted)
{
    for (const auto &[value, word] : words) {
        if (value == wanted)
            return QString::fromLatin1(word);
    }
    return {};
}

// A text with commas may stand there as a list.
QString textOf(const QVariant &value)
{
    return value.toStringList().join(QStringLiteral(", "));
}

// The file holds words; anything but "true" and "false", "1" and "0" is none of ours.
bool flagOf(const QVariant &value, bool standard)
{
    const QString word = value.toString().toLower();
    const bool isYes = word == QLatin1String("true") || word == QLatin1String("1");
    const bool isNo = word == QLatin1String("false") || word == QLatin1String("0");
    return isYes || (!isNo && standard);
}

// Only what is not as it stands there: another process may have written its own.
void write(QSettings &settings, const QString &key, const QVariant &value, const QVariant &standard)
{
    if (settings.value(key, standard) != value)
        settings.setValue(key, value);
}

} // namespace

Preferences::Preferences(const Directories &directories)
    : m_settings(settingsFile(directories), QSettings::IniFormat)
{
    const auto writeText = [](const QString &text) { return text; };
    keep(customPreviewText, "customPreviewText", QString(), textOf, writeText);
    keep(resolvePath, kResolvePath, QString(), textOf, writeText);
    keep(applyHotKeyEnabled, "applyHotKeyEnabled", true);
    keep(autoActivateMissingFonts, kAutoActivateMissingFonts, true);
    keep(similarLatinOnly, "similarLatinOnly", true);
    keep(showMenuBarExtra, "showMenuBarExtra", true);
    keep(identifySearchesGoogle, "identifySearchesGoogle", true);
    keep(
        language, "language", InterfaceLanguage::system,
        [](const QVariant &value) { return valueOfWord(kLanguages, value.toString()); },
        [](InterfaceLanguage value) { return wordOfValue(kLanguages, value); });
    keep(
        appearance, "appearance", Appearance::system,
        [](const QVariant &value) { return valueOfWord(kAppearances, value.toString()); },
        [](Appearance value) { return wordOfValue(kAppearances, value); });
}

bool Preferences::activatesMissingFonts(const QSettings &settings)
{
    return flagOf(settings.value(QLatin1String(kAutoActivateMissingFonts)), true);
}

std::filesystem::path Preferences::resolveFolder(const QSettings &settings)
{
    const QString named = qEnvironmentVariable("KERLUNE_RESOLVE_PATH");
    const QString chosen = named.isEmpty() ? textOf(settings.value(QLatin1String(kResolvePath))) : named;
    return chosen.isEmpty() ? usualResolveFolder() : std::filesystem::absolute(QFile::encodeName(chosen).toStdString());
}

QVariant Preferences::layout(const QString &key, const QVariant &standard) const
{
    return m_settings.value(key, standard);
}

void Preferences::setLayout(const QString &key, const QVariant &value)
{
    write(m_settings, key, value, {});
}

template <typename Value, typename Read, typename Write>
void Preferences::keep(QProperty<Value> &property, const char *key, Value standard, Read read, Write write)
{
    const QString name = QString::fromLatin1(key);
    property = m_settings.contains(name) ? read(m_settings.value(name)) : standard;
    m_observers.push_back(property.addNotifier([this, &property, name, standard, write] {
        kerlune::write(m_settings, name, write(property.value()), write(standard));
    }));
}

void Preferences::keep(QProperty<bool> &property, const char *key, bool standard)
{
    const auto read = [standard](const QVariant &value) { return flagOf(value, standard); };
    keep(property, key, standard, read, [](bool value) { return value; });
}

} // namespace kerlune
