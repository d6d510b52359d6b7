#pragma once

#include "Platform/Directories.h"

#include <string>
#include <vector>

namespace kerlune {

class FontCatalog;
class FontRegistry;
struct FilterOptions;

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
int runFamiliesCommand(const CommandContext &context, const FilterOptions &options, const std::string &selection,
                       OutputFormat format);
int runTagsCommand(const CommandContext &context, const std::vector<std::string> &words, OutputFormat format);
int runCollectionsCommand(const CommandContext &context, const std::vector<std::string> &words, OutputFormat format);
int runSmartCommand(const CommandContext &context, const std::vector<std::string> &words, const FilterOptions &options,
                    OutputFormat format);
int runFavoritesCommand(const CommandContext &context, const std::vector<std::string> &words, OutputFormat format);
int runRecentsCommand(const CommandContext &context, const std::vector<std::string> &words, OutputFormat format);
int runBackupCommand(const CommandContext &context, const std::string &file, OutputFormat format);
int runRestoreCommand(const CommandContext &context, const std::string &file, OutputFormat format);

} // namespace kerlune
