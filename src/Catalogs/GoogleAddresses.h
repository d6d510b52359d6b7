#pragma once

#include <QString>
#include <QUrl>

#include <optional>
#include <string>
#include <string_view>

namespace kerlune {

// Where the services of Google Fonts are, or those that stand in for them.
struct GoogleAddresses {
    QUrl metadata; // of the catalogue
    QUrl css;      // of style sheets

    // The given addresses; an empty one takes that of Google. One without a path, or whose path ends with "/", is
    // completed with the service's own path.
    static GoogleAddresses from(const QString &metadata, const QString &css);

    // The style sheet of a family, optionally with a style specification, and with only the characters of a text.
    QUrl styleSheet(const std::string &family, const std::optional<std::string> &spec,
                    std::string_view text = {}) const;
    // The list of a family's files, on the server of the catalogue.
    QUrl fileList(const std::string &family) const;

    bool operator==(const GoogleAddresses &) const = default;
};

} // namespace kerlune
