#pragma once

#include "UI/Workspace.h"

#include <QTimer>
#include <QWidget>

#include <vector>

class QLabel;
class QProgressBar;
class QToolButton;

namespace kerlune {

// What is shown, and what is being done.
//
// Thread: main.
class StatusBar final : public QWidget {
    Q_OBJECT

public:
    explicit StatusBar(Workspace &workspace, QWidget *parent = nullptr);

protected:
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void refreshSoon();
    void refresh();
    void showWork();

    Workspace &m_workspace;
    QLabel *m_summary;
    QLabel *m_work;
    QProgressBar *m_progress;
    QToolButton *m_cancel;
    QTimer m_refreshing;
    std::vector<QPropertyNotifier> m_observers;
};

} // namespace kerlune
