#pragma once

#include "Platform/Directories.h"

#include <QString>

namespace kerlune {

// Where the settings lie: an INI file of QSettings.
inline QString settingsFile(const Directories &directories)
{
    return QString::fromStdString(directories.configuration / "settings.ini");
}

} // namespace kerlune
