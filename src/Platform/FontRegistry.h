#pragma once

#include <QObject>

#include <span>
#include <string>

namespace kerlune {

// Which font files are registered for this process, beside those that the system offers. Nothing outside the process
// changes. Registering for every program joins this interface, with a scope of its own.
//
// Thread: main.
class FontRegistry : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    // Files that are registered already, or are not, are passed over. Whether a file is a font shows when the catalogue
    // reads it.
    virtual void registerForProcess(std::span<const std::string> paths) = 0;
    virtual void unregisterForProcess(std::span<const std::string> paths) = 0;

Q_SIGNALS:
    // The catalogue may offer other fonts than before: files were registered or unregistered, or something changed in
    // the system's font folders.
    void registeredFontsChanged();
};

} // namespace kerlune
