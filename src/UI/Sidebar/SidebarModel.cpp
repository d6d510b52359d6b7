#include "UI/Sidebar/SidebarModel.h"

#include "Support/Localization.h"
#include "UI/InterfaceText.h"

#include <QtConcurrent>

#include <algorithm>
#include <filesystem>
#include <iterator>

namespace kerlune {

namespace {

using Kind = SidebarSelection::Kind;

} // namespace

SidebarModel::SidebarModel(Workspace &workspace, QObject *parent)
    : QAbstractItemModel(parent)
    , m_workspace(workspace)
{
    m_updating.setSingleShot(true);
    connect(&m_updating, &QTimer::timeout, this, [this] { update(); });
    connect(&m_missing, &QFutureWatcherBase::finished, this, &SidebarModel::takeMissingFolders);
    followState();
    update();
    lookForFolders();
}

void SidebarModel::followState()
{
    AppState &state = m_workspace.state();
    const auto changed = [this] { m_updating.start(0); };
    const auto foldersChanged = [this] {
        m_areFolderCountsOld = true;
        m_updating.start(0);
    };
    m_observers.push_back(state.library.observe(foldersChanged));
    m_observers.push_back(state.favorites.observe(changed));
    m_observers.push_back(state.recents.observe(changed));
    m_observers.push_back(state.collectionsRevision.observe(changed));
    m_observers.push_back(state.smartRevision.observe(changed));
    m_observers.push_back(state.tagsRevision.observe(changed));
    m_observers.push_back(state.folderLibrary().bindableFolders().addNotifier([this, foldersChanged] {
        foldersChanged();
        lookForFolders();
    }));
    m_observers.push_back(state.folderLibrary().bindableIsScanning().addNotifier([this] {
        if (!m_workspace.state().folderLibrary().isScanning())
            lookForFolders();
    }));
}

void SidebarModel::countFolders()
{
    const AppState &state = m_workspace.state();
    m_areFolderCountsOld = false;
    m_folders.counts.clear();
    for (const WatchedFolder &folder : state.folderLibrary().folders())
        m_folders.counts.emplace(folder.id, state.familyCountInFolder(folder.id));
}

// On another thread: a folder of another computer that does not answer must not stop the window.
void SidebarModel::lookForFolders()
{
    const auto missingOf = [](const std::vector<WatchedFolder> &folders) {
        std::set<std::string> missing;
        for (const WatchedFolder &folder : folders) {
            std::error_code error;
            if (!std::filesystem::is_directory(folder.path, error))
                missing.insert(folder.id);
        }
        return missing;
    };
    m_missing.setFuture(QtConcurrent::run(missingOf, m_workspace.state().folderLibrary().folders()));
}

void SidebarModel::takeMissingFolders()
{
    if (m_missing.isCanceled() || m_folders.missing == m_missing.result())
        return;
    m_folders.missing = m_missing.result();
    update();
}

void SidebarModel::update()
{
    m_updating.stop();
    if (m_areFolderCountsOld)
        countFolders();
    Q_EMIT updating();
    for (const SidebarGroup group : kAllSidebarGroups)
        update(group, sidebarEntries(group, m_workspace.state(), m_folders));
    Q_EMIT updated();
}

void SidebarModel::update(SidebarGroup group, std::vector<SidebarEntry> next)
{
    std::vector<SidebarEntry> &now = entries(group);
    const QModelIndex head = headOf(group);
    const auto find = [](auto first, auto last, const SidebarEntry &wanted) {
        return std::find_if(first, last, [&](const SidebarEntry &entry) { return entry.isSameLine(wanted); });
    };
    for (std::size_t i = now.size(); i-- > 0;) {
        if (find(next.begin(), next.end(), now[i]) != next.end())
            continue;
        beginRemoveRows(head, static_cast<int>(i), static_cast<int>(i));
        now.erase(now.begin() + static_cast<std::ptrdiff_t>(i));
        endRemoveRows();
    }
    for (std::size_t i = 0; i < next.size(); ++i) {
        const auto place = now.begin() + static_cast<std::ptrdiff_t>(i);
        const auto row = static_cast<int>(i);
        const auto found = find(place, now.end(), next[i]);
        if (found == now.end()) {
            beginInsertRows(head, row, row);
            now.insert(place, std::move(next[i]));
            endInsertRows();
            continue;
        }
        if (found != place) {
            const auto from = static_cast<int>(found - now.begin());
            beginMoveRows(head, from, from, head, row);
            std::rotate(place, found, std::next(found));
            endMoveRows();
        }
        if (*place != next[i]) {
            *place = std::move(next[i]);
            Q_EMIT dataChanged(index(row, 0, head), index(row, 0, head));
        }
    }
}

const SidebarEntry *SidebarModel::entry(const QModelIndex &index) const
{
    return !index.isValid() || isHead(index)
               ? nullptr
               : &m_entries[index.internalId() - 1].at(static_cast<std::size_t>(index.row()));
}

SidebarGroup SidebarModel::group(const QModelIndex &index) const
{
    return kAllSidebarGroups[isHead(index) ? static_cast<std::size_t>(index.row()) : index.internalId() - 1];
}

QModelIndex SidebarModel::headOf(SidebarGroup group) const
{
    return index(static_cast<int>(group), 0);
}

QModelIndex SidebarModel::indexOf(const SidebarSelection &selection) const
{
    for (const SidebarGroup group : kAllSidebarGroups) {
        const std::vector<SidebarEntry> &lines = m_entries[static_cast<std::size_t>(group)];
        const auto found = std::find_if(lines.begin(), lines.end(), [&](const SidebarEntry &line) {
            return !line.isHint && line.selection == selection;
        });
        if (found != lines.end())
            return index(static_cast<int>(found - lines.begin()), 0, headOf(group));
    }
    return {};
}

// The internal id of a head is 0, that of an entry the number of its group, counted from 1.
QModelIndex SidebarModel::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    return createIndex(row, column, parent.isValid() ? static_cast<quintptr>(parent.row()) + 1 : quintptr{0});
}

QModelIndex SidebarModel::parent(const QModelIndex &child) const
{
    if (!child.isValid() || child.internalId() == 0)
        return {};
    return createIndex(static_cast<int>(child.internalId()) - 1, 0, quintptr{0});
}

int SidebarModel::rowCount(const QModelIndex &parent) const
{
    if (!parent.isValid())
        return static_cast<int>(kAllSidebarGroups.size());
    return isHead(parent) && parent.column() == 0
               ? static_cast<int>(m_entries[static_cast<std::size_t>(parent.row())].size())
               : 0;
}

int SidebarModel::columnCount(const QModelIndex &) const
{
    return 1;
}

namespace {

QString toolTip(const SidebarEntry &entry)
{
    if (entry.isMissing)
        return uiText("Dossier introuvable : %1", {shownAsMarkup(entry.path)});
    return shownAsMarkup(entry.path.empty() ? entry.name : entry.path);
}

QString spokenText(const SidebarEntry &entry)
{
    QString text = shown(entry.name);
    if (entry.isMissing)
        text += QStringLiteral(", ") + uiText("dossier introuvable");
    if (entry.count)
        text += QStringLiteral(", ") + uiCount("%1 famille", "%1 familles", *entry.count);
    return text;
}

} // namespace

QVariant SidebarModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const SidebarEntry *line = entry(index);
    if (line == nullptr)
        return role == Qt::DisplayRole ? QVariant(shown(label(group(index)))) : QVariant();
    switch (role) {
    case Qt::DisplayRole:
        return shown(line->name);
    case Qt::EditRole:
        return QString::fromStdString(line->name);
    case Qt::ToolTipRole:
        return toolTip(*line);
    case Qt::AccessibleTextRole:
        return spokenText(*line);
    default:
        return {};
    }
}

bool SidebarModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    const SidebarEntry *line = entry(index);
    if (role != Qt::EditRole || line == nullptr || !line->canBeRenamed())
        return false;
    const QString name = value.toString().trimmed();
    return !name.isEmpty() && rename(SidebarEntry(*line), name.toStdString());
}

namespace {

bool hasTag(const AppState &state, const std::string &tag)
{
    const TagsByFamily &tags = state.tagsByFamily();
    return std::any_of(tags.begin(), tags.end(), [&](const auto &carried) { return carried.second.contains(tag); });
}

} // namespace

bool SidebarModel::rename(const SidebarEntry &entry, const std::string &name)
{
    LibraryCommands &commands = m_workspace.commands();
    if (name == entry.name)
        return false;
    if (entry.selection.kind == Kind::collection) {
        commands.renameCollection(entry.selection.key, name);
    } else if (entry.selection.kind == Kind::smart) {
        commands.renameSmartCollection(entry.selection.key, name);
    } else {
        const bool joinsOther = indexOf({.kind = Kind::tag, .key = name}).isValid();
        commands.renameTag(entry.name, name);
        if (joinsOther && !hasTag(m_workspace.state(), entry.name)) {
            m_workspace.state().setNotice(
                {localized("Les tags « %1 » et « %2 » sont réunis. Ctrl+Z pour annuler.", {entry.name, name})});
        }
    }
    return true;
}

Qt::ItemFlags SidebarModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    const SidebarEntry *line = entry(index);
    if (line == nullptr)
        return Qt::ItemIsEnabled;
    if (line->isHint)
        return Qt::ItemNeverHasChildren;
    const Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    return line->canBeRenamed() ? flags | Qt::ItemIsEditable : flags;
}

} // namespace kerlune
