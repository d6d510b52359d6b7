#pragma once

#include "UI/Workspace.h"

#include <QWidget>

#include <vector>

class QComboBox;
class QLabel;
class QPushButton;
class QToolButton;

namespace kerlune {

class ElidedName;
class PreviewLabel;

// The face in large, its family's name, and what is done with the family most often: another style, a star, activation.
//
// Thread: main.
class FaceHeader final : public QWidget {
    Q_OBJECT

public:
    explicit FaceHeader(Workspace &workspace, QWidget *parent = nullptr);

    void setFace(FontFamilyPointer family, FontRecordPointer face); // of the family; null for both when there is none
    void showState();                                               // activation and favourites, as they are now

protected:
    void changeEvent(QEvent *event) override;

private:
    void layOut();
    void follow();
    void retranslate();
    void showPreview();
    void listStyles();
    void showBadges();
    void showActivation();
    void showFavorite();
    void toggleActivation();

    Workspace &m_workspace;
    FontFamilyPointer m_family;
    FontRecordPointer m_face;
    PreviewLabel *m_preview;
    ElidedName *m_name;
    QToolButton *m_star;
    QComboBox *m_styles;
    std::vector<FontRecordPointer> m_listed; // in the combo box
    QLabel *m_sign;
    QLabel *m_state;
    QPushButton *m_toggle;
    QLabel *m_styleCount;
    QLabel *m_variableBadge;
    QLabel *m_colorBadge;
    std::vector<QPropertyNotifier> m_observers;
};

} // namespace kerlune
