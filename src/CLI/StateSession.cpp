#include "CLI/StateSession.h"

#include "CLI/Await.h"
#include "CLI/DisplayText.h"
#include "CLI/LibrarySession.h"
#include "CLI/Output.h"
#include "CLI/ProgressBar.h"
#include "CLI/StoreAccess.h"

#include <vector>

namespace kerlune {

StateSession::StateSession(const CommandContext &context)
    : m_directories(context.directories)
    , m_state({context.catalog, context.registry, m_events, context.scripts, m_front, context.directories})
{}

std::unique_ptr<StateSession> StateSession::open(const CommandContext &context)
{
    std::unique_ptr<StateSession> session(new StateSession(context));
    if (const auto &error = session->m_state.storeError()) {
        reportStoreError(*error, context.directories);
        return nullptr;
    }
    session->m_state.reloadUserData();
    session->m_state.folderLibrary().refreshManagedLibraryEntry();
    return session;
}

void StateSession::load(Duplicates duplicates)
{
    std::vector<std::string> notices;
    const auto noticeObserver = m_state.notice.observe([&] {
        if (const auto &notice = m_state.notice())
            notices.push_back(notice->text);
    });
    {
        StatusLine line;
        const auto messageObserver = m_state.indexMessage.observe(
            [&] { line.show(withProgressCells(m_state.indexMessage(), m_state.indexProgress())); });
        await(m_state.load());
        if (duplicates == Duplicates::Keep)
            await(m_state.refreshRegisteredFonts());
    }
    reportUnreadableList(m_state.folderLibrary());
    for (const std::string &notice : notices)
        printMessage(displayText(notice));
    reportSaveErrors(m_state.activation(), m_state.folderLibrary());
}

int StateSession::reportWriteFailure() const
{
    return reportFailure(whyNothingWasWritten(m_directories));
}

} // namespace kerlune
