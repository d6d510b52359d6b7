#pragma once

#include "Platform/Directories.h"

#include <QByteArray>
#include <QProperty>
#include <QSettings>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

namespace kerlune {

enum class InterfaceLanguage { system, french, english };
enum class Appearance { system, light, dark };

// The user's settings, kept in settings.ini. A value there that is none of those allowed counts as the standard one.
// A change is written at once. AppState keeps the preview text and its size in the same file.
//
// Thread: main.
class Preferences final : public QObject {
    Q_OBJECT

public:
    explicit Preferences(const Directories &directories);

    QProperty<QString> customPreviewText; // what the user typed as a sample of their own
    QProperty<bool> applyHotKeyEnabled;   // the hot key that applies the selected font
    QProperty<bool> autoActivateMissingFonts;
    QProperty<bool> similarLatinOnly; // no fonts of other scripts among look-alikes
    QProperty<bool> showMenuBarExtra; // the icon in the notification area
    QProperty<bool> identifySearchesGoogle;
    QProperty<QString> resolvePath; // where DaVinci Resolve is installed; empty for the usual place
    QProperty<InterfaceLanguage> language;
    QProperty<Appearance> appearance;

    // For those who ask at each use and need not be told of changes.
    static bool activatesMissingFonts(const QSettings &settings);
    // The environment's KERLUNE_RESOLVE_PATH, else the setting, else the usual place; absolute.
    static std::filesystem::path resolveFolder(const QSettings &settings);

    // How a part of the window was left, such as "window/geometry"; not shown to the user as a setting.
    QVariant layout(const QString &key, const QVariant &standard = {}) const;
    void setLayout(const QString &key, const QVariant &value);

private:
    template <typename Value, typename Read, typename Write>
    void keep(QProperty<Value> &property, const char *key, Value standard, Read read, Write write);
    void keep(QProperty<bool> &property, const char *key, bool standard);

    QSettings m_settings;
    std::vector<QPropertyNotifier> m_observers;
};

} // namespace kerlune
