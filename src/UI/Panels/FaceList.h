#pragma once

#include "UI/Panels/FaceListModel.h"
#include "UI/Workspace.h"

#include <QListView>
#include <QProperty>

#include <vector>

namespace kerlune {

class FaceDelegate;

// A list of faces, each drawn in itself.
//
// Thread: main.
class FaceList final : public QListView {
    Q_OBJECT

public:
    explicit FaceList(Workspace &workspace, QWidget *parent = nullptr);

    void setLines(std::vector<FaceLine> lines);
    void setCurrentFace(const FontRecordPointer &face); // tells nobody; none when it is not in the list

Q_SIGNALS:
    void faceChosen(const FontRecordPointer &face); // by mouse or keyboard

protected:
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void wantPreviews();

    Workspace &m_workspace;
    FaceListModel *m_model;
    FaceDelegate *m_delegate;
    bool m_isFollowing = false; // the current face, which is not chosen then
    std::vector<QPropertyNotifier> m_observers;
};

} // namespace kerlune
