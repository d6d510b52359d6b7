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

std::shared_ptr<StateFile> StateFile::open(const fs::path &file)
{
    return std::shared_ptr<StateFile>(new StateFile(file));
}

StateFile::StateFile(fs::path file)
    : m_file(std::move(file))
    , m_lock(FileLock::acquire(lockFile(m_file)))
    , m_exists(fileExists(m_file))
    , m_content(readJsonFile(m_file))
{}

std::optional<std::string> StateFile::save(const nlohmann::json &content, Former former) const
{
    const auto message = [this](const std::string &why) {
        return localized("Enregistrement de « %1 » impossible : %2", {m_file.native(), why});
    };
    if (!m_lock)
        return message(m_lock.error());
    if (former == Former::Keep)
        keepUnreadableFile(m_file);
    if (const auto written = writeJsonFile(m_file, content); !written)
        return message(written.error());
    return std::nullopt;
}

void StateFile::close()
{
    m_lock = tl::unexpected(localized("fichier déjà refermé"));
}

} // namespace kerlune
