#pragma once

#include "UI/Workspace.h"

#include <QWidget>

#include <vector>

class QButtonGroup;
class QToolButton;

namespace kerlune {

// One button for each panel; the chosen one shows its name beside its icon. The arrow keys step through them.
//
// Thread: main.
class PanelTabs final : public QWidget {
    Q_OBJECT

public:
    explicit PanelTabs(const Theme &theme, QWidget *parent = nullptr);

    Workspace::Panel panel() const { return m_panel; }
    void setPanel(Workspace::Panel panel);

Q_SIGNALS:
    void panelChanged(Workspace::Panel panel);

protected:
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void retranslate();
    void showChosen();

    std::vector<QToolButton *> m_buttons; // in the order of Workspace::Panel
    QButtonGroup *m_group;
    Workspace::Panel m_panel = Workspace::Panel::information;
};

} // namespace kerlune
