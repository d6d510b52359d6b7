#include "State/GoogleSettings.h"

#include "State/SettingsFile.h"

#include <QSettings>

namespace kerlune {

GoogleAddresses googleAddresses(const Directories &directories)
{
    const QSettings settings(settingsFile(directories), QSettings::IniFormat);
    const auto address = [&](const char *variable, const QString &key) {
        const QString given = qEnvironmentVariable(variable);
        return given.isEmpty() ? settings.value(key).toString() : given;
    };
    return GoogleAddresses::from(address("KERLUNE_GOOGLE_METADATA_URL", QStringLiteral("googleMetadataUrl")),
                                 address("KERLUNE_GOOGLE_CSS_URL", QStringLiteral("googleCssUrl")));
}

} // namespace kerlune
