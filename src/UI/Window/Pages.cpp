#include "UI/Window/Pages.h"

#include "UI/Catalog/CatalogPage.h"
#include "UI/InterfaceText.h"
#include "UI/Window/WelcomeBanner.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPointer>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace kerlune {

namespace {

using Kind = SidebarSelection::Kind;

constexpr int kPatience = 400; // milliseconds

} // namespace

Pages::Pages(Workspace &workspace, QWidget *browser, QWidget *parent)
    : QWidget(parent)
    , m_workspace(workspace)
    , m_stack(new QStackedWidget)
    , m_browser(browser)
    , m_catalog(new CatalogPage(workspace))
    , m_message(new MessagePage(workspace.theme()))
    , m_blank(new QWidget)
    , m_welcome(new WelcomeBanner(workspace))
{
    m_stack->addWidget(m_browser);
    m_stack->addWidget(m_catalog);
    m_stack->addWidget(m_message);
    m_stack->addWidget(m_blank);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_welcome);
    layout->addWidget(m_stack, 1);

    m_updating.setSingleShot(true);
    connect(&m_updating, &QTimer::timeout, this, &Pages::update);
    m_patience.setSingleShot(true);
    connect(&m_patience, &QTimer::timeout, this, &Pages::update);
    m_patience.start(kPatience);
    AppState &state = m_workspace.state();
    connect(&state, &AppState::visibleFamiliesChanged, this, &Pages::updateSoon);
    const auto soon = [this] { updateSoon(); };
    m_observers.push_back(state.hasLoaded.observe(soon));
    m_observers.push_back(state.isIndexing.observe(soon));
    m_observers.push_back(state.loadError.observe(soon));
    m_observers.push_back(state.viewMode.addNotifier(soon));
    m_observers.push_back(state.indexMessage.observe([this] { updateProgress(); }));
    m_observers.push_back(state.indexProgress.observe([this] { updateProgress(); }));
    update();
}

bool Pages::isBrowserShown() const
{
    return m_stack->currentWidget() == m_browser;
}

bool Pages::isPainted() const
{
    return m_stack->currentWidget() != m_catalog || m_catalog->isPainted();
}

bool Pages::isSettled() const
{
    return !m_updating.isActive() && !m_isCounting;
}

void Pages::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        updateSoon();
    QWidget::changeEvent(event);
}

void Pages::updateSoon()
{
    m_updating.start(0); // once for all changes of this turn of the event loop
}

Pages::Page Pages::wantedPage() const
{
    const AppState &state = m_workspace.state();
    const Kind kind = state.sidebarSelection.value().kind;
    if (state.loadError())
        return Page::Failed;
    if (kind == Kind::adobeFonts)
        return Page::NoCatalogue;
    if (kind == Kind::googleFonts)
        return state.viewMode.value() == ViewMode::compare ? Page::Browser : Page::Catalogue;
    if (state.families().empty())
        return state.hasLoaded() && !state.isIndexing() ? Page::NoFonts : Page::Loading;
    const bool showsComparison = state.effectiveViewMode() == ViewMode::compare && !state.comparisonSet.value().empty();
    if (showsComparison || !state.visibleFamilies().empty() || state.isReadingGlyphs())
        return Page::Browser;
    return state.filters.value().isActive() ? Page::NoResult : Page::EmptySelection;
}

void Pages::update()
{
    ++m_countingRun;
    m_isCounting = false;
    m_page = wantedPage();
    if (*m_page != Page::Browser && *m_page != Page::Catalogue)
        m_message->setContent(contentOf(*m_page));
    const bool isPatient = *m_page == Page::Loading && m_patience.isActive();
    m_stack->setCurrentWidget(*m_page == Page::Browser     ? m_browser
                              : *m_page == Page::Catalogue ? m_catalog
                              : isPatient                  ? m_blank
                                                           : static_cast<QWidget *>(m_message));
    m_welcome->setWanted(*m_page == Page::Browser);
    updateProgress();
}

void Pages::updateProgress()
{
    if (m_page == Page::Loading)
        m_message->setProgress(m_workspace.state().indexProgress());
}

MessagePage::Content Pages::contentOf(Page page)
{
    AppState &state = m_workspace.state();
    switch (page) {
    case Page::Loading:
        return {.icon = "kerlune",
                .title = uiText("Kerlune lit vos polices…"),
                .text = uiText("La première lecture dure quelques secondes. Les suivantes n’en ont plus besoin."),
                .hasProgress = true};
    case Page::Failed:
        return {.icon = "warning",
                .title = uiText("La bibliothèque n’a pas pu être ouverte"),
                .text = shown(state.loadError().value_or(std::string())),
                .buttons = {{uiText("Quitter"), [] { QCoreApplication::quit(); }, true}}}; // the next start tries again
    case Page::NoFonts:
        return {.icon = "kerlune",
                .title = uiText("Bienvenue dans Kerlune"),
                .text = uiText("Kerlune réunit toutes vos polices en un seul endroit. Comparez-les avec votre propre "
                               "texte, classez-les, activez celles du moment. Aucun fichier n’est déplacé : ajoutez "
                               "un dossier, ou déposez-le ici."),
                .buttons = {{uiText("Ajouter un dossier…"), [this] { Q_EMIT m_workspace.addFolderWanted(); }, true}}};
    case Page::NoResult:
        return noResult();
    case Page::EmptySelection:
        return emptySelection();
    case Page::NoCatalogue:
        return {.icon = "globe",
                .title = uiText("Catalogue en ligne absent"),
                .text = uiText("Cette version de Kerlune ne contient pas encore de catalogue en ligne. Les polices "
                               "déjà sur cet ordinateur sont sous « Toutes »."),
                .buttons = {
                    {uiText("Voir toutes les polices"), [&state] { state.sidebarSelection = SidebarSelection(); }}}};
    case Page::Catalogue:
    case Page::Browser:
        break;
    }
    return {};
}

// Each filter can be lifted by one click; how many families that brings back is counted bit by bit.
MessagePage::Content Pages::noResult()
{
    AppState &state = m_workspace.state();
    MessagePage::Content content{.icon = "filter",
                                 .title = uiText("Aucune police ne correspond"),
                                 .text = uiText("Levez un filtre pour revoir des polices :")};
    m_criteria = criteriaOf(state.filters.value());
    for (const FilterCriterion &criterion : m_criteria) {
        content.buttons.push_back(
            {uiText("Sans : %1", {criterion.text}), [&state, lifted = criterion.lifted] { state.filters = lifted; }});
    }
    if (state.sidebarSelection.value() != SidebarSelection()) {
        content.buttons.push_back(
            {uiText("Chercher dans toute la bibliothèque"), [&state] { state.sidebarSelection = SidebarSelection(); }});
    }
    content.buttons.push_back({uiText("Tout effacer"), [&state] { state.filters = Filters(); }, true});
    for (MessagePage::Button &button : content.buttons)
        button.text.replace(u'&', QStringLiteral("&&"));
    m_isCounting = true;
    QTimer::singleShot(0, this, [this, run = m_countingRun] { countCriteria(run); }); // the page has to stand first
    return content;
}

QCoro::Task<> Pages::countCriteria(int run)
{
    const QPointer<Pages> self(this);
    for (std::size_t i = 0; run == m_countingRun && i < m_criteria.size(); ++i) {
        auto counting = m_workspace.state().countVisibleWith(m_criteria[i].lifted);
        const std::int64_t count = co_await counting;
        if (!self || run != m_countingRun)
            co_return;
        const QString text = uiText("Sans : %1", {m_criteria[i].text}) + QStringLiteral(" · ") +
                             uiCount("%1 famille", "%1 familles", count);
        m_message->setButtonText(i, QString(text).replace(u'&', QStringLiteral("&&")));
        m_message->setButtonVisible(i, count > 0); // one that brings nothing back is no way out
    }
    if (run == m_countingRun)
        m_isCounting = false;
}

MessagePage::Content Pages::emptySelection() const
{
    switch (m_workspace.state().sidebarSelection.value().kind) {
    case Kind::favorites:
        return {.icon = "star",
                .title = uiText("Pas encore de favoris"),
                .text = uiText("Sélectionnez une police et pressez Ctrl+B, ou cliquez sur son étoile.")};
    case Kind::recents:
        return {.icon = "clock",
                .title = uiText("Rien d’utilisé récemment"),
                .text = uiText("Les polices dont vous copiez le nom ou le CSS se retrouvent ici.")};
    case Kind::collection:
        return {.icon = "collection",
                .title = uiText("Cette collection est vide"),
                .text = uiText("Faites glisser des polices sur son nom, ou passez par le menu Police.")};
    case Kind::tag:
        return {.icon = "tag",
                .title = uiText("Aucune police ne porte ce tag"),
                .text = uiText("Sélectionnez des polices et pressez Ctrl+T.")};
    case Kind::folder:
        return {.icon = "folder",
                .title = uiText("Aucune police dans ce dossier"),
                .text = uiText("Les polices que vous y placez apparaissent ici d’elles-mêmes.")};
    case Kind::smart:
        return {.icon = "smart",
                .title = uiText("Aucune police ne correspond"),
                .text = uiText("Les filtres de cette collection intelligente ne laissent passer aucune police.")};
    case Kind::duplicates:
        return {.icon = "check",
                .title = uiText("Aucun doublon"),
                .text = uiText("Aucun nom PostScript n’est porté par deux polices.")};
    default:
        return {.icon = "info", .title = uiText("Aucune police de ce genre")};
    }
}

} // namespace kerlune
