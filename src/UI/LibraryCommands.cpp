#include "UI/LibraryCommands.h"

#include "Support/Localization.h"
#include "UI/InterfaceText.h"

#include <QFileInfo>
#include <QPointer>
#include <QUndoCommand>
#include <QUndoStack>

#include <algorithm>
#include <memory>
#include <utility>

namespace kerlune {

namespace {

using Step = std::function<bool()>;

// A change of what the user made, and the way back.
class Change final : public QUndoCommand {
public:
    Change(const QString &text, AppState &state, Step change, Step back)
        : QUndoCommand(text)
        , m_state(state)
        , m_change(std::move(change))
        , m_back(std::move(back))
    {}

    void redo() override { take(m_change); }
    void undo() override
    {
        m_state.dismissNotice(); // it may just have told how to take this back
        take(m_back);
    }

private:
    void take(const Step &step)
    {
        if (step())
            return;
        setObsolete(true); // the stack forgets it: there is nothing to take back
        m_state.setNotice({localized("La modification n’a pas pu être enregistrée."), true});
    }

    AppState &m_state;
    Step m_change;
    Step m_back;
};

bool contains(const std::set<std::string> &names, const std::string &name)
{
    return names.contains(name);
}

} // namespace

LibraryCommands::LibraryCommands(AppState &state, QUndoStack &undoStack)
    : m_state(state)
    , m_undoStack(undoStack)
{}

void LibraryCommands::perform(const QString &text, const Step &change, const Step &back)
{
    m_undoStack.push(new Change(text, m_state, change, back));
}

// Favourites.

void LibraryCommands::setFavorites(const Names &families, bool on)
{
    Names changing;
    std::copy_if(families.begin(), families.end(), std::back_inserter(changing),
                 [&](const std::string &family) { return contains(m_state.favorites(), family) != on; });
    if (changing.empty())
        return;
    perform(
        on ? uiText("Ajouter aux favoris") : uiText("Retirer des favoris"),
        [this, changing, on] { return m_state.setFavorites(changing, on); },
        [this, changing, on] { return m_state.setFavorites(changing, !on); });
}

// Tags.

LibraryCommands::Names LibraryCommands::withTag(const std::string &tag) const
{
    Names families;
    for (const auto &[family, carried] : m_state.tagsByFamily()) {
        if (carried.contains(tag))
            families.push_back(family);
    }
    return families;
}

void LibraryCommands::setTag(const std::string &tag, const Names &families, bool on)
{
    Names changing;
    for (const std::string &family : families) {
        const auto carried = m_state.tagsByFamily().find(family);
        const bool hasTag = carried != m_state.tagsByFamily().end() && carried->second.contains(tag);
        if (hasTag != on)
            changing.push_back(family);
    }
    if (changing.empty())
        return;
    perform(
        on ? uiText("Ajouter le tag « %1 »", {shown(tag)}) : uiText("Retirer le tag « %1 »", {shown(tag)}),
        [this, tag, changing, on] { return m_state.setTag(tag, changing, on); },
        [this, tag, changing, on] { return m_state.setTag(tag, changing, !on); });
}

// A tag that takes the name of another one joins it; the way back parts them again.
void LibraryCommands::renameTag(const std::string &tag, const std::string &newName)
{
    const std::string name = shown(newName).trimmed().toStdString();
    if (name.empty() || name == tag)
        return;
    const Names carriers = withTag(tag);
    const Names carriersOfOther = withTag(name);
    perform(
        uiText("Renommer le tag « %1 »", {shown(tag)}), [this, tag, name] { return m_state.renameTag(tag, name); },
        [this, tag, name, carriers, carriersOfOther] {
            return m_state.renameTag(name, tag) && m_state.setTag(tag, withTag(tag), false) &&
                   m_state.setTag(tag, carriers, true) &&
                   (carriersOfOther.empty() || m_state.setTag(name, carriersOfOther, true));
        });
}

void LibraryCommands::deleteTag(const std::string &tag)
{
    const Names carriers = withTag(tag);
    perform(
        uiText("Supprimer le tag « %1 »", {shown(tag)}), [this, tag] { return m_state.deleteTag(tag); },
        [this, tag, carriers] { return m_state.setTag(tag, carriers, true); });
}

// Collections.

namespace {

// One collection as it is now, to be put back under its id. Absent when it cannot be read: nothing may happen to it
// then.
std::optional<UserData> collectionData(AppState &state, const std::string &id)
{
    const auto all = state.store() == nullptr ? std::nullopt : state.store()->userData();
    if (!all)
        return std::nullopt;
    UserData kept;
    std::copy_if(all->collections.begin(), all->collections.end(), std::back_inserter(kept.collections),
                 [&](const UserData::Collection &collection) { return collection.id == id; });
    std::copy_if(all->smartCollections.begin(), all->smartCollections.end(), std::back_inserter(kept.smartCollections),
                 [&](const UserData::SmartCollection &collection) { return collection.id == id; });
    return kept.collections.empty() && kept.smartCollections.empty() ? std::nullopt : std::optional(std::move(kept));
}

// Puts back what was kept; false when nothing was.
bool putBack(AppState &state, const std::optional<UserData> &kept)
{
    return kept && state.restoreUserData(*kept);
}

std::string nameOf(const auto &collections, const std::string &id)
{
    const auto found = std::find_if(collections.begin(), collections.end(),
                                    [&](const auto &collection) { return collection.id == id; });
    return found == collections.end() ? std::string() : found->name;
}

} // namespace

// Taken back and made again, it keeps its id: later changes on the stack speak of that.
std::optional<std::string> LibraryCommands::createCollection(const std::string &name, const Names &families)
{
    struct Made {
        std::string id = {};
        std::optional<UserData> data = {};
    };
    const auto made = std::make_shared<Made>();
    perform(
        uiText("Créer la collection « %1 »", {shown(name)}),
        [this, name, families, made] {
            if (!made->id.empty())
                return putBack(m_state, made->data);
            const auto id = m_state.createCollection(name);
            if (!id)
                return false;
            if (!families.empty() && !m_state.addToCollection(*id, families)) {
                m_state.deleteCollection(*id);
                return false;
            }
            made->id = *id;
            return true;
        },
        [this, made] {
            made->data = collectionData(m_state, made->id);
            return made->data && m_state.deleteCollection(made->id);
        });
    return made->id.empty() ? std::nullopt : std::optional(made->id);
}

void LibraryCommands::renameCollection(const std::string &id, const std::string &newName)
{
    const std::string old = nameOf(m_state.collections(), id);
    if (old == newName || shown(newName).trimmed().isEmpty())
        return;
    perform(
        uiText("Renommer la collection « %1 »", {shown(old)}),
        [this, id, newName] { return m_state.renameCollection(id, newName); },
        [this, id, old] { return m_state.renameCollection(id, old); });
}

void LibraryCommands::deleteCollection(const std::string &id)
{
    const auto kept = std::make_shared<std::optional<UserData>>();
    perform(
        uiText("Supprimer la collection « %1 »", {shown(nameOf(m_state.collections(), id))}),
        [this, id, kept] {
            *kept = collectionData(m_state, id);
            return *kept && m_state.deleteCollection(id);
        },
        [this, kept] { return putBack(m_state, *kept); });
}

void LibraryCommands::addToCollection(const std::string &id, const Names &families)
{
    const auto members = m_state.collectionCache().find(id);
    if (members == m_state.collectionCache().end())
        return;
    Names added;
    std::copy_if(families.begin(), families.end(), std::back_inserter(added),
                 [&](const std::string &family) { return !members->second.contains(family); });
    if (added.empty())
        return;
    perform(
        uiText("Ajouter à la collection « %1 »", {shown(nameOf(m_state.collections(), id))}),
        [this, id, added] { return m_state.addToCollection(id, added); },
        [this, id, added] { return m_state.removeFromCollection(id, added); });
}

void LibraryCommands::removeFromCollection(const std::string &id, const Names &families)
{
    const auto members = m_state.collectionCache().find(id);
    if (members == m_state.collectionCache().end())
        return;
    Names removed;
    std::copy_if(families.begin(), families.end(), std::back_inserter(removed),
                 [&](const std::string &family) { return members->second.contains(family); });
    if (removed.empty())
        return;
    perform(
        uiText("Retirer de la collection « %1 »", {shown(nameOf(m_state.collections(), id))}),
        [this, id, removed] { return m_state.removeFromCollection(id, removed); },
        [this, id, removed] { return m_state.addToCollection(id, removed); });
}

// Smart collections.

std::optional<std::string> LibraryCommands::saveFilters(const std::string &name)
{
    struct Made {
        std::string id = {};
        std::optional<UserData> data = {};
    };
    const auto made = std::make_shared<Made>();
    const Filters filters = m_state.filters.value();
    const SidebarSelection selection = m_state.sidebarSelection.value();
    perform(
        uiText("Enregistrer la collection intelligente « %1 »", {shown(name)}),
        [this, name, made] {
            if (!made->id.empty())
                return putBack(m_state, made->data);
            made->id = m_state.saveCurrentFiltersAsSmartCollection(name).value_or(std::string());
            return !made->id.empty();
        },
        [this, made, filters, selection] {
            made->data = collectionData(m_state, made->id);
            if (!made->data || !m_state.deleteSmartCollection(made->id))
                return false;
            m_state.sidebarSelection = selection;
            m_state.filters = filters;
            return true;
        });
    return made->id.empty() ? std::nullopt : std::optional(made->id);
}

void LibraryCommands::updateSmartCollection(const std::string &id)
{
    const auto before = std::make_shared<const std::optional<UserData>>(collectionData(m_state, id));
    const auto after = std::make_shared<std::optional<UserData>>(); // the filters are other ones by the time of a redo
    perform(
        uiText("Mettre à jour la collection intelligente « %1 »", {shown(nameOf(m_state.smartCollections(), id))}),
        [this, id, before, after] {
            if (*after)
                return putBack(m_state, *after);
            if (!*before || !m_state.updateSmartCollection(id))
                return false;
            *after = collectionData(m_state, id);
            return true;
        },
        [this, before] { return putBack(m_state, *before); });
}

void LibraryCommands::renameSmartCollection(const std::string &id, const std::string &newName)
{
    const std::string old = nameOf(m_state.smartCollections(), id);
    if (old == newName || shown(newName).trimmed().isEmpty())
        return;
    perform(
        uiText("Renommer la collection intelligente « %1 »", {shown(old)}),
        [this, id, newName] { return m_state.renameSmartCollection(id, newName); },
        [this, id, old] { return m_state.renameSmartCollection(id, old); });
}

void LibraryCommands::deleteSmartCollection(const std::string &id)
{
    const auto kept = std::make_shared<std::optional<UserData>>();
    perform(
        uiText("Supprimer la collection intelligente « %1 »", {shown(nameOf(m_state.smartCollections(), id))}),
        [this, id, kept] {
            *kept = collectionData(m_state, id);
            return *kept && m_state.deleteSmartCollection(id);
        },
        [this, kept] { return putBack(m_state, *kept); });
}

// Activation.

// Undone and redone file by file: of a family that was active in part, a part stays so.
void LibraryCommands::setActive(const Names &families, bool on)
{
    Names files;
    std::int64_t count = 0;
    for (const std::string &name : families) {
        const FontFamilyPointer family = m_state.family(name);
        const std::size_t before = files.size();
        for (const FontRecordPointer &face : family == nullptr ? std::vector<FontRecordPointer>() : family->faces) {
            const bool isActive = m_state.activation().activePaths().contains(face->filePath);
            if (isActive != on && m_state.folderLibrary().isInFolder(face->filePath))
                files.push_back(face->filePath);
        }
        count += files.size() > before ? 1 : 0;
    }
    if (files.empty())
        return;
    const auto step = [this, files, count](bool isActive) {
        activate(files, count, isActive);
        return true;
    };
    perform(
        on ? uiText("Activer") : uiText("Désactiver"), [step, on] { return step(on); },
        [step, on] { return step(!on); });
}

QCoro::Task<> LibraryCommands::activate(Names files, std::int64_t familyCount, bool on)
{
    const QPointer<LibraryCommands> self(this);
    beginWork(on ? uiCount("Activation de %1 famille…", "Activation de %1 familles…", familyCount)
                 : uiCount("Désactivation de %1 famille…", "Désactivation de %1 familles…", familyCount));
    auto changing = m_state.setFilesActive(std::move(files), on);
    const bool isDone = co_await changing; // else the state has said what failed
    if (!self)
        co_return;
    endWork();
    if (isDone && familyCount > 1) {
        m_state.setNotice({on ? localizedCount("%1 famille activée.", "%1 familles activées.", familyCount)
                              : localizedCount("%1 famille désactivée.", "%1 familles désactivées.", familyCount)});
    }
}

void LibraryCommands::beginWork(const QString &text)
{
    ++m_works;
    work = text;
}

void LibraryCommands::endWork()
{
    if (--m_works == 0)
        work = QString();
}

// Watched folders.

void LibraryCommands::addFolders(const QStringList &paths)
{
    QStringList folders;
    for (const QString &path : paths) {
        const QFileInfo file(path);
        const QString folder = file.isDir() ? file.absoluteFilePath() : file.absolutePath();
        if (!folders.contains(folder))
            folders.push_back(folder);
    }
    if (!folders.isEmpty())
        add(folders);
}

QCoro::Task<> LibraryCommands::add(QStringList folders)
{
    const QPointer<LibraryCommands> self(this);
    std::int64_t files = 0;
    std::vector<std::string> errors;
    beginWork({});
    for (const QString &folder : folders) {
        work = uiText("Lecture du dossier « %1 »…", {shown(QFileInfo(folder).fileName().toStdString())});
        auto adding = m_state.folderLibrary().add(folder.toStdString());
        const auto added = co_await adding;
        if (!self)
            co_return;
        if (added)
            files += *added;
        else
            errors.push_back(added.error().description());
    }
    endWork();
    if (!errors.empty())
        m_state.setNotice({errors.front(), true});
    else
        m_state.setNotice(
            {localizedCount("%1 police ajoutée à la bibliothèque.", "%1 polices ajoutées à la bibliothèque.", files)});
}

void LibraryCommands::removeFolder(const std::string &id)
{
    remove(id);
}

QCoro::Task<> LibraryCommands::remove(std::string id)
{
    const QPointer<LibraryCommands> self(this);
    beginWork(uiText("Retrait du dossier…"));
    auto removing = m_state.folderLibrary().remove(std::move(id));
    co_await removing;
    if (self)
        endWork();
}

void LibraryCommands::setAutoActivate(const std::string &id, bool on)
{
    m_state.folderLibrary().setAutoActivate(id, on);
}

} // namespace kerlune
