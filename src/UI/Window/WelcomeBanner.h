#pragma once

#include "UI/Workspace.h"

#include <QFrame>

#include <vector>

class QLabel;
class QPushButton;
class QToolButton;

namespace kerlune {

// Says what Kerlune is as long as no folder is watched, above the fonts that the system has anyway; once dismissed, it
// does not come back.
//
// Thread: main.
class WelcomeBanner final : public QFrame {
    Q_OBJECT

public:
    explicit WelcomeBanner(Workspace &workspace, QWidget *parent = nullptr);

    void setWanted(bool isWanted); // by what is shown below

protected:
    void changeEvent(QEvent *event) override;

private:
    void retranslate();
    void refresh();
    void dismiss();

    Workspace &m_workspace;
    bool m_isWanted = false;
    QLabel *m_title;
    QLabel *m_text;
    QPushButton *m_add;
    QToolButton *m_close;
    std::vector<QPropertyNotifier> m_observers;
};

} // namespace kerlune
