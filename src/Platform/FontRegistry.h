#pragma once

#include "Platform/RegistrationError.h"

#include <QFuture>
#include <QObject>

#include <span>
#include <string>
#include <vector>

namespace kerlune {

// Which font files are registered, beside those that the system offers by itself: for this process only, or
// persistently for every program of the user.
//
// Thread: main.
class FontRegistry : public QObject {
    Q_OBJECT

public:
    using Errors = std::vector<RegistrationError>; // at most one for each file, in the order of the files

    using QObject::QObject;

    // Nothing outside the process changes. Files that are registered already, or are not, are passed over. Whether a
    // file is a font shows when the catalogue reads it.
    virtual void registerForProcess(std::span<const std::string> paths) = 0;
    virtual void unregisterForProcess(std::span<const std::string> paths) = 0;

    // Every program sees the fonts of these files, until they are unregistered. The files themselves are not touched.
    // The work is done on other threads; the future always finishes with a result.
    virtual QFuture<Errors> registerPersistently(std::vector<std::string> paths) = 0;
    virtual QFuture<Errors> unregisterPersistently(std::vector<std::string> paths) = 0;
    virtual QFuture<std::vector<std::string>> persistentlyRegistered() const = 0; // sorted
    // Whether the system is set up such that programs see what is registered persistently.
    virtual bool showsPersistentFonts() const = 0;

Q_SIGNALS:
    // The catalogue may offer other fonts than before: files were registered or unregistered, or something changed in
    // the system's font folders.
    void registeredFontsChanged();
};

} // namespace kerlune
