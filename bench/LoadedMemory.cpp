// The memory of a process that has read a stored library of 50,000 faces. Prints megabytes and the goal.

#include "MadeRecords.h"
#include "State/LoadedLibrary.h"
#include "Store/FontIndexStore.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

using namespace kerlune;

// "VmRSS" or "VmHWM" of this process, in MB (proc_pid_status(5)).
double statusMegabytes(const std::string &field)
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with(field + ":"))
            return std::stod(line.substr(field.size() + 1)) * 1024 / 1e6;
    }
    return 0;
}

int readLibrary(const std::filesystem::path &database)
{
    const double before = statusMegabytes("VmRSS");
    const auto store = FontIndexStore::open(database);
    if (!store)
        return 1;
    const LoadedLibrary library = makeLibrary((*store)->loadAll());
    std::printf("%zu faces in %zu families: %.0f MB, %.0f MB at most, %.0f MB before; goal: at most 250 MB\n",
                library.records.size(), library.families.size(), statusMegabytes("VmRSS"), statusMegabytes("VmHWM"),
                before);
    return library.records.size() == 50'000 ? 0 : 1;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc > 1)
        return readLibrary(argv[1]);
    const auto folder = std::filesystem::temp_directory_path() / ("kerlune-bench-" + std::to_string(getpid()));
    std::filesystem::create_directories(folder);
    const auto database = folder / "index.sqlite";
    bool isSaved = false;
    if (const auto store = FontIndexStore::open(database))
        isSaved = (*store)->replaceAll(MadeRecords::make(10'000, 5)).has_value();
    int status = -1;
    const pid_t child = isSaved ? fork() : -1; // a process of its own: this one still holds what it wrote
    if (child == 0)
        execl(argv[0], argv[0], database.c_str(), nullptr);
    if (child > 0)
        waitpid(child, &status, 0);
    std::filesystem::remove_all(folder);
    return status == 0 ? 0 : 1;
}
