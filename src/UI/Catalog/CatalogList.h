#pragma once

#include "UI/Catalog/CatalogDelegate.h"
#include "UI/Workspace.h"

#include <QListView>
#include <QTimer>

#include <optional>
#include <string>
#include <vector>

namespace kerlune {

class CatalogModel;

// The listed families of the catalogue as cards, lines or waterfalls. Fonts are asked for where the user looks, not on
// the way.
//
// Thread: main.
class CatalogList final : public QListView {
    Q_OBJECT

public:
    CatalogList(Workspace &workspace, CatalogModel &model, QWidget *parent = nullptr);

    void setForm(CatalogDelegate::Form form);
    std::optional<std::string> currentFamily() const;
    void setCurrentFamily(const std::string &family); // where it is listed
    bool isPainted() const;                           // every preview in sight is there, or cannot be had

Q_SIGNALS:
    void familyChosen(const std::string &family); // is the current one now
    void installWanted(const std::string &family);
    void menuWanted(const std::string &family, const QPoint &globalPosition);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    std::vector<int> rowsInSight() const;
    void layOut();
    void wantSoon();
    void want();

    Workspace &m_workspace;
    CatalogModel &m_model;
    CatalogDelegate *m_delegate;
    QTimer m_resting; // since the last scrolling
    std::vector<QPropertyNotifier> m_observers;
};

} // namespace kerlune
