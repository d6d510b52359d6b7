#pragma once

#include "UI/Toolbar/FilterKind.h"
#include "UI/Workspace.h"

#include <QWidget>

#include <vector>

class QMenu;
class QPushButton;
class QToolButton;

namespace kerlune {

class FilterChip;

// A chip for each filter; the first one is the class. All stand in one row: chips that do not fit go into the menu
// behind "+", those that are set last.
//
// Thread: main.
class FilterBar final : public QWidget {
    Q_OBJECT

public:
    explicit FilterBar(Workspace &workspace, QWidget *parent = nullptr);

    void saveAsSmartCollection(); // asks for a name

protected:
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void addChips();
    void addButtons();
    void retranslate();
    void showFilters();
    void arrange();
    std::vector<FilterChip *> fitting(int width) const; // in the order of the row
    int arrangeButtons();                               // where the room for chips ends
    void use(FilterKind kind, QWidget &anchor);         // switches it or opens its popup
    void unsetFilter(FilterKind kind);
    void showMore();
    void updateSmartCollection();
    void promptForName();

    Workspace &m_workspace;
    std::vector<FilterChip *> m_chips;
    QToolButton *m_more = nullptr;
    QPushButton *m_update = nullptr;
    QPushButton *m_save = nullptr;
    QPushButton *m_clear = nullptr;
    std::vector<FilterKind> m_hidden; // behind "+"
    std::vector<QPropertyNotifier> m_observers;
};

} // namespace kerlune
