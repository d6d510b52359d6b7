#include "UI/Drop.h"

#include <QMimeData>
#include <QString>

namespace kerlune {

QByteArray encodeFamilies(const std::vector<std::string> &names)
{
    QByteArray data;
    for (const std::string &name : names) {
        if (name.empty() || name.find('\n') != std::string::npos)
            continue;
        data.append(name.data(), static_cast<qsizetype>(name.size()));
        data.append('\n');
    }
    return data;
}

std::vector<std::string> decodeFamilies(const QByteArray &data)
{
    std::vector<std::string> names;
    for (const QByteArray &line : data.split('\n')) {
        if (!line.isEmpty())
            names.push_back(line.toStdString());
    }
    return names;
}

bool hasFamilies(const QMimeData &data)
{
    return data.hasFormat(QLatin1String(kFamiliesMimeType));
}

std::vector<std::string> droppedFamilies(const QMimeData &data)
{
    return decodeFamilies(data.data(QLatin1String(kFamiliesMimeType)));
}

} // namespace kerlune
