#include "Support/AtomicFile.h"

#include <QFile>
#include <QSaveFile>

namespace kerlune {

tl::expected<void, std::string> writeFileAtomically(const std::filesystem::path &path, std::string_view bytes)
{
    std::error_code ignored; // a folder that could not be made shows when the file is opened
    std::filesystem::create_directories(path.parent_path(), ignored);

    QSaveFile file(QFile::decodeName(path.c_str()));
    const auto size = static_cast<qint64>(bytes.size());
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes.data(), size) != size || !file.flush() ||
        !file.commit()) // commit() alone does not notice that bytes in its buffer found no room
        return tl::unexpected(file.errorString().toStdString());
    return {};
}

} // namespace kerlune
