#pragma once

#include "UI/Panels/FacePanel.h"

namespace kerlune {

class FaceList;

// All faces of the family, each drawn in itself; the chosen one becomes the active face.
//
// Thread: main.
class StylesPanel final : public FacePanel {
    Q_OBJECT

public:
    explicit StylesPanel(Workspace &workspace, QWidget *parent = nullptr);

protected:
    void showFace(Change change) override;
    void retranslate() override;

private:
    FaceList *m_list;
};

} // namespace kerlune
