#pragma once

#include "UI/Workspace.h"

#include <QWidget>

#include <vector>

class QStackedLayout;

namespace kerlune {

class BrowserSelection;
class BrowserView;
class ComparisonView;
class FamilyListModel;

// The visible families as a grid, a list, a waterfall of sizes or a comparison.
//
// Thread: main.
class BrowserPane final : public QWidget {
    Q_OBJECT

public:
    explicit BrowserPane(Workspace &workspace, QWidget *parent = nullptr);
    ~BrowserPane() override;

    void focusView();
    bool isPainted() const; // every preview in sight is there

Q_SIGNALS:
    void contextMenuWanted(const QPoint &globalPosition); // for the selected families

protected:
    void changeEvent(QEvent *event) override;

private:
    void observeState();
    void followList();
    void followViewMode();
    void followScrollTarget();
    void followKeyboardFocus();
    void retranslate();

    Workspace &m_workspace;
    FamilyListModel *m_model;
    BrowserView *m_view;
    BrowserSelection *m_selection;
    ComparisonView *m_comparison;
    QStackedLayout *m_stack;
    std::vector<QPropertyNotifier> m_observers;
};

} // namespace kerlune
