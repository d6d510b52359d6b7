#pragma once

#include "UI/Catalog/CatalogQuery.h"
#include "UI/Workspace.h"

#include <QTimer>
#include <QWidget>

#include <vector>

class QFrame;
class QLabel;
class QPushButton;
class QStackedWidget;

namespace kerlune {

class CatalogActions;
class CatalogBar;
class CatalogList;
class CatalogModel;
class MessagePage;

// The Google catalogue: its families, drawn as their fonts arrive, and what stands in their place while there are none.
//
// Thread: main.
class CatalogPage final : public QWidget {
    Q_OBJECT

public:
    explicit CatalogPage(Workspace &workspace, QWidget *parent = nullptr);

    void focusView();
    bool isPainted() const; // nothing is on the way any more

protected:
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    QWidget *makeStaleNote();
    void follow();
    void updateSoon();
    void update();
    void showMessage();

    Workspace &m_workspace;
    CatalogModel *m_model;
    CatalogActions *m_actions;
    CatalogBar *m_bar;
    QFrame *m_stale; // that what is listed could not be read again
    QLabel *m_staleText = nullptr;
    QPushButton *m_retry = nullptr;
    QStackedWidget *m_stack;
    CatalogList *m_list;
    MessagePage *m_message;
    QTimer m_updating;
    CatalogQuery m_query; // whose families are listed
    std::vector<QPropertyNotifier> m_observers;
};

} // namespace kerlune
