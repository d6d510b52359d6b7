#include "Support/Uuid.h"

#include <QUuid>

namespace kerlune {

std::string newUuid()
{
    return QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper().toStdString();
}

} // namespace kerlune
