#include "CLI/CaptureCommand.h"

#include "CLI/Arguments.h"
#include "CLI/CaptureRequest.h"
#include "CLI/DisplayText.h"
#include "CLI/Output.h"
#include "Support/Localization.h"

#include <CLI/CLI.hpp>
#include <tl/expected.hpp>

#include <algorithm>
#include <charconv>
#include <optional>
#include <string_view>
#include <utility>

namespace kerlune {

namespace {

constexpr int kLeastSide = 320;
constexpr int kMostSide = 8192;
constexpr double kMostScale = 4;

template <typename Value>
std::optional<Value> parsed(std::string_view text)
{
    Value value = {};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size() ? std::optional(value) : std::nullopt;
}

std::string joined(const std::vector<std::string> &words)
{
    std::string text;
    for (const std::string &word : words)
        text += (text.empty() ? "" : ", ") + word;
    return text;
}

// Reads the options one after the other; the first wrong one stays.
class CaptureReader final {
public:
    explicit CaptureReader(const CaptureOptions &options)
        : m_options(options)
    {}

    tl::expected<CaptureRequest, std::string> read(const std::vector<std::string> &panels)
    {
        m_request.output = m_options.output;
        m_request.selection = m_options.selection.empty() ? "all" : m_options.selection;
        m_request.families = m_options.families;
        m_request.search = m_options.search;
        m_request.settings = m_options.settings;
        if (!m_options.text.empty())
            m_request.text = m_options.text;
        if (m_options.output.empty())
            refuse(localized("Donnez un fichier PNG : --output FICHIER."));
        readSize();
        readNumbers();
        readWord("--view", m_options.view, {"grid", "list", "waterfall", "compare"},
                 [this](const std::string &word) { m_request.view = *viewModeFromKey(word); });
        readWord("--panel", m_options.panel, panels, [this](const std::string &word) { m_request.panel = word; });
        readWord("--theme", m_options.theme, {"light", "dark"}, [this](const std::string &word) {
            m_request.theme = word == "dark" ? Appearance::dark : Appearance::light;
        });
        readWord("--language", m_options.language, {"fr", "en"}, [this](const std::string &word) {
            m_request.language = word == "en" ? InterfaceLanguage::english : InterfaceLanguage::french;
        });
        if (!m_refusal.empty())
            return tl::unexpected(m_refusal);
        return m_request;
    }

private:
    void refuse(std::string why)
    {
        if (m_refusal.empty())
            m_refusal = std::move(why);
    }

    void readSize()
    {
        if (m_options.size.empty())
            return;
        const std::string_view text = m_options.size;
        const std::size_t cross = text.find('x');
        const int width = parsed<int>(text.substr(0, cross)).value_or(0);
        const int height = parsed<int>(text.substr(std::min(cross, text.size() - 1) + 1)).value_or(0);
        const auto fits = [](int side) { return side >= kLeastSide && side <= kMostSide; };
        if (!fits(width) || !fits(height)) {
            refuse(localized("--size demande LARGEURxHAUTEUR, chacune de %1 à %2, comme 1280x800.",
                             {std::to_string(kLeastSide), std::to_string(kMostSide)}));
            return;
        }
        m_request.width = width;
        m_request.height = height;
    }

    void readNumbers()
    {
        if (!m_options.scale.empty()) {
            const auto scale = parsed<double>(m_options.scale);
            if (scale && *scale >= 1 && *scale <= kMostScale)
                m_request.scale = *scale;
            else
                refuse(localized("--scale demande un nombre de 1 à 4."));
        }
        if (!m_options.previewSize.empty()) {
            m_request.previewSize = parsed<double>(m_options.previewSize);
            if (!m_request.previewSize || !(*m_request.previewSize >= AppState::kLeastPreviewSize) ||
                !(*m_request.previewSize <= AppState::kMostPreviewSize))
                refuse(localized("--preview-size demande un nombre de 4 à 2000."));
        }
    }

    template <typename Take>
    void readWord(const std::string &option, const std::string &word, const std::vector<std::string> &allowed,
                  Take &&take)
    {
        if (word.empty())
            return;
        if (std::find(allowed.begin(), allowed.end(), word) == allowed.end())
            refuse(localized("« %1 » n’est pas une valeur de %2. Valeurs possibles : %3.",
                             {displayText(word), option, joined(allowed)}));
        else
            take(word);
    }

    const CaptureOptions &m_options;
    CaptureRequest m_request;
    std::string m_refusal;
};

} // namespace

void addCaptureOptions(CLI::App &app, CaptureOptions &options)
{
    const std::string group = localized("Options") + "\u00A0";
    const auto add = [&](const char *name, std::string &text, const char *type, const std::string &description) {
        addText(app, name, text, description)->type_name(type)->group(group);
    };
    add("--output", options.output, "PNG", localized("Le fichier à écrire."));
    add("--size", options.size, "LxH", localized("Taille de la fenêtre ; 1280x800 si rien n’est donné."));
    add("--scale", options.scale, "N", localized("Pixels de l’image pour un pixel de la fenêtre, de 1 à 4."));
    add("--selection", options.selection, "SEL", localized("Ce que montre la barre latérale, comme pour families."));
    add("--view", options.view, "VUE", localized("grid, list, waterfall ou compare."));
    addTexts(app, "--family", options.families, localized("Familles sélectionnées."))->type_name("NOM")->group(group);
    add("--panel", options.panel, "NOM", localized("Le panneau de l’inspecteur."));
    add("--theme", options.theme, "NOM", localized("light ou dark."));
    add("--language", options.language, "NOM", localized("fr ou en."));
    add("--search", options.search, "TEXTE", localized("Le texte cherché."));
    add("--text", options.text, "TEXTE", localized("Le texte d’aperçu."));
    add("--preview-size", options.previewSize, "N", localized("Taille de l’aperçu, en points."));
    app.add_flag("--settings", options.settings, localized("La fenêtre des réglages."))->group(group);
}

int runCaptureCommand(const CommandContext &context, const CaptureOptions &options)
{
    const auto request = CaptureReader(options).read(context.window.panels);
    if (!request)
        return reportWrongUsage(request.error());
    return context.window.capture(*request);
}

int runOpenCommand(const CommandContext &context, const std::vector<std::string> &paths)
{
    return context.window.open(paths);
}

} // namespace kerlune
