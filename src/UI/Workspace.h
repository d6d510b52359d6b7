#pragma once

#include "Platform/TextShaping.h"
#include "State/AppState.h"
#include "State/Preferences.h"
#include "UI/LibraryCommands.h"
#include "UI/Preview/PreviewQueue.h"
#include "UI/Theme.h"

#include <QObject>
#include <QProperty>
#include <QUndoStack>

#include <cstdint>
#include <string>
#include <vector>

namespace kerlune {

// What the parts of the window share. They know this, and not each other.
//
// Thread: main.
class Workspace final : public QObject {
    Q_OBJECT

public:
    enum class Panel { information, styles, axes, features, glyphs, similar };
    Q_ENUM(Panel)

    // These must outlive the workspace.
    Workspace(AppState &state, Preferences &preferences, Theme &theme, PreviewQueue &previews);
    ~Workspace() override;

    AppState &state() const { return m_state; }
    Preferences &preferences() const { return m_preferences; }
    Theme &theme() const { return m_theme; }
    PreviewQueue &previews() const { return m_previews; }
    QUndoStack &undoStack() { return m_undoStack; }
    LibraryCommands &commands() { return m_commands; }

    // Families selected in the browser, in its order. AppState::selectedFamily is the current one of them.
    QProperty<std::vector<std::string>> selectedFamilies;
    void select(const std::vector<std::string> &families); // the first one becomes the current one

    // The selected families as the library holds them; those that it no longer holds are left out.
    AppState::Families selection() const;

    // How the active face is shown in the panels and the large preview. Another active face clears both.
    QProperty<std::vector<FeatureValue>> features;
    QProperty<std::vector<AxisValue>> coordinates;

    static constexpr std::size_t kMostCompared = 12;
    void compare(const std::vector<std::string> &families);         // these, in the comparison view
    void addToComparison(const std::vector<std::string> &families); // tells when there is no more room
    void removeFromComparison(const std::string &family);

    // The preview text as it is shown: the sample "Kerlune" when it is empty.
    std::string previewText() const;

    // What a compared family is drawn in: a face of the library, else a preview of the Google catalogue; null where
    // there is neither.
    FontRecordPointer comparedFace(const std::string &family) const;

    QProperty<std::int64_t> catalogCount; // how many families the catalogue's page lists

Q_SIGNALS:
    void panelWanted(Workspace::Panel panel);     // shows the inspector with this panel
    void largePreviewWanted();                    // of the active face
    void searchWanted();                          // the focus goes to the search field
    void browserWanted();                         // the focus goes to the browser
    void collectionNameWanted(const QString &id); // a new collection is to be named in the sidebar
    void addFolderWanted();                       // asks for a folder to watch

private:
    AppState &m_state;
    Preferences &m_preferences;
    Theme &m_theme;
    PreviewQueue &m_previews;
    QUndoStack m_undoStack;
    LibraryCommands m_commands;
    std::string m_activeFace;
    std::vector<QPropertyNotifier> m_observers;
};

} // namespace kerlune
