#include "UI/Toolbar/Toolbar.h"

#include "UI/InterfaceText.h"
#include "UI/SearchField.h"
#include "UI/Toolbar/PreviewTextBox.h"
#include "UI/Toolbar/SizeControl.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QToolButton>

#include <algorithm>

namespace kerlune {

namespace {

constexpr int kWidthForNumber = 640; // below it the number of the size gives room to the rest
constexpr int kWidthForSize = 500;   // below it the slider too; the menus still change the size
constexpr int kNarrowGap = 8;

const char *iconOf(ViewMode mode)
{
    switch (mode) {
    case ViewMode::grid:
        return "grid";
    case ViewMode::list:
        return "list";
    case ViewMode::waterfall:
        return "waterfall";
    case ViewMode::compare:
        return "compare";
    }
    return "grid";
}

} // namespace

Toolbar::Toolbar(Workspace &workspace, QWidget *parent)
    : QWidget(parent)
    , m_workspace(workspace)
    , m_search(new SearchField(this))
    , m_previewText(new PreviewTextBox(workspace, this))
    , m_size(new SizeControl(workspace, this))
    , m_apply(new QToolButton(this))
    , m_viewModeGroup(new QButtonGroup(this))
{
    setObjectName(QStringLiteral("toolbar"));
    setFixedHeight(kToolbarHeight);
    addSearch();
    addViewModes();
    layOut();
    retranslate();
    showSearch();
    showViewMode();
}

void Toolbar::addSearch()
{
    m_search->setObjectName(QStringLiteral("search"));
    m_search->addAction(m_workspace.theme().icon("search"), QLineEdit::LeadingPosition);
    m_search->installEventFilter(this);
    connect(m_search, &QLineEdit::textChanged, this, [this](const QString &text) {
        AppState &state = m_workspace.state();
        Filters filters = state.filters.value();
        filters.search = text.toStdString();
        if (filters != state.filters.value())
            state.filters = std::move(filters);
    });
    connect(&m_workspace, &Workspace::searchWanted, this, &Toolbar::focusSearch);
    m_observers.push_back(m_workspace.state().filters.addNotifier([this] { showSearch(); }));
}

void Toolbar::addViewModes()
{
    AppState &state = m_workspace.state();
    for (const ViewMode mode : {ViewMode::grid, ViewMode::list, ViewMode::waterfall, ViewMode::compare}) {
        auto *button = new QToolButton(this);
        button->setObjectName(QStringLiteral("viewMode%1").arg(static_cast<int>(mode)));
        button->setIcon(m_workspace.theme().icon(iconOf(mode)));
        button->setIconSize({20, 20});
        button->setCheckable(true);
        button->setFixedSize(32, 32);
        button->setFocusPolicy(Qt::TabFocus);
        m_viewModeGroup->addButton(button, static_cast<int>(mode));
        m_viewModes.emplace_back(mode, button);
    }
    connect(m_viewModeGroup, &QButtonGroup::idClicked, this,
            [&state](int id) { state.viewMode = static_cast<ViewMode>(id); });
    m_observers.push_back(state.viewMode.addNotifier([this] { showViewMode(); }));
    m_observers.push_back(state.sidebarSelection.addNotifier([this] { showViewMode(); }));
}

void Toolbar::layOut()
{
    m_search->setMinimumWidth(80);
    m_previewText->setMinimumWidth(84);
    auto *layout = new QHBoxLayout(this);
    layout->setSizeConstraint(QLayout::SetNoConstraint); // in a narrow window parts of it step aside
    layout->setContentsMargins(kCardGap, 0, kCardGap, 0);
    layout->setSpacing(kCardGap);
    layout->addWidget(m_search, 7);
    layout->addWidget(m_previewText, 5);
    layout->addWidget(m_size, 3);
    auto *modes = new QHBoxLayout;
    modes->setSpacing(2);
    for (const auto &[mode, button] : m_viewModes)
        modes->addWidget(button);
    layout->addLayout(modes);
    layout->addWidget(m_apply);
}

void Toolbar::setApply(QAction &action, QMenu &menu)
{
    m_apply->setObjectName(QStringLiteral("applyButton"));
    m_apply->setPopupMode(QToolButton::MenuButtonPopup);
    m_apply->setIconSize({20, 20});
    m_apply->setFixedSize(50, 32);
    m_apply->setIcon(m_workspace.theme().icon("apply"));
    m_apply->setMenu(&menu);
    connect(m_apply, &QToolButton::clicked, &action, &QAction::trigger);
    const auto follow = [this, &action] {
        m_apply->setEnabled(action.isEnabled());
        m_apply->setAccessibleName(action.text());
        m_apply->setToolTip(action.toolTip());
    };
    connect(&action, &QAction::changed, this, follow);
    follow();
}

void Toolbar::focusSearch()
{
    m_search->setFocus(Qt::ShortcutFocusReason);
    m_search->selectAll();
}

void Toolbar::focusPreviewText()
{
    m_previewText->setFocus(Qt::ShortcutFocusReason);
    m_previewText->selectAll();
}

bool Toolbar::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_search || event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent *>(event)->key();
    if (key == Qt::Key_Escape && !m_search->text().isEmpty()) {
        m_search->clear();
        return true;
    }
    if (key == Qt::Key_Escape || key == Qt::Key_Down || key == Qt::Key_Return || key == Qt::Key_Enter) {
        Q_EMIT m_workspace.browserWanted();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void Toolbar::resizeEvent(QResizeEvent *event)
{
    m_size->setNumberVisible(width() >= kWidthForNumber);
    m_size->setVisible(width() >= kWidthForSize);
    layout()->setSpacing(width() >= kWidthForNumber ? kCardGap : kNarrowGap);
    QWidget::resizeEvent(event);
}

// The cursor stays where the user types.
void Toolbar::showSearch()
{
    const QString wanted = QString::fromStdString(m_workspace.state().filters.value().search);
    if (wanted == m_search->text())
        return;
    const int cursor = m_search->cursorPosition();
    m_search->setText(wanted);
    m_search->setCursorPosition(std::min(cursor, static_cast<int>(wanted.size())));
}

void Toolbar::showViewMode()
{
    const ViewMode mode = m_workspace.state().effectiveViewMode();
    const bool canChoose = m_workspace.state().sidebarSelection.value().kind != SidebarSelection::Kind::duplicates;
    for (const auto &[each, button] : m_viewModes) {
        button->setChecked(each == mode);
        button->setEnabled(canChoose || each == mode);
    }
}

void Toolbar::retranslate()
{
    m_search->setPlaceholderText(uiText("Rechercher une famille, un style, un créateur…"));
    m_search->setAccessibleName(uiText("Rechercher"));
    m_search->setToolTip(uiText("Nom de la famille, nom PostScript du style, fonderie ou créateur"));
    for (const auto &[mode, button] : m_viewModes) {
        const QString text = shown(label(mode));
        button->setToolTip(text);
        button->setAccessibleName(text);
    }
}

void Toolbar::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

} // namespace kerlune
