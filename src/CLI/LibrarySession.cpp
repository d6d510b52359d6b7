#include "CLI/LibrarySession.h"

#include "CLI/DisplayText.h"
#include "CLI/Output.h"
#include "CLI/StatusLine.h"
#include "Platform/FileEventStream.h"
#include "Support/Localization.h"

namespace kerlune {

namespace {

class NoEvents final : public FileEventStream {
public:
    void start(std::vector<Tree>) override {}
    void stop() override {}
};

} // namespace

LibrarySession::LibrarySession(const CommandContext &context)
    : m_noEvents(std::make_unique<NoEvents>())
    , m_activation(context.registry, context.directories)
    , m_folders(m_activation, context.registry, *m_noEvents, context.directories)
{
    m_folders.refreshManagedLibraryEntry();
    if (m_folders.isListUnreadable()) {
        printMessage(localized("La liste des dossiers surveillés (watched-folders.json) ne peut pas être lue : elle "
                               "compte comme vide. Le fichier n’a pas été modifié ; le prochain changement de la "
                               "liste en gardera une copie."));
    }
}

LibrarySession::~LibrarySession() = default;

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

bool LibrarySession::reportSaveErrors() const
{
    bool isSaved = true;
    for (const auto &error : {m_activation.saveError(), m_folders.saveError()}) {
        if (!error)
            continue;
        printMessage(*error);
        isSaved = false;
    }
    return isSaved;
}

} // namespace kerlune
