#include "CLI/CommandLine.h"

#include "CLI/Output.h"
#include "Support/Localization.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <functional>
#include <iostream>
#include <string>
#include <vector>

namespace kerlune {

namespace {

using Arguments = std::vector<std::string>;
using Command = std::function<int(const CommandContext &, const Arguments &, OutputFormat)>;

// What a command may be given besides its options, any number of times.
struct Operands {
    std::string name; // as the help shows it
    std::string description;
};

// A command that is given nothing.
Command alone(int (*run)(const CommandContext &, OutputFormat))
{
    return
        [run](const CommandContext &context, const Arguments &, OutputFormat format) { return run(context, format); };
}

std::shared_ptr<CLI::Formatter> makeHelpFormatter()
{
    auto formatter = std::make_shared<CLI::Formatter>();
    formatter->label("Usage", localized("Utilisation") + "\u00A0"); // CLI11 adds the colon
    formatter->label("Positionals", localized("Arguments") + "\u00A0");
    formatter->label("OPTIONS", localized("OPTIONS"));
    formatter->label("SUBCOMMAND", localized("COMMANDE"));
    formatter->column_width(24);
    return formatter;
}

// A sign before an argument that is to reach its command as it is. CLI11 would take "[a,b]" for a list of two, and
// forget after the first path that "--" ends the options. The sign is removed before anything sees it.
constexpr char kLiteral = '\x01';

// The last argument comes first, as CLI11 wants them.
std::vector<std::string> withSigns(int argc, const char *const *argv)
{
    std::vector<std::string> arguments;
    bool isLiteral = false;
    for (int i = 1; i < argc; ++i) {
        const std::string text(argv[i]);
        if (!isLiteral && text == "--")
            isLiteral = true;
        else
            arguments.push_back(isLiteral || text.starts_with('[') || text.starts_with(kLiteral) ? kLiteral + text
                                                                                                 : text);
    }
    std::reverse(arguments.begin(), arguments.end());
    return arguments;
}

std::string withoutSign(std::string argument)
{
    if (argument.starts_with(kLiteral))
        argument.erase(0, 1);
    return argument;
}

std::string usageMessage(const CLI::App &app, const CLI::ParseError &error)
{
    const auto unexpected = app.remaining(true);
    if (!unexpected.empty())
        return localized("Argument inattendu : « %1 ».", {withoutSign(unexpected.front())});
    return localized("Arguments incorrects : %1", {error.what()});
}

int reportUnparsable(const std::string &message)
{
    return reportWrongUsage(message, localized("« kerlune --help » donne les commandes."));
}

class Parser final {
public:
    Parser()
        : m_app(localized("Kerlune, la bibliothèque de polices."), "kerlune")
    {
        m_app.formatter(makeHelpFormatter());
        m_app.set_help_flag("-h,--help", localized("Affiche cette aide."))->group(optionsGroup());
        m_app.set_version_flag("--version", "kerlune " KERLUNE_VERSION, localized("Affiche la version."))
            ->group(optionsGroup());
        m_app.require_subcommand(0, 1);
        add("index", localized("Relit toutes les polices disponibles et enregistre l’index."), alone(runIndexCommand));
        add("faces", localized("Affiche les polices de l’index."), alone(runFacesCommand));
        add("folders", localized("Gère les dossiers surveillés : list, add, remove, auto on|off, rescan."),
            {"ACTION", localized("list (si rien n’est donné) ; add CHEMIN ; remove CHEMIN-OU-ID ; "
                                 "auto CHEMIN-OU-ID on|off ; rescan")},
            runFoldersCommand);
        addActivation("activate", localized("Rend des polices visibles pour tous les programmes."), runActivateCommand);
        addActivation("deactivate", localized("Retire des polices aux autres programmes ; aucun fichier n’est effacé."),
                      runDeactivateCommand);
        add("active", localized("Affiche les fichiers actifs."), alone(runActiveCommand));
        add("duplicates", localized("Cherche les polices en double : noms PostScript en conflit, copies, versions."),
            {"CHEMIN", localized("Dossiers ou fichiers à examiner, au lieu de ceux où les polices s’installent.")},
            runDuplicatesCommand);
        for (CLI::App *subcommand : m_app.get_subcommands({})) {
            for (CLI::Option *option : subcommand->get_options())
                option->transform(withoutSign);
        }
    }

    int run(int argc, const char *const *argv, const CommandContext &context)
    {
        try {
            m_app.parse(withSigns(argc, argv));
        } catch (const CLI::CallForHelp &) {
            std::cout << m_app.help();
            return finish(kDone);
        } catch (const CLI::CallForVersion &) {
            std::cout << m_app.version() << '\n';
            return finish(kDone);
        } catch (const CLI::ParseError &error) {
            return reportUnparsable(usageMessage(m_app, error));
        }
        if (!m_chosen)
            return reportUnparsable(localized("Il manque une commande."));
        return finish(m_chosen(context, m_arguments, m_format));
    }

private:
    static std::string optionsGroup() { return localized("Options") + "\u00A0"; }

    CLI::App *add(const std::string &name, const std::string &description, Command command)
    {
        CLI::App *subcommand = m_app.add_subcommand(name, description)->group(localized("Commandes") + "\u00A0");
        subcommand->get_help_ptr()->group(optionsGroup());
        subcommand
            ->add_flag_callback(
                "--json", [this] { m_format = OutputFormat::Json; }, localized("Écrit le résultat en JSON."))
            ->group(optionsGroup());
        subcommand->callback([this, command = std::move(command)] { m_chosen = command; });
        return subcommand;
    }

    CLI::App *add(const std::string &name, const std::string &description, const Operands &operands, Command command)
    {
        CLI::App *subcommand = add(name, description, std::move(command));
        subcommand->add_option(operands.name, m_arguments, operands.description)->type_name("");
        return subcommand;
    }

    void addActivation(const std::string &name, const std::string &description,
                       int (*command)(const CommandContext &, const Arguments &, const std::string &, OutputFormat))
    {
        add(name, description, {"CHEMIN", localized("Fichiers, ou dossiers avec tout ce qu’ils contiennent.")},
            [this, command](const CommandContext &context, const Arguments &paths, OutputFormat format) {
                return command(context, paths, m_family, format);
            })
            ->add_option("--family", m_family,
                         localized("Les fichiers de cette famille qui sont dans les dossiers surveillés."))
            ->type_name(localized("NOM"))
            ->group(optionsGroup());
    }

    // A result that could not be written (a full disk, a closed pipe) is no result.
    static int finish(int status)
    {
        std::cout.flush();
        if (std::cout.good() || status != kDone)
            return status;
        return reportFailure(localized("Écriture de la sortie impossible."));
    }

    CLI::App m_app;
    Arguments m_arguments;
    std::string m_family;
    OutputFormat m_format = OutputFormat::Text;
    Command m_chosen;
};

} // namespace

int runCommandLine(int argc, const char *const *argv, const CommandContext &context)
{
    return Parser().run(argc, argv, context);
}

} // namespace kerlune
