#pragma once

#include "UI/Workspace.h"

#include <QWidget>

#include <vector>

class QPushButton;
class QTableWidget;

namespace kerlune {

// The watched folders: adding, letting go, and activating what is new in them.
//
// Thread: main.
class FolderSettings final : public QWidget {
    Q_OBJECT

public:
    explicit FolderSettings(Workspace &workspace, QWidget *parent = nullptr);

private:
    void refresh();
    void removeCurrent();
    std::string currentId() const;

    Workspace &m_workspace;
    QTableWidget *m_table;
    QPushButton *m_add;
    QPushButton *m_remove;
    bool m_isFilling = false;
    std::vector<QPropertyNotifier> m_observers;
};

} // namespace kerlune
