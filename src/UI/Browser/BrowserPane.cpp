#include "UI/Browser/BrowserPane.h"

#include "UI/Browser/BrowserSelection.h"
#include "UI/Browser/BrowserView.h"
#include "UI/Browser/ComparisonView.h"
#include "UI/Browser/FamilyListModel.h"
#include "UI/InterfaceText.h"

#include <QEvent>
#include <QStackedLayout>

namespace kerlune {

BrowserPane::BrowserPane(Workspace &workspace, QWidget *parent)
    : QWidget(parent)
    , m_workspace(workspace)
    , m_model(new FamilyListModel(workspace, this))
    , m_view(new BrowserView(workspace, *m_model, this))
    , m_selection(new BrowserSelection(workspace, *m_model, *m_view))
    , m_comparison(new ComparisonView(workspace, this))
    , m_stack(new QStackedLayout(this))
{
    m_view->setObjectName(QStringLiteral("families"));
    m_comparison->setObjectName(QStringLiteral("comparison"));
    m_stack->addWidget(m_view);
    m_stack->addWidget(m_comparison);
    connect(m_view, &BrowserView::contextMenuWanted, this, &BrowserPane::contextMenuWanted);
    connect(m_comparison, &ComparisonView::contextMenuWanted, this, &BrowserPane::contextMenuWanted);
    connect(&workspace.theme(), &Theme::changed, m_view, &BrowserView::followPreviewSettings);
    connect(&workspace.state(), &AppState::visibleFamiliesChanged, this, &BrowserPane::followList);
    observeState();
    retranslate();
    followList();
    followViewMode();
}

BrowserPane::~BrowserPane() = default;

void BrowserPane::observeState()
{
    AppState &state = m_workspace.state();
    const auto observe = [this](auto &property, auto follow) { m_observers.push_back(property.addNotifier(follow)); };
    observe(state.previewText, [this] { m_view->followPreviewSettings(); });
    observe(state.previewSize, [this] { m_view->followPreviewSettings(); });
    observe(state.viewMode, [this] { followViewMode(); });
    observe(state.sidebarSelection, [this] { followViewMode(); });
    observe(state.scrollTarget, [this] { followScrollTarget(); });
    observe(state.keyboardFocus, [this] { followKeyboardFocus(); });
    const auto followUserData = [this] { m_model->noteUserDataChanged(); };
    m_observers.push_back(state.favorites.observe(followUserData));
    m_observers.push_back(state.activation().bindableActivePaths().addNotifier(followUserData));
    m_observers.push_back(state.folderLibrary().bindableRevision().addNotifier(followUserData));
}

void BrowserPane::followList()
{
    const AppState::Families families = m_workspace.state().visibleFamilies();
    if (m_model->hasFamilies(families)) {
        m_model->setFamilies(families);
        return;
    }
    const BrowserView::Place place = m_view->place();
    m_selection->hold();
    m_model->setFamilies(families);
    m_selection->restore();
    m_view->restore(place);
    followScrollTarget();
}

// Who had the focus keeps it in the other view.
void BrowserPane::followViewMode()
{
    const ViewMode mode = m_workspace.state().effectiveViewMode();
    const bool hadFocus = m_stack->currentWidget()->hasFocus();
    QWidget *view = mode == ViewMode::compare ? static_cast<QWidget *>(m_comparison) : m_view;
    m_stack->setCurrentWidget(view);
    setFocusProxy(view);
    if (hadFocus)
        focusView();
    switch (mode) {
    case ViewMode::compare:
        break;
    case ViewMode::grid:
        m_view->setMode(BrowserLayout::Mode::grid);
        break;
    case ViewMode::list:
        m_view->setMode(BrowserLayout::Mode::list);
        break;
    case ViewMode::waterfall:
        m_view->setMode(BrowserLayout::Mode::waterfall);
        break;
    }
}

// A target that is not in the list waits for it while the library is being loaded.
void BrowserPane::followScrollTarget()
{
    AppState &state = m_workspace.state();
    if (!state.scrollTarget.value())
        return;
    const std::optional<int> row = m_model->rowOf(*state.scrollTarget.value());
    if (row)
        m_view->scrollTo(m_model->index(*row), QAbstractItemView::PositionAtCenter);
    if (row || state.hasLoaded())
        state.scrollTarget = std::nullopt;
}

void BrowserPane::followKeyboardFocus()
{
    const std::optional<KeyboardFocus> focus = m_workspace.state().keyboardFocus.value();
    const std::optional<int> row = focus ? m_model->rowOf(focus->family) : std::nullopt;
    if (!row)
        return;
    m_view->selectionModel()->setCurrentIndex(m_model->index(*row), QItemSelectionModel::ClearAndSelect);
    m_view->scrollTo(m_model->index(*row));
    focusView();
}

void BrowserPane::focusView()
{
    m_stack->currentWidget()->setFocus(Qt::OtherFocusReason);
}

bool BrowserPane::isPainted() const
{
    const bool isThere = m_stack->currentWidget() == m_comparison ? m_comparison->isPainted() : m_view->isPainted();
    return m_workspace.state().hasLoaded() && isThere;
}

void BrowserPane::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void BrowserPane::retranslate()
{
    m_view->setAccessibleName(uiText("Familles"));
}

} // namespace kerlune
