#pragma once

#include "Platform/FontFile.h"

#include <string>

namespace kerlune {

// Why a font file was not registered for every program, or is still registered.
struct RegistrationError {
    enum class Reason {
        UnusableFile,      // it cannot be read, or is no font: see fontError
        OwnRegistration,   // it is itself what Kerlune registered another file by
        FolderNotWritable, // the place of the registrations
        NoRoom,            // on the disk of that place
        NameTaken,         // there by something else
        SystemError,
    };

    std::string path;
    Reason reason;
    FontError fontError = FontError::Unreadable;

    // Which file and why, in a sentence's middle, for the user.
    std::string description() const;

    bool operator==(const RegistrationError &) const = default;
};

} // namespace kerlune
