#pragma once

#include "UI/Workspace.h"

#include <QDialog>

#include <vector>

class QListWidget;
class QStackedWidget;

namespace kerlune {

// All settings. Each is applied at once.
//
// Thread: main.
class SettingsWindow final : public QDialog {
    Q_OBJECT

public:
    explicit SettingsWindow(Workspace &workspace, QWidget *parent = nullptr);

protected:
    void changeEvent(QEvent *event) override;

private:
    void fill(); // again in another language
    QWidget *generalPage();
    QWidget *previewPage();
    QWidget *activationPage();
    QWidget *searchPage();
    QWidget *switchOf(const QString &text, QProperty<bool> &setting, const char *name);

    Workspace &m_workspace;
    QListWidget *m_list;
    QStackedWidget *m_pages;
    std::vector<QPropertyNotifier> m_observers; // of the controls that stand now
};

} // namespace kerlune
