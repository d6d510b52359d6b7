#pragma once

#include <QByteArray>

#include <string>
#include <vector>

class QMimeData;

namespace kerlune {

// Families that are dragged from one part of the window to another: their names in UTF-8, one per line. (A name with a
// line end in it cannot be dragged, and is left out.)
inline constexpr const char *kFamiliesMimeType = "application/x-kerlune-families";

QByteArray encodeFamilies(const std::vector<std::string> &names);
std::vector<std::string> decodeFamilies(const QByteArray &data);

bool hasFamilies(const QMimeData &data);
std::vector<std::string> droppedFamilies(const QMimeData &data); // none when it holds something else

} // namespace kerlune
