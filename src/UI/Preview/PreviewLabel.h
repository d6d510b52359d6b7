#pragma once

#include "UI/Preview/PreviewRequest.h"
#include "UI/Workspace.h"

#include <QWidget>

#include <optional>

namespace kerlune {

// Shows one text in one face, as large as the widget. Where the face cannot be drawn it shows its name in the interface
// font and says why in its tool tip. Its accessible name is the text.
//
// Thread: main.
class PreviewLabel final : public QWidget {
    Q_OBJECT

public:
    explicit PreviewLabel(Workspace &workspace, QWidget *parent = nullptr);

    struct Content {
        FontRecordPointer face;
        std::string text;
        double emSize = 0; // logical pixels
        PreviewRequest::Lines lines = PreviewRequest::Lines::One;
        PreviewRequest::Sample sample = PreviewRequest::Sample::OfCoveredScript;
        std::vector<FeatureValue> features = {};
        std::vector<AxisValue> coordinates = {};

        bool operator==(const Content &) const = default;
    };

    void setContent(Content content); // without a face nothing is shown
    const Content &content() const { return m_content; }

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    std::optional<PreviewRequest> request() const; // none when there is nothing to draw
    void want();
    void take(); // what was wanted, if it is there
    void describe();

    Workspace &m_workspace;
    Content m_content;
    std::optional<PreviewRequest> m_wanted;
    PreviewPointer m_last; // stands until the next one is there
    PreviewRequest m_lastRequest;
    bool m_leavesRoom = false; // below the text, for the size that it was reduced to
};

} // namespace kerlune
