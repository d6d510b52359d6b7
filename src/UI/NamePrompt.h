#pragma once

#include "UI/Workspace.h"

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;

namespace kerlune {

// A small dialog that asks for one name, says what for, and has a button that takes it. An empty name is not taken.
//
// Thread: main.
class NamePrompt : public QDialog {
    Q_OBJECT

public:
    explicit NamePrompt(QWidget *parent);

    void accept() override;

protected:
    virtual bool take(const std::string &name) = 0; // false when it could not be; the dialog stays open then
    virtual void retranslate() = 0;

    QLineEdit &nameEdit() { return *m_name; }
    void setTexts(const QString &title, const QString &what, const QString &nameLabel, const QString &takeLabel);

    void changeEvent(QEvent *event) override;

private:
    QLabel *m_what;
    QLineEdit *m_name;
    QPushButton *m_take = nullptr;
    QPushButton *m_cancel = nullptr;
};

} // namespace kerlune
