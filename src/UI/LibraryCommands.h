#pragma once

#include "State/AppState.h"

#include <QObject>
#include <QProperty>
#include <QStringList>

#include <functional>
#include <optional>
#include <string>
#include <vector>

class QUndoStack;

namespace kerlune {

// What the user does to the library from the window. All of it can be undone but for what only waits on others:
// watching folders asks before it lets one go (see the sidebar).
//
// Thread: main.
// Errors: what cannot be written is told in a notice, and changes nothing.
class LibraryCommands final : public QObject {
    Q_OBJECT

public:
    using Names = std::vector<std::string>; // of families

    LibraryCommands(AppState &state, QUndoStack &undoStack);

    QProperty<QString> work; // what is being done and takes a while; empty when nothing is

    void setFavorites(const Names &families, bool on);

    void setTag(const std::string &tag, const Names &families, bool on);
    void renameTag(const std::string &tag, const std::string &newName);
    void deleteTag(const std::string &tag);

    std::optional<std::string> createCollection(const std::string &name, const Names &families = {}); // its id
    void renameCollection(const std::string &id, const std::string &newName);
    void deleteCollection(const std::string &id);
    void addToCollection(const std::string &id, const Names &families);
    void removeFromCollection(const std::string &id, const Names &families);

    std::optional<std::string> saveFilters(const std::string &name); // as a smart collection; its id
    void updateSmartCollection(const std::string &id);               // takes the current filters
    void renameSmartCollection(const std::string &id, const std::string &newName);
    void deleteSmartCollection(const std::string &id);

    void setActive(const Names &families, bool on); // of system fonts nothing changes

    void addFolders(const QStringList &paths); // files stand for the folders that they lie in
    void removeFolder(const std::string &id);
    void setAutoActivate(const std::string &id, bool on);

private:
    using Step = std::function<bool()>; // false when it could not be written

    void perform(const QString &text, const Step &change, const Step &back);
    QCoro::Task<> activate(Names files, std::int64_t familyCount, bool on);
    void beginWork(const QString &text);
    void endWork();
    QCoro::Task<> add(QStringList folders);
    QCoro::Task<> remove(std::string id);
    Names withTag(const std::string &tag) const;

    AppState &m_state;
    QUndoStack &m_undoStack;
    int m_works = 0; // that run
};

} // namespace kerlune
