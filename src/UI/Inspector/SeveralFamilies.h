#pragma once

#include "UI/Workspace.h"

#include <QWidget>

class QLabel;
class QPushButton;

namespace kerlune {

// What can be done with several families at once.
//
// Thread: main.
class SeveralFamilies final : public QWidget {
    Q_OBJECT

public:
    explicit SeveralFamilies(Workspace &workspace, QWidget *parent = nullptr);

    void showSelection(); // as it is now

protected:
    void changeEvent(QEvent *event) override;

private:
    QPushButton *addButton(const char *objectName, const char *icon);
    void retranslate();

    Workspace &m_workspace;
    QLabel *m_count;
    QLabel *m_names;
    QPushButton *m_activate;
    QPushButton *m_deactivate;
    QPushButton *m_favorites;
    QPushButton *m_tag;
    QPushButton *m_compare;
};

} // namespace kerlune
