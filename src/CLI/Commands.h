#pragma once

#include "Platform/Directories.h"

#include <functional>
#include <string>
#include <vector>

namespace kerlune {

class FontCatalog;
class FontRegistry;
class ScriptEngine;
struct CaptureRequest;
struct FilterOptions;

// What the commands of the window call, since they do not know the window. They give the exit status.
struct WindowCommands {
    std::function<int(const std::vector<std::string> &paths)> open;
    std::function<int(const CaptureRequest &request)> capture;
    std::vector<std::string> panels = {}; // their names
};

struct SimilarOptions {
    std::string limit = {};  // a number from 0 on; empty for the usual one
    bool allScripts = false; // non-Latin fonts too
};

enum class CatalogSource { Usual, Service }; // Service: asked even where what is on disk is fresh

// What a command works on.
struct CommandContext {
    const FontCatalog &catalog;
    FontRegistry &registry;
    const Directories &directories;
    const WindowCommands &window;
    ScriptEngine &scripts; // by which hosts are driven
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
int runFingerprintCommand(const CommandContext &context, const std::vector<std::string> &words, OutputFormat format);
int runSimilarCommand(const CommandContext &context, const std::vector<std::string> &words,
                      const SimilarOptions &options, OutputFormat format);
int runGoogleCommand(const CommandContext &context, const std::vector<std::string> &words, CatalogSource source,
                     OutputFormat format);
// Gives the text that is selected in a program the font.
int runApplyCommand(const CommandContext &context, const std::vector<std::string> &words, const std::string &host,
                    OutputFormat format);
int runBackupCommand(const CommandContext &context, const std::string &file, OutputFormat format);
int runRestoreCommand(const CommandContext &context, const std::string &file, OutputFormat format);

} // namespace kerlune
