#pragma once

#include "UI/Workspace.h"

#include <QWidget>

#include <optional>
#include <string>
#include <vector>

class QLabel;
class QProgressBar;
class QPushButton;

namespace kerlune {

class CatalogActions;
class ElidedName;
class FactList;
class PreviewLabel;

// The chosen family of the Google catalogue: what it is, and its installation and removal.
//
// Thread: main.
class CatalogDetails final : public QWidget {
    Q_OBJECT

public:
    explicit CatalogDetails(Workspace &workspace, QWidget *parent = nullptr);

    void showSelection();

protected:
    void changeEvent(QEvent *event) override;

private:
    void layOut();
    void follow();
    void showPreview();
    void showInstallation();
    std::vector<QPropertyNotifier> m_observers;

    Workspace &m_workspace;
    CatalogActions *m_actions;
    std::optional<GoogleFontFamily> m_family;
    QLabel *m_hint;
    QWidget *m_content;
    PreviewLabel *m_preview;
    ElidedName *m_name;
    QLabel *m_state;
    QLabel *m_error;
    QProgressBar *m_progress;
    QPushButton *m_install;
    QPushButton *m_show;
    QPushButton *m_remove;
    QPushButton *m_compare;
    FactList *m_facts;
};

} // namespace kerlune
