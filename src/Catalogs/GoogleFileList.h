#pragma once

#include <QUrl>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kerlune {

// The files of a family as the server of the catalogue lists them: fonts by their addresses, licences by their text.
struct GoogleFileList {
    struct Font {
        std::string name; // as in the list, such as "static/Inter-Bold.ttf"; empty where the font itself has to tell
        QUrl url;         // https

        bool operator==(const Font &) const = default;
    };
    struct Text {
        std::string name;
        std::string contents;

        bool operator==(const Text &) const = default;
    };

    std::vector<Font> fonts;
    std::vector<Text> texts; // that come with the fonts
};

// Absent when the answer has another form or names no font. An address that is named twice counts once. Of a family
// that comes both as a variable font and as single ones, in a folder "static", the variable one is taken: both together
// would have each name twice.
//
// Thread: any.
std::optional<GoogleFileList> parseFileList(std::string_view bytes);

} // namespace kerlune
