#include "Library/StateFile.h"

#include "Support/JsonFile.h"
#include "Support/Localization.h"

#include <system_error>
#include <utility>

namespace kerlune {

namespace {

namespace fs = std::filesystem;

fs::path lockFile(const fs::path &file)
{
    return file.parent_path() / ("." + file.filename().native() + ".lock");
}

bool fileExists(const fs::path &file)
{
    std::error_code error;
    return fs::exists(file, error);
}

} // namespace

std::shared_ptr<StateFile> StateFile::open(const fs::path &file, std::chrono::milliseconds longestWait)
{
    return std::shared_ptr<StateFile>(new StateFile(file, longestWait));
}

StateFile::StateFile(fs::path file, std::chrono::milliseconds longestWait)
    : m_file(std::move(file))
    , m_lock(FileLock::acquire(lockFile(m_file), longestWait))
    , m_exists(fileExists(m_file))
    , m_content(readJsonFile(m_file))
{}

std::optional<std::string> StateFile::obstacle() const
{
    if (m_lock || !m_lock.error().isHeldByOther)
        return std::nullopt;
    return localized("« %1 » est tenu par un autre programme", {m_file.filename().native()});
}

std::optional<std::string> StateFile::save(const nlohmann::json &content, Former former) const
{
    const auto message = [this](const std::string &why) {
        return localized("Enregistrement de « %1 » impossible : %2", {m_file.native(), why});
    };
    if (m_content == content)
        return std::nullopt; // also where nothing can be written
    if (!m_lock)
        return message(m_lock.error().description);
    if (former == Former::Keep) {
        if (const auto kept = keepUnreadableFile(m_file); !kept)
            return message(localized("aucune copie du fichier illisible ne peut être gardée (%1)", {kept.error()}));
    }
    if (const auto written = writeJsonFile(m_file, content); !written)
        return message(written.error());
    return std::nullopt;
}

void StateFile::close()
{
    m_lock = tl::unexpected(FileLock::Error{false, localized("fichier déjà refermé")});
}

} // namespace kerlune
