#include "Catalogs/InstalledFamilies.h"

#include "Platform/FontFileNames.h"
#include "Support/JsonFile.h"
#include "Support/Text.h"

#include <algorithm>
#include <system_error>

namespace kerlune {

namespace {

namespace fs = std::filesystem;

std::string familyIn(const fs::path &folder)
{
    const auto file = readJsonFile(folder / kFamilyFile);
    if (file && file->is_object() && file->contains("family") && (*file)["family"].is_string()) {
        if (std::string name = (*file)["family"]; !name.empty())
            return name;
    }
    return validUtf8(folder.filename().native());
}

std::vector<fs::path> entriesOf(const fs::path &folder)
{
    std::vector<fs::path> entries;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error); !error && entry != fs::directory_iterator();
         entry.increment(error)) {
        if (!entry->path().filename().native().starts_with('.'))
            entries.push_back(entry->path());
    }
    std::sort(entries.begin(), entries.end());
    return entries;
}

} // namespace

std::map<std::string, fs::path> installedFamilies(const fs::path &root)
{
    std::map<std::string, fs::path> families;
    for (const fs::path &folder : entriesOf(root)) {
        std::error_code error;
        if (fs::is_directory(folder, error) && !fontFilesIn(folder).empty())
            families.emplace(familyIn(folder), folder);
    }
    return families;
}

std::vector<std::string> fontFilesIn(const fs::path &folder)
{
    std::vector<std::string> files;
    for (const fs::path &file : entriesOf(folder)) {
        std::error_code error;
        if (hasFontName(file.native()) && fs::is_regular_file(file, error))
            files.push_back(file);
    }
    return files;
}

} // namespace kerlune
