#include "UI/Catalog/CatalogPage.h"

#include "UI/Catalog/CatalogActions.h"
#include "UI/Catalog/CatalogBar.h"
#include "UI/Catalog/CatalogList.h"
#include "UI/Catalog/CatalogModel.h"
#include "UI/InterfaceText.h"
#include "UI/MessagePage.h"

#include <QEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <utility>

namespace kerlune {

CatalogPage::CatalogPage(Workspace &workspace, QWidget *parent)
    : QWidget(parent)
    , m_workspace(workspace)
    , m_model(new CatalogModel(workspace, this))
    , m_actions(new CatalogActions(workspace, *this))
    , m_bar(new CatalogBar(workspace))
    , m_stale(new QFrame)
    , m_stack(new QStackedWidget)
    , m_list(new CatalogList(workspace, *m_model))
    , m_message(new MessagePage(workspace.theme()))
{
    m_message->setObjectName(QStringLiteral("catalogMessage"));
    m_stack->addWidget(m_list);
    m_stack->addWidget(m_message);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_bar);
    layout->addWidget(makeStaleNote());
    layout->addWidget(m_stack, 1);
    m_updating.setSingleShot(true);
    connect(&m_updating, &QTimer::timeout, this, &CatalogPage::update);
    follow();
}

QWidget *CatalogPage::makeStaleNote()
{
    m_stale->setProperty("chip", true);
    m_staleText = new QLabel;
    m_staleText->setTextFormat(Qt::PlainText);
    m_staleText->setWordWrap(true);
    m_retry = new QPushButton;
    m_retry->setObjectName(QStringLiteral("catalogRetry"));
    auto *row = new QHBoxLayout(m_stale);
    row->setContentsMargins(kCardGap, kGridStep, kCardGap, kGridStep);
    row->addWidget(m_staleText, 1);
    row->addWidget(m_retry);
    auto *inset = new QWidget;
    auto *layout = new QVBoxLayout(inset);
    layout->setContentsMargins(kCardGap, 0, kCardGap, 0);
    layout->addWidget(m_stale);
    return inset;
}

void CatalogPage::follow()
{
    AppState &state = m_workspace.state();
    const auto soon = [this] { updateSoon(); };
    const auto again = [this] { m_workspace.state().loadGoogleCatalog(true); };
    connect(m_bar, &CatalogBar::queryChanged, this, &CatalogPage::updateSoon);
    connect(m_bar, &CatalogBar::refreshWanted, this, again);
    connect(m_retry, &QPushButton::clicked, this, again);
    connect(m_list, &CatalogList::familyChosen, this,
            [&state](const std::string &family) { state.googleSelectedFamily = family; });
    connect(m_list, &CatalogList::installWanted, m_actions, &CatalogActions::install);
    connect(m_list, &CatalogList::menuWanted, m_actions, &CatalogActions::openMenu);
    m_observers.push_back(state.googleCatalog.observe([this] {
        m_bar->setCategories(categoriesOf(m_workspace.state().googleCatalog()));
        updateSoon();
    }));
    m_observers.push_back(state.googleCatalogLoading.observe(soon));
    m_observers.push_back(state.googleCatalogError.observe(soon));
    m_observers.push_back(state.googleInstalledFamilies.observe([this] {
        m_model->noteChanged();
        updateSoon();
    }));
    m_observers.push_back(state.googleInstallProgress.observe([this] { m_model->noteChanged(); }));
    m_observers.push_back(state.filters.addNotifier(soon));
    m_observers.push_back(state.viewMode.addNotifier(soon));
}

void CatalogPage::updateSoon()
{
    if (!m_updating.isActive())
        m_updating.start(0); // once for all changes of this turn of the event loop
}

void CatalogPage::update()
{
    AppState &state = m_workspace.state();
    CatalogQuery query = m_bar->query();
    query.search = state.filters.value().search;
    m_model->setFamilies(listed(state.googleCatalog(), state.googleInstalledFamilies(), query));
    m_workspace.catalogCount = static_cast<std::int64_t>(m_model->families().size());
    const ViewMode mode = state.viewMode.value();
    m_list->setForm(mode == ViewMode::grid        ? CatalogDelegate::Form::Card
                    : mode == ViewMode::waterfall ? CatalogDelegate::Form::Waterfall
                                                  : CatalogDelegate::Form::Line);
    if (const auto &selected = state.googleSelectedFamily.value())
        m_list->setCurrentFamily(*selected);
    if (std::exchange(m_query, query) != query)
        m_list->scrollToTop(); // another list; the same one read again stays where it is
    m_list->setAccessibleName(uiText("Familles de Google Fonts"));

    const auto &error = state.googleCatalogError();
    m_stale->setVisible(error && !state.googleCatalog().empty() && !state.googleCatalogLoading());
    if (error)
        m_staleText->setText(uiText("Catalogue indisponible") + QStringLiteral(" · ") + shown(*error));
    m_retry->setText(uiText("Réessayer"));
    if (m_model->families().empty())
        showMessage();
    m_stack->setCurrentWidget(m_model->families().empty() ? static_cast<QWidget *>(m_message) : m_list);
}

void CatalogPage::showMessage()
{
    AppState &state = m_workspace.state();
    if (!state.googleCatalog().empty()) {
        m_message->setContent({.icon = "filter",
                               .title = uiText("Aucune famille ne correspond"),
                               .text = uiText("Le catalogue en a d’autres, sans cette recherche et ces filtres."),
                               .buttons = {{uiText("Tout effacer"),
                                            [this] {
                                                m_workspace.state().filters = Filters();
                                                m_bar->clear();
                                            },
                                            true}}});
    } else if (const auto &error = state.googleCatalogError(); error && !state.googleCatalogLoading()) {
        m_message->setContent({.icon = "warning",
                               .title = uiText("Catalogue indisponible"),
                               .text = shown(*error),
                               .buttons = {{uiText("Réessayer"), [&state] { state.loadGoogleCatalog(true); }, true}}});
    } else {
        m_message->setContent({.icon = "globe",
                               .title = uiText("Lecture du catalogue Google Fonts…"),
                               .text = uiText("La liste est gardée une semaine sur cet ordinateur.")});
    }
}

void CatalogPage::focusView()
{
    m_list->setFocus();
}

bool CatalogPage::isPainted() const
{
    const AppState &state = m_workspace.state();
    if (m_updating.isActive() || state.googleCatalogLoading())
        return false;
    if (state.googleCatalog().empty())
        return state.googleCatalogError().has_value();
    return m_model->families().empty() || m_list->isPainted();
}

void CatalogPage::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    m_workspace.state().refreshGoogleInstalled();
    m_workspace.state().loadGoogleCatalog(false);
    updateSoon();
}

void CatalogPage::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        updateSoon();
}

} // namespace kerlune
