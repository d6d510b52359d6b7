#pragma once

#include "Platform/FaceFeatures.h"
#include "UI/Panels/ControlsPanel.h"

#include <QProperty>

#include <memory>
#include <optional>
#include <vector>

class QLabel;
class QPushButton;
class QVBoxLayout;

namespace kerlune {

class FeatureRow;

// The OpenType features of the face: what is switched here is seen at once in the large preview.
//
// Thread: main.
class FeaturesPanel final : public ControlsPanel {
    Q_OBJECT

public:
    explicit FeaturesPanel(Workspace &workspace, QWidget *parent = nullptr);
    ~FeaturesPanel() override;

protected:
    void showFace(Change change) override;
    void retranslate() override;

private:
    QWidget *makeContents();
    void makeRows();
    void showWhatIsThere();
    void takeValues();
    void followWorkspace();
    std::vector<FeatureValue> values() const; // those that are not as they are by default
    void copyCss();

    std::optional<std::vector<FaceFeature>> m_features; // absent until they are read
    bool m_isUnreadable = false;
    bool m_isFollowing = false;
    QLabel *m_optionalTitle = nullptr;
    QVBoxLayout *m_optionalColumn = nullptr;
    QLabel *m_defaultTitle = nullptr;
    QVBoxLayout *m_defaultColumn = nullptr;
    QPushButton *m_reset = nullptr;
    QPushButton *m_copy = nullptr;
    std::vector<std::unique_ptr<FeatureRow>> m_rows; // one for each feature
    std::vector<QPropertyNotifier> m_observers;
};

} // namespace kerlune
