#pragma once

#include "UI/Workspace.h"

#include <QLineEdit>
#include <QTimer>

#include <vector>

class QMenu;

namespace kerlune {

// The preview text: what the user types, or a ready sample chosen from the menu at its end. What was typed last stands
// in the menu too. A typed text is never taken for the name of a sample.
//
// Thread: main.
class PreviewTextBox final : public QLineEdit {
    Q_OBJECT

public:
    explicit PreviewTextBox(Workspace &workspace, QWidget *parent = nullptr);
    ~PreviewTextBox() override;

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void retranslate();
    void showMenu();
    void showText();
    void keepOwnText();

    Workspace &m_workspace;
    QAction *m_samples;
    QTimer m_keeping; // while the user types the settings are not written at each key
    std::vector<QPropertyNotifier> m_observers;
};

} // namespace kerlune
