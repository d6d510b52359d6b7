#pragma once

#include "UI/Workspace.h"

#include <QTimer>
#include <QWidget>

#include <vector>

class QLabel;
class QStackedWidget;

namespace kerlune {

class CatalogDetails;
class FaceHeader;
class FacePanel;
class PanelTabs;
class SeveralFamilies;

// The active face and its family: a large preview, activation, and the panels. With several families selected, what can
// be done with all of them.
//
// Thread: main.
class Inspector final : public QWidget {
    Q_OBJECT

public:
    static constexpr int kLeastWidth = 260;
    static constexpr int kMostWidth = 420;

    explicit Inspector(Workspace &workspace, QWidget *parent = nullptr);

    void showPanel(Workspace::Panel panel);
    bool isSettled() const; // what it shows is there, but for previews
    Workspace::Panel panel() const;

    QSize sizeHint() const override;

protected:
    void changeEvent(QEvent *event) override;

private:
    QWidget *makeFamilyPage();
    void follow();
    void showSelection();
    void retranslate();

    Workspace &m_workspace;
    std::vector<FacePanel *> m_panels; // in the order of Workspace::Panel
    QStackedWidget *m_pages;
    QLabel *m_hint;
    SeveralFamilies *m_several;
    CatalogDetails *m_catalog;
    FaceHeader *m_header = nullptr;
    PanelTabs *m_tabs = nullptr;
    QStackedWidget *m_panelStack = nullptr;
    QWidget *m_familyPage; // after its parts, which are made with it
    QTimer m_update;       // gathers what changes in one go
    std::vector<QPropertyNotifier> m_observers;
};

} // namespace kerlune
