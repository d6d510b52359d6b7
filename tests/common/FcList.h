#pragma once

#include <array>
#include <cstdio>
#include <set>
#include <string>

namespace kerlune {

// The PostScript names that another program finds through fontconfig, one for each face.
inline std::multiset<std::string> namesInFcList()
{
    std::multiset<std::string> names;
    FILE *const pipe = popen("fc-list : file postscriptname", "r");
    std::array<char, 8192> line{};
    while (pipe != nullptr && fgets(line.data(), line.size(), pipe) != nullptr) {
        const std::string text(line.data());
        if (const auto at = text.rfind("postscriptname="); at != std::string::npos)
            names.insert(text.substr(at + 15, text.find_first_of("\n,", at) - at - 15));
    }
    if (pipe != nullptr)
        pclose(pipe);
    return names;
}

} // namespace kerlune
