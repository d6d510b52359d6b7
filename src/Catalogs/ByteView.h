#pragma once

#include <QByteArray>

#include <string_view>

namespace kerlune {

// The bytes of an answer, for what reads them; they must outlive the view.
inline std::string_view viewOf(const QByteArray &bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

} // namespace kerlune
