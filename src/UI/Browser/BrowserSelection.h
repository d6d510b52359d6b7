#pragma once

#include "UI/Browser/BrowserView.h"

#include <QObject>

#include <optional>
#include <string>
#include <vector>

namespace kerlune {

// Keeps what is selected in the view and what the workspace says is selected the same, by names. A family that is
// selected and then leaves the list is selected no longer.
//
// Thread: main.
class BrowserSelection final : public QObject {
    Q_OBJECT

public:
    BrowserSelection(Workspace &workspace, FamilyListModel &model, BrowserView &view);

    // Around a change of the list.
    void hold();
    void restore();

private:
    void write(); // from the view to the workspace
    void readFamilies();
    void readCurrent();
    std::optional<int> currentRow(const std::vector<int> &selected) const;

    Workspace &m_workspace;
    FamilyListModel &m_model;
    BrowserView &m_view;
    bool m_isBusy = false;
    std::vector<std::string> m_heldSelection;
    std::string m_heldCurrent;
    std::vector<QPropertyNotifier> m_observers;
};

} // namespace kerlune
