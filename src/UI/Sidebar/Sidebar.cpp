#include "UI/Sidebar/Sidebar.h"

#include "UI/InterfaceText.h"
#include "UI/Sidebar/SidebarActions.h"
#include "UI/Sidebar/SidebarModel.h"
#include "UI/Sidebar/SidebarView.h"
#include "UI/Sidebar/TagPrompt.h"

#include <QEvent>
#include <QMenu>
#include <QToolButton>
#include <QVBoxLayout>

namespace kerlune {

namespace {

using Kind = SidebarSelection::Kind;

QString collapsedKey(SidebarGroup group)
{
    const std::string_view key = sidebarGroupKey(group);
    return QStringLiteral("sidebar/collapsed/") + QLatin1String(key.data(), static_cast<int>(key.size()));
}

} // namespace

Sidebar::Sidebar(Workspace &workspace, QWidget *parent)
    : QWidget(parent)
    , m_workspace(workspace)
    , m_model(new SidebarModel(workspace, this))
    , m_view(new SidebarView(*m_model, workspace.theme(), this))
    , m_actions(new SidebarActions(workspace, *this))
{
    setObjectName(QStringLiteral("sidebar"));
    m_view->setObjectName(QStringLiteral("sidebarTree"));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_view);
    setFocusProxy(m_view);

    for (const SidebarGroup group : {SidebarGroup::folders, SidebarGroup::collections, SidebarGroup::tags})
        addHeadButton(group);
    connectModel();
    connectView();
    restoreExpanded();
    retranslate();
    showSelection();
}

void Sidebar::connectModel()
{
    connect(m_model, &SidebarModel::updating, this, [this] { m_isUpdating = true; });
    connect(m_model, &SidebarModel::updated, this, [this] {
        m_isUpdating = false;
        showSelection();
    });
    m_observers.push_back(m_workspace.state().sidebarSelection.addNotifier([this] { showSelection(); }));
    m_observers.push_back(m_workspace.state().tagPromptFamilies.addNotifier([this] { promptForTag(); }));
    connect(&m_workspace, &Workspace::collectionNameWanted, this,
            [this](const QString &id) { rename({.kind = Kind::collection, .key = id.toStdString()}); });
    connect(m_actions, &SidebarActions::renameWanted, this, &Sidebar::rename);
}

void Sidebar::connectView()
{
    connect(m_view->selectionModel(), &QItemSelectionModel::selectionChanged, this, &Sidebar::takeSelection);
    connect(m_view, &SidebarView::menuWanted, this, &Sidebar::showMenu);
    connect(m_view, &SidebarView::addWanted, m_actions, &SidebarActions::add);
    connect(m_view, &SidebarView::removeWanted, this, [this](const QModelIndex &index) {
        if (const SidebarEntry *entry = m_model->entry(index))
            m_actions->remove(SidebarEntry(*entry));
    });
    connect(m_view, &SidebarView::familiesDropped, this, &Sidebar::dropFamilies);
    connect(m_view, &SidebarView::filesDropped, this,
            [this](const QStringList &paths) { m_workspace.commands().addFolders(paths); });
    connect(m_view, &QTreeView::expanded, this, &Sidebar::keepExpanded);
    connect(m_view, &QTreeView::collapsed, this, &Sidebar::keepExpanded);
}

// For the mouse; by keyboard the menu of the head and the Insert key do the same.
void Sidebar::addHeadButton(SidebarGroup group)
{
    auto *button = new QToolButton;
    button->setObjectName(QStringLiteral("sidebarAdd%1").arg(static_cast<int>(group)));
    button->setFocusPolicy(Qt::NoFocus);
    button->setIcon(m_workspace.theme().icon("plus"));
    button->setIconSize({16, 16});
    button->setAutoRaise(true);
    connect(button, &QToolButton::clicked, m_actions, [this, group] { m_actions->add(group); });
    m_view->setIndexWidget(m_model->headOf(group), button);
    m_headButtons.emplace_back(group, button);
}

void Sidebar::retranslate()
{
    m_view->setAccessibleName(uiText("Barre latérale"));
    for (const auto &[group, button] : m_headButtons) {
        const QString text = group == SidebarGroup::folders       ? uiText("Ajouter un dossier…")
                             : group == SidebarGroup::collections ? uiText("Nouvelle collection")
                                                                  : uiText("Ajouter un tag…");
        button->setAccessibleName(text);
        button->setToolTip(text);
    }
    m_model->update();
}

void Sidebar::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

// Selection.

void Sidebar::showSelection()
{
    if (m_isUpdating)
        return;
    const SidebarSelection selection = m_workspace.state().sidebarSelection.value();
    const QModelIndex index = m_model->indexOf(selection);
    if (!index.isValid()) {
        const bool hasGone = m_shown == selection; // such as a folder that is no longer watched
        m_shown.reset();
        m_view->selectionModel()->clearSelection();
        if (hasGone)
            m_workspace.state().sidebarSelection = SidebarSelection();
        return;
    }
    m_shown = selection;
    if (!m_view->selectionModel()->isSelected(index))
        m_view->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
}

void Sidebar::takeSelection()
{
    const QModelIndexList selected = m_view->selectionModel()->selectedIndexes();
    if (m_isUpdating || selected.isEmpty())
        return;
    if (const SidebarEntry *entry = m_model->entry(selected.front()))
        m_workspace.state().sidebarSelection = SidebarSelection(entry->selection);
}

// Commands.

void Sidebar::addCollection()
{
    m_actions->add(SidebarGroup::collections);
}

void Sidebar::addTag()
{
    m_actions->add(SidebarGroup::tags);
}

void Sidebar::rename(const SidebarSelection &selection)
{
    m_model->update();
    const QModelIndex index = m_model->indexOf(selection);
    if (!index.isValid())
        return;
    m_view->expand(index.parent());
    m_view->scrollTo(index);
    m_view->setFocus();
    m_view->selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    m_view->edit(index);
}

void Sidebar::dropFamilies(const QModelIndex &target, const std::vector<std::string> &families)
{
    const SidebarEntry *entry = m_model->entry(target);
    if (entry != nullptr)
        m_actions->addFamilies(SidebarEntry(*entry), families);
    else if (m_model->group(target) == SidebarGroup::tags)
        m_workspace.state().tagPromptFamilies = families;
    else
        m_actions->addCollection(families);
}

void Sidebar::showMenu(const QModelIndex &index, const QPoint &position)
{
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const SidebarEntry *entry = m_model->entry(index);
    if (entry != nullptr && !entry->isHint)
        m_actions->fill(*menu, SidebarEntry(*entry));
    else
        m_actions->fill(*menu, m_model->group(index));
    if (menu->isEmpty())
        delete menu;
    else
        menu->popup(position);
}

void Sidebar::promptForTag()
{
    AppState &state = m_workspace.state();
    const auto families = state.tagPromptFamilies.value();
    if (!families || families->empty())
        return;
    auto *prompt = new TagPrompt(m_workspace, *families, this);
    connect(prompt, &QDialog::finished, this,
            [this] { m_workspace.state().tagPromptFamilies = std::optional<std::vector<std::string>>(); });
    prompt->open();
}

// How it was left.

void Sidebar::restoreExpanded()
{
    const Preferences &preferences = m_workspace.preferences();
    for (const SidebarGroup group : kAllSidebarGroups) {
        const bool isCollapsed = preferences.layout(collapsedKey(group), false).toBool();
        m_view->setExpanded(m_model->headOf(group), !isCollapsed);
    }
}

void Sidebar::keepExpanded(const QModelIndex &head)
{
    m_workspace.preferences().setLayout(collapsedKey(m_model->group(head)), !m_view->isExpanded(head));
}

} // namespace kerlune
