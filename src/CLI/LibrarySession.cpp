#include "CLI/LibrarySession.h"

#include "CLI/DisplayText.h"
#include "CLI/Output.h"
#include "CLI/StatusLine.h"
#include "Support/Localization.h"

namespace kerlune {

LibrarySession::LibrarySession(const CommandContext &context)
    : m_activation(context.registry, context.directories)
    , m_folders(m_activation, context.registry, m_events, context.directories)
{
    m_folders.refreshManagedLibraryEntry();
    reportUnreadableList(m_folders);
}

bool LibrarySession::reapply()
{
    await(m_activation.reapplyOnLaunch());
    if (!m_activation.lastError())
        return true;
    reportFailures();
    return !m_activation.failures().empty(); // single files may fail; without any, nothing could be done at all
}

bool LibrarySession::load()
{
    if (!reapply())
        return false;
    StatusLine status;
    status.show(localized("Lecture des dossiers surveillés…"));
    await(m_folders.rescanAll());
    return true;
}

void LibrarySession::reportFailures() const
{
    for (const RegistrationError &error : m_activation.failures())
        printMessage(displayText(error.description()));
    if (m_activation.failures().empty())
        printMessage(m_activation.lastError().value_or(std::string()));
}

bool reportSaveErrors(const ActivationManager &activation, const FolderLibrary &folders)
{
    bool isSaved = true;
    for (const auto &error : {activation.saveError(), folders.saveError()}) {
        if (!error)
            continue;
        printMessage(*error);
        isSaved = false;
    }
    return isSaved;
}

void reportUnreadableList(const FolderLibrary &folders)
{
    if (folders.isListUnreadable()) {
        printMessage(localized("La liste des dossiers surveillés (watched-folders.json) ne peut pas être lue : elle "
                               "compte comme vide. Le fichier n’a pas été modifié ; le prochain changement de la "
                               "liste en gardera une copie."));
    }
}

} // namespace kerlune
