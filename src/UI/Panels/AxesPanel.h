#pragma once

#include "Platform/FaceAxes.h"
#include "UI/Panels/ControlsPanel.h"

#include <QProperty>

#include <memory>
#include <optional>
#include <vector>

class QComboBox;
class QLabel;
class QPushButton;
class QToolButton;
class QVBoxLayout;

namespace kerlune {

class AxisRow;

// The axes of a variable face: what is set here is seen at once in every preview of the face.
//
// Thread: main.
class AxesPanel final : public ControlsPanel {
    Q_OBJECT

public:
    explicit AxesPanel(Workspace &workspace, QWidget *parent = nullptr);
    ~AxesPanel() override;

protected:
    void showFace(Change change) override;
    void retranslate() override;

private:
    struct Space {
        FaceAxes axes = {};
        std::vector<AxisValue> own = {}; // where the face itself lies: one value for each axis
    };

    QWidget *makeContents();
    void showSpace();
    void makeRows();
    void chooseInstance(int index);
    void takeValues();      // from the rows to the workspace
    void followWorkspace(); // from the workspace to the rows
    void showInstance();    // in the combo box, the one that lies at the values
    void place(const std::vector<AxisValue> &coordinates);
    std::vector<AxisValue> values() const;
    void copyCss();

    std::optional<Space> m_space; // absent until it is read
    bool m_isUnreadable = false;
    bool m_isFollowing = false;
    QLabel *m_instanceLabel = nullptr;
    QComboBox *m_instances = nullptr;
    QVBoxLayout *m_rowColumn = nullptr;
    QToolButton *m_hiddenToggle = nullptr;
    QWidget *m_hiddenPart = nullptr;
    QVBoxLayout *m_hiddenColumn = nullptr;
    QPushButton *m_reset = nullptr;
    QPushButton *m_copy = nullptr;
    std::vector<std::unique_ptr<AxisRow>> m_rows; // one for each axis
    std::vector<QPropertyNotifier> m_observers;
};

} // namespace kerlune
