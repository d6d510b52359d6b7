#pragma once

#include "UI/Workspace.h"

#include <QFrame>
#include <QSystemTrayIcon>

#include <vector>

class QAction;
class QLabel;
class QLineEdit;
class QListWidget;
class QMenu;
class QPushButton;

namespace kerlune {

// The icon in the notification area, and a small window with the fonts that one reaches for again and again.
//
// Thread: main.
class TrayPicker final : public QFrame {
    Q_OBJECT

public:
    explicit TrayPicker(Workspace &workspace, QWidget *parent = nullptr);
    ~TrayPicker() override;

    bool isTrayShown() const { return m_tray.isVisible(); }
    void popUp();
    void tell(const Notice &notice); // by the desktop, for who has no window of Kerlune before them

Q_SIGNALS:
    void familyChosen(const QString &family);
    void windowWanted();
    void quitWanted();

protected:
    void changeEvent(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override; // keys of the search field

private:
    void makeMenu();
    void retranslate();
    void showTray();
    void fill();
    void addSection(const QString &title, const std::vector<std::string> &families);
    void choose();
    void copyName();
    void apply();
    std::optional<std::string> currentName() const;

    Workspace &m_workspace;
    QSystemTrayIcon m_tray;
    QMenu *m_menu;
    QAction *m_openPicker;
    QAction *m_openWindow;
    QAction *m_quit;
    QLineEdit *m_search;
    QListWidget *m_list;
    QPushButton *m_apply;
    QPushButton *m_copy;
    QPushButton *m_open;
    std::vector<QPropertyNotifier> m_observers;
};

} // namespace kerlune
