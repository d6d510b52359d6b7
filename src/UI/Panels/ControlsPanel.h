#pragma once

#include "UI/Panels/FacePanel.h"

class QLabel;

namespace kerlune {

// A panel of controls that scrolls, or of one line in their place that says why there are none.
//
// Thread: main.
class ControlsPanel : public FacePanel {
    Q_OBJECT

protected:
    ControlsPanel(Workspace &workspace, QWidget *parent);

    void setControls(QWidget *contents, const char *messageName); // once
    QWidget *controls() const { return m_controls; }
    void showControls();
    void showMessage(const QString &why);

private:
    QLabel *m_message;
    QWidget *m_controls = nullptr;
};

} // namespace kerlune
