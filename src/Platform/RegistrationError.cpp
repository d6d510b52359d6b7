#include "Platform/RegistrationError.h"

#include "Support/Localization.h"

namespace kerlune {

namespace {

std::string describe(const RegistrationError &error)
{
    switch (error.reason) {
    case RegistrationError::Reason::UnusableFile:
        return describe(error.fontError);
    case RegistrationError::Reason::OwnRegistration:
        return localized("lien d’activation de Kerlune, pas le fichier de police lui-même");
    case RegistrationError::Reason::FolderNotWritable:
        return localized("écriture refusée dans le dossier des polices actives");
    case RegistrationError::Reason::NoRoom:
        return localized("disque plein");
    case RegistrationError::Reason::NameTaken:
        return localized("nom déjà pris dans le dossier des polices actives");
    case RegistrationError::Reason::SystemError:
        return localized("erreur du système dans le dossier des polices actives");
    }
    return {};
}

} // namespace

std::string RegistrationError::description() const
{
    return localized("« %1 » : %2", {path.substr(path.find_last_of('/') + 1), describe(*this)});
}

} // namespace kerlune
