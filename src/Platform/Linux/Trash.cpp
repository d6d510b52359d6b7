#include "Platform/Trash.h"

#include <QFile>

namespace kerlune {

tl::expected<void, std::string> moveToTrash(const std::filesystem::path &path)
{
    QFile file(QFile::decodeName(path.c_str()));
    if (!file.moveToTrash())
        return tl::unexpected(file.errorString().toStdString());
    return {};
}

} // namespace kerlune
