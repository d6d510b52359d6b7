#pragma once

#include "Platform/Directories.h"

#include <string>
#include <vector>

namespace kerlune {

class FontCatalog;
class FontRegistry;

// What a command works on.
struct CommandContext {
    const FontCatalog &catalog;
    FontRegistry &registry;
    const Directories &directories;
};

enum class OutputFormat { Text, Json };

// Exit statuses.
inline constexpr int kDone = 0;
inline constexpr int kFailed = 1;
inline constexpr int kWrongUsage = 2;

int runIndexCommand(const CommandContext &context, OutputFormat format);
int runFacesCommand(const CommandContext &context, OutputFormat format);
int runFoldersCommand(const CommandContext &context, const std::vector<std::string> &words, OutputFormat format);
// The files of the paths, or those of the family that lie in watched folders.
int runActivateCommand(const CommandContext &context, const std::vector<std::string> &paths, const std::string &family,
                       OutputFormat format);
int runDeactivateCommand(const CommandContext &context, const std::vector<std::string> &paths,
                         const std::string &family, OutputFormat format);
int runActiveCommand(const CommandContext &context, OutputFormat format);
int runDuplicatesCommand(const CommandContext &context, const std::vector<std::string> &paths, OutputFormat format);

} // namespace kerlune
