#pragma once

#include "UI/Workspace.h"

#include <QFrame>

#include <vector>

class QLabel;
class QToolButton;

namespace kerlune {

// What has just happened, over the lower edge of its parent, which it does not shift. AppState says for how long.
//
// Thread: main.
class NoticeBar final : public QFrame {
    Q_OBJECT

public:
    NoticeBar(Workspace &workspace, QWidget *parent);

protected:
    void changeEvent(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override; // the parent's size

private:
    std::optional<Notice> latest() const;
    void refresh();
    void place();
    void dismiss();

    Workspace &m_workspace;
    QLabel *m_icon;
    QLabel *m_text;
    QToolButton *m_close;
    bool m_isFeedbackLater = false; // than the notice
    std::vector<QPropertyNotifier> m_observers;
};

} // namespace kerlune
