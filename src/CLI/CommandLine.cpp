#include "CLI/CommandLine.h"

#include "CLI/Arguments.h"
#include "CLI/CaptureCommand.h"
#include "CLI/DisplayText.h"
#include "CLI/FilterOptions.h"
#include "CLI/Output.h"
#include "Support/Localization.h"
#include "Support/Text.h"

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

std::string usageMessage(const CLI::App &app, const CLI::ParseError &error)
{
    const auto unexpected = app.remaining(true);
    if (!unexpected.empty())
        return localized("Argument inattendu : « %1 ».", {displayText(withoutSign(unexpected.front()))});
    const std::string what = error.what();
    if (dynamic_cast<const CLI::ArgumentMismatch *>(&error) != nullptr)
        return localized("« %1 » demande une valeur, et une seule.", {what.substr(0, what.find(':'))});
    return localized("Arguments incorrects : %1", {what});
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
        addStateCommands();
        addWindowCommands();
    }

    int run(int argc, const char *const *argv, const CommandContext &context)
    {
        try {
            m_app.parse(signedArguments(m_app, argc, argv));
        } catch (const CLI::CallForHelp &) {
            std::cout << m_app.help();
            return finish(kDone);
        } catch (const CLI::CallForVersion &) {
            std::cout << m_app.version() << '\n';
            return finish(kDone);
        } catch (const CLI::ParseError &error) {
            return reportUnparsable(usageMessage(m_app, error));
        }
        if (!m_chosen) // the window is what one gets without asking for anything else
            return context.window.open({});
        if (m_takesTexts) {
            const auto damaged = std::find_if_not(argv + 1, argv + argc, isValidUtf8);
            if (damaged != argv + argc)
                return reportWrongUsage(localized("« %1 » n’est pas de l’UTF-8 valide.", {displayText(*damaged)}));
        }
        return finish(m_chosen(context, m_arguments, m_format));
    }

private:
    static std::string optionsGroup() { return localized("Options") + "\u00A0"; }

    // A command without any option but those that its caller adds.
    CLI::App *addPlain(const std::string &name, const std::string &description, Command command)
    {
        CLI::App *subcommand = m_app.add_subcommand(name, description)->group(localized("Commandes") + "\u00A0");
        subcommand->get_help_ptr()->group(optionsGroup());
        subcommand->callback([this, command = std::move(command)] { m_chosen = command; });
        return subcommand;
    }

    CLI::App *add(const std::string &name, const std::string &description, Command command)
    {
        CLI::App *subcommand = addPlain(name, description, std::move(command));
        subcommand
            ->add_flag_callback(
                "--json", [this] { m_format = OutputFormat::Json; }, localized("Écrit le résultat en JSON."))
            ->group(optionsGroup());
        return subcommand;
    }

    CLI::App *add(const std::string &name, const std::string &description, const Operands &operands, Command command)
    {
        CLI::App *subcommand = add(name, description, std::move(command));
        addTexts(*subcommand, operands.name, m_arguments, operands.description);
        return subcommand;
    }

    // A command whose arguments are names and other texts, but no paths.
    CLI::App *addForTexts(const std::string &name, const std::string &description, Command command)
    {
        CLI::App *subcommand = add(name, description, std::move(command));
        subcommand->preparse_callback([this](std::size_t) { m_takesTexts = true; });
        return subcommand;
    }

    void addActions(CLI::App *subcommand, const std::string &actions)
    {
        addTexts(*subcommand, "ACTION", m_arguments, localized("list (si rien n’est donné) ; ") + actions);
    }

    void addStateCommands()
    {
        CLI::App *families = addForTexts("families", localized("Affiche les familles de la bibliothèque, filtrées."),
                                         [this](const CommandContext &context, const Arguments &, OutputFormat format) {
                                             return runFamiliesCommand(context, m_filters, m_selection, format);
                                         });
        addFilterOptions(*families, m_filters);
        addText(*families, "--selection", m_selection,
                localized("Ce qui est filtré : all, favorites, recents, variable, color, duplicates, class:CLASSE, "
                          "collection:ID-OU-NOM, folder:ID-OU-CHEMIN, tag:TAG, smart:ID-OU-NOM."))
            ->type_name(localized("SÉLECTION"))
            ->group(optionsGroup());
        addActions(addForTexts("tags", localized("Gère les tags des familles."), runTagsCommand),
                   localized("add TAG FAMILLE… ; remove TAG FAMILLE… ; rename TAG NOUVEAU ; delete TAG"));
        addActions(addForTexts("collections", localized("Gère les collections de familles."), runCollectionsCommand),
                   localized("create NOM ; rename ID NOM ; delete ID ; add ID FAMILLE… ; remove ID FAMILLE…"));
        CLI::App *smart =
            addForTexts("smart", localized("Gère les collections intelligentes, des filtres gardés sous un nom."),
                        [this](const CommandContext &context, const Arguments &words, OutputFormat format) {
                            return runSmartCommand(context, words, m_filters, format);
                        });
        addActions(smart, localized("save NOM FILTRES ; update ID FILTRES ; rename ID NOM ; delete ID"));
        addFilterOptions(*smart, m_filters);
        addActions(addForTexts("favorites", localized("Gère les familles favorites."), runFavoritesCommand),
                   localized("add FAMILLE… ; remove FAMILLE…"));
        addActions(addForTexts("recents", localized("Gère les familles utilisées récemment."), runRecentsCommand),
                   localized("add FAMILLE…"));
        addTexts(*addForTexts("fingerprint",
                              localized("Affiche l’empreinte d’une police : 872 nombres qui décrivent le "
                                        "dessin de ses lettres."),
                              runFingerprintCommand),
                 localized("NOM-POSTSCRIPT"), m_arguments, localized("Le nom PostScript de la police."));
        addSimilar();
        addGoogle();
        addApply();
        addBackup("backup", localized("Sauvegarde les tags, collections, favoris et familles récentes."),
                  runBackupCommand);
        addBackup("restore", localized("Ajoute ce que contient une sauvegarde."), runRestoreCommand);
    }

    void addSimilar()
    {
        CLI::App *similar =
            addForTexts("similar", localized("Cherche les polices dont le dessin ressemble à celui d’une police."),
                        [this](const CommandContext &context, const Arguments &words, OutputFormat format) {
                            return runSimilarCommand(context, words, m_similar, format);
                        });
        addTexts(*similar, localized("NOM-POSTSCRIPT"), m_arguments, localized("Le nom PostScript de la police."));
        addText(*similar, "--limit", m_similar.limit, localized("Nombre de résultats au plus ; 8 si rien n’est donné."))
            ->type_name(localized("NOMBRE"))
            ->group(optionsGroup());
        similar->add_flag("--all-scripts", m_similar.allScripts, localized("Avec les polices non latines."))
            ->group(optionsGroup());
    }

    void addGoogle()
    {
        CLI::App *google =
            addForTexts("google", localized("Consulte le catalogue Google Fonts, et en installe des familles."),
                        [this](const CommandContext &context, const Arguments &words, OutputFormat format) {
                            return runGoogleCommand(context, words, m_googleSource, format);
                        });
        addTexts(*google, "ACTION", m_arguments,
                 localized("catalog (si rien n’est donné) ; preview FAMILLE ; subsets ; install FAMILLE ; "
                           "remove FAMILLE"));
        google
            ->add_flag_callback(
                "--refresh", [this] { m_googleSource = CatalogSource::Service; },
                localized("Demande le catalogue au service, même si celui du disque a moins de sept jours."))
            ->group(optionsGroup());
    }

    void addApply()
    {
        CLI::App *apply =
            addForTexts("apply", localized("Applique une police au texte sélectionné dans un autre programme."),
                        [this](const CommandContext &context, const Arguments &words, OutputFormat format) {
                            return runApplyCommand(context, words, m_host, format);
                        });
        addTexts(*apply, localized("NOM-POSTSCRIPT"), m_arguments, localized("Le nom PostScript de la police."));
        addText(*apply, "--to", m_host,
                localized("Le programme\u00A0: photoshop, illustrator, indesign, after-effects ou resolve."))
            ->type_name(localized("PROGRAMME"))
            ->group(optionsGroup());
    }

    void addWindowCommands()
    {
        addPlain("open", localized("Ouvre la fenêtre, ou la met devant ; les dossiers donnés sont surveillés."),
                 [this](const CommandContext &context, const Arguments &, OutputFormat) {
                     return runOpenCommand(context, m_arguments);
                 });
        addTexts(*m_app.get_subcommand("open"), "CHEMIN", m_arguments, localized("Dossiers ou polices à montrer."));
        addPlain("capture", localized("Écrit une image de la fenêtre, sans écran."),
                 [this](const CommandContext &context, const Arguments &, OutputFormat) {
                     return runCaptureCommand(context, m_capture);
                 });
        addCaptureOptions(*m_app.get_subcommand("capture"), m_capture);
    }

    void addBackup(const std::string &name, const std::string &description,
                   int (*command)(const CommandContext &, const std::string &, OutputFormat))
    {
        CLI::App *subcommand = add(name, description,
                                   [this, command](const CommandContext &context, const Arguments &,
                                                   OutputFormat format) { return command(context, m_file, format); });
        addText(*subcommand, "FICHIER", m_file, localized("Le fichier, ou « - » pour la sortie ou l’entrée standard."));
    }

    void addActivation(const std::string &name, const std::string &description,
                       int (*command)(const CommandContext &, const Arguments &, const std::string &, OutputFormat))
    {
        CLI::App *subcommand =
            add(name, description, {"CHEMIN", localized("Fichiers, ou dossiers avec tout ce qu’ils contiennent.")},
                [this, command](const CommandContext &context, const Arguments &paths, OutputFormat format) {
                    return command(context, paths, m_family, format);
                });
        addText(*subcommand, "--family", m_family,
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
    FilterOptions m_filters;
    std::string m_selection;
    std::string m_file;
    SimilarOptions m_similar;
    CatalogSource m_googleSource = CatalogSource::Usual;
    std::string m_host;
    CaptureOptions m_capture;
    bool m_takesTexts = false; // which have to be UTF-8
    OutputFormat m_format = OutputFormat::Text;
    Command m_chosen;
};

} // namespace

int runCommandLine(int argc, const char *const *argv, const CommandContext &context)
{
    return Parser().run(argc, argv, context);
}

} // namespace kerlune
