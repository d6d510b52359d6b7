#include "UI/Sidebar/SidebarActions.h"

#include "Support/Localization.h"
#include "UI/InterfaceText.h"

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QUrl>

#include <algorithm>

namespace kerlune {

namespace {

using Kind = SidebarSelection::Kind;

bool hasName(const std::vector<FontIndexStore::Collection> &collections, const std::string &name)
{
    return std::any_of(collections.begin(), collections.end(),
                       [&](const auto &collection) { return collection.name == name; });
}

bool hasId(const auto &collections, const std::string &id)
{
    return std::any_of(collections.begin(), collections.end(),
                       [&](const auto &collection) { return collection.id == id; });
}

} // namespace

SidebarActions::SidebarActions(Workspace &workspace, QWidget &parent)
    : QObject(&parent)
    , m_workspace(workspace)
    , m_parent(parent)
{}

// Menus.

void SidebarActions::fill(QMenu &menu, const SidebarEntry &entry)
{
    switch (entry.selection.kind) {
    case Kind::folder:
        fillForFolder(menu, entry);
        break;
    case Kind::collection:
    case Kind::tag:
        addRename(menu, entry);
        fillForFamilies(menu, entry);
        addRemove(menu, entry);
        break;
    case Kind::smart:
        fillForSmart(menu, entry);
        break;
    default:
        break;
    }
}

void SidebarActions::fill(QMenu &menu, SidebarGroup group)
{
    const Theme &theme = m_workspace.theme();
    if (group == SidebarGroup::folders) {
        menu.addAction(theme.icon("folder-add"), uiText("Ajouter un dossier…"), this,
                       [this] { add(SidebarGroup::folders); });
        menu.addAction(theme.icon("refresh"), uiText("Analyser de nouveau"), this,
                       [this] { m_workspace.state().folderLibrary().rescanAll(); });
    } else if (group == SidebarGroup::collections) {
        menu.addAction(theme.icon("plus"), uiText("Nouvelle collection"), this,
                       [this] { add(SidebarGroup::collections); });
    } else if (group == SidebarGroup::tags) {
        menu.addAction(theme.icon("plus"), uiText("Ajouter un tag…"), this, [this] { add(SidebarGroup::tags); });
    }
}

void SidebarActions::fillForFolder(QMenu &menu, const SidebarEntry &entry)
{
    const Theme &theme = m_workspace.theme();
    const QString path = QString::fromStdString(entry.path);
    const std::string id = entry.selection.key;
    const auto folder = m_workspace.state().folderLibrary().folder(id);
    QAction *open = menu.addAction(theme.icon("external"), uiText("Ouvrir le dossier"), this,
                                   [path] { QDesktopServices::openUrl(QUrl::fromLocalFile(path)); });
    open->setEnabled(!entry.isMissing);
    menu.addAction(theme.icon("copy"), uiText("Copier le chemin"), this,
                   [path] { QApplication::clipboard()->setText(path); });
    menu.addSeparator();
    QAction *automatic = menu.addAction(uiText("Activer automatiquement"));
    automatic->setCheckable(true);
    automatic->setChecked(folder && folder->autoActivate);
    connect(automatic, &QAction::toggled, this,
            [this, id](bool on) { m_workspace.commands().setAutoActivate(id, on); });
    menu.addAction(theme.icon("refresh"), uiText("Analyser de nouveau"), this,
                   [this] { m_workspace.state().folderLibrary().rescanAll(); });
    if (!entry.isFixed) {
        menu.addSeparator();
        menu.addAction(theme.icon("trash"), uiText("Retirer de la bibliothèque…"), this,
                       [this, entry] { askToRemoveFolder(entry); });
    }
}

void SidebarActions::fillForSmart(QMenu &menu, const SidebarEntry &entry)
{
    const std::string id = entry.selection.key;
    addRename(menu, entry);
    menu.addAction(m_workspace.theme().icon("filter"), uiText("Modifier les filtres"), this,
                   [this, id] { editFilters(id); });
    QAction *update = menu.addAction(m_workspace.theme().icon("refresh"), uiText("Remplacer par les filtres actuels"),
                                     this, [this, id] { m_workspace.commands().updateSmartCollection(id); });
    update->setEnabled(m_workspace.state().filters.value().isActive());
    addRemove(menu, entry);
}

void SidebarActions::fillForFamilies(QMenu &menu, const SidebarEntry &entry)
{
    const std::vector<std::string> names = families(entry);
    const auto add = [&](const char *icon, const QString &text, auto &&act) {
        menu.addAction(m_workspace.theme().icon(icon), text, this, act)->setEnabled(!names.empty());
    };
    add("active", uiText("Activer toutes les familles"),
        [this, names] { m_workspace.commands().setActive(names, true); });
    add("inactive", uiText("Désactiver toutes les familles"),
        [this, names] { m_workspace.commands().setActive(names, false); });
    menu.addSeparator();
    add("compare", uiText("Comparer"), [this, names] { m_workspace.compare(names); });
    add("copy", uiText("Copier les noms"), [names] {
        QStringList lines;
        for (const std::string &name : names)
            lines.push_back(QString::fromStdString(name));
        QApplication::clipboard()->setText(lines.join(u'\n'));
    });
    menu.addSeparator();
}

void SidebarActions::addRename(QMenu &menu, const SidebarEntry &entry)
{
    const SidebarSelection selection = entry.selection;
    menu.addAction(m_workspace.theme().icon("rename"), uiText("Renommer"), this,
                   [this, selection] { Q_EMIT renameWanted(selection); })
        ->setShortcut(QKeySequence(Qt::Key_F2));
}

void SidebarActions::addRemove(QMenu &menu, const SidebarEntry &entry)
{
    menu.addAction(m_workspace.theme().icon("trash"), uiText("Supprimer"), this, [this, entry] { remove(entry); })
        ->setShortcut(QKeySequence::Delete);
}

// Commands.

void SidebarActions::remove(const SidebarEntry &entry)
{
    AppState &state = m_workspace.state();
    const std::string &key = entry.selection.key;
    bool isGone = false;
    std::string told;
    if (entry.isHint) {
        return;
    } else if (entry.selection.kind == Kind::folder) {
        if (!entry.isFixed)
            askToRemoveFolder(entry);
    } else if (entry.selection.kind == Kind::collection) {
        m_workspace.commands().deleteCollection(key);
        isGone = !hasId(state.collections(), key);
        told = localized("Collection « %1 » supprimée. Ctrl+Z pour annuler.", {entry.name});
    } else if (entry.selection.kind == Kind::smart) {
        m_workspace.commands().deleteSmartCollection(key);
        isGone = !hasId(state.smartCollections(), key);
        told = localized("Collection intelligente « %1 » supprimée. Ctrl+Z pour annuler.", {entry.name});
    } else if (entry.selection.kind == Kind::tag) {
        m_workspace.commands().deleteTag(key);
        isGone = std::none_of(state.tagsByFamily().begin(), state.tagsByFamily().end(),
                              [&](const auto &carried) { return carried.second.contains(key); });
        told = localized("Tag « %1 » supprimé. Ctrl+Z pour annuler.", {entry.name});
    }
    if (isGone)
        state.setNotice({told});
}

void SidebarActions::askToRemoveFolder(const SidebarEntry &entry)
{
    auto *question = new QMessageBox(&m_parent);
    question->setAttribute(Qt::WA_DeleteOnClose);
    question->setIcon(QMessageBox::Question);
    question->setTextFormat(Qt::PlainText);
    question->setWindowTitle(uiText("Retirer un dossier"));
    question->setText(uiText("Retirer « %1 » de la bibliothèque ?", {shown(entry.name)}));
    question->setInformativeText(uiText("Ses polices quittent la bibliothèque et celles qui sont actives sont "
                                        "désactivées. Aucun fichier n’est supprimé."));
    QPushButton *remove = question->addButton(uiText("Retirer"), QMessageBox::AcceptRole);
    QPushButton *cancel = question->addButton(uiText("Annuler"), QMessageBox::RejectRole);
    question->setDefaultButton(cancel);
    question->setEscapeButton(cancel);
    const std::string id = entry.selection.key;
    connect(remove, &QPushButton::clicked, this, [this, id] { m_workspace.commands().removeFolder(id); });
    question->open();
}

void SidebarActions::add(SidebarGroup group)
{
    if (group == SidebarGroup::folders) {
        Q_EMIT m_workspace.addFolderWanted();
    } else if (group == SidebarGroup::collections) {
        addCollection(m_workspace.selectedFamilies.value());
    } else if (group == SidebarGroup::tags) {
        const std::vector<std::string> selected = m_workspace.selectedFamilies.value();
        if (selected.empty())
            m_workspace.state().setNotice({localized("Sélectionnez d’abord les familles à marquer.")});
        else
            m_workspace.state().tagPromptFamilies = selected;
    }
}

void SidebarActions::addCollection(const std::vector<std::string> &families)
{
    const auto id = m_workspace.commands().createCollection(newCollectionName(), families);
    if (id)
        Q_EMIT renameWanted({.kind = Kind::collection, .key = *id});
}

std::string SidebarActions::newCollectionName() const
{
    const auto &collections = m_workspace.state().collections();
    std::string name = localized("Nouvelle collection");
    for (int number = 2; hasName(collections, name); ++number)
        name = localized("Nouvelle collection %1", {std::to_string(number)});
    return name;
}

void SidebarActions::addFamilies(const SidebarEntry &target, const std::vector<std::string> &families)
{
    LibraryCommands &commands = m_workspace.commands();
    if (target.selection.kind == Kind::collection)
        commands.addToCollection(target.selection.key, families);
    else if (target.selection.kind == Kind::tag)
        commands.setTag(target.selection.key, families, true);
    else if (target.selection.kind == Kind::favorites)
        commands.setFavorites(families, true);
}

void SidebarActions::editFilters(const std::string &id)
{
    AppState &state = m_workspace.state();
    const auto &all = state.smartCollections();
    const auto found = std::find_if(all.begin(), all.end(), [&](const SmartCollection &each) { return each.id == id; });
    if (found == all.end())
        return;
    const Filters filters = found->filters;
    state.sidebarSelection = SidebarSelection();
    state.filters = filters;
}

std::vector<std::string> SidebarActions::families(const SidebarEntry &entry) const
{
    const AppState &state = m_workspace.state();
    const auto isIn = [&](const std::string &name) {
        if (entry.selection.kind == Kind::tag) {
            const auto carried = state.tagsByFamily().find(name);
            return carried != state.tagsByFamily().end() && carried->second.contains(entry.selection.key);
        }
        const auto members = state.collectionCache().find(entry.selection.key);
        return members != state.collectionCache().end() && members->second.contains(name);
    };
    std::vector<std::string> names;
    for (const FontFamilyPointer &family : state.families()) {
        if (isIn(family->name))
            names.push_back(family->name);
    }
    return names;
}

} // namespace kerlune
