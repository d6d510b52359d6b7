#include "Support/AtomicFile.h"

#include <QFile>
#include <QSaveFile>

namespace kerlune {

tl::expected<void, std::string> writeFileAtomically(const std::filesystem::path &path, std::string_view bytes)
{
    std::error_code ignored; // a folder that could not be made shows when the file is opened
    std::filesystem::create_directories(path.parent_path(), ignored);

    QSaveFile file(QFile::decodeName(path.c_str()));
    bool isWritten = file.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    while (isWritten && !bytes.empty()) { // only a write that takes nothing at all says why
        const qint64 count = file.write(bytes.data(), static_cast<qint64>(bytes.size()));
        isWritten = count > 0;
        if (isWritten)
            bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    if (!isWritten || !file.commit())
        return tl::unexpected(file.errorString().toStdString());
    return {};
}

} // namespace kerlune
