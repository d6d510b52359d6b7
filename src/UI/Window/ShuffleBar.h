#pragma once

#include "UI/Workspace.h"

#include <QWidget>

#include <vector>

class QLabel;
class QToolButton;

namespace kerlune {

// While each font that is selected is applied at once: where, and the way to the next one. Hidden otherwise.
//
// Thread: main.
class ShuffleBar final : public QWidget {
    Q_OBJECT

public:
    explicit ShuffleBar(Workspace &workspace, QWidget *parent = nullptr);

protected:
    void changeEvent(QEvent *event) override;

private:
    QToolButton *addButton(const char *name, const char *icon);
    void refresh();

    Workspace &m_workspace;
    QLabel *m_text;
    QToolButton *m_previous;
    QToolButton *m_next;
    QToolButton *m_random;
    QToolButton *m_stop;
    std::vector<QPropertyNotifier> m_observers;
};

} // namespace kerlune
