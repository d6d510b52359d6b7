#pragma once

#include "UI/Catalog/CatalogQuery.h"
#include "UI/Workspace.h"

#include <QWidget>

#include <string>
#include <vector>

class QCheckBox;
class QComboBox;
class QToolButton;

namespace kerlune {

// What narrows and orders the catalogue, and what reads it again. The search stands in the toolbar.
//
// Thread: main.
class CatalogBar final : public QWidget {
    Q_OBJECT

public:
    explicit CatalogBar(Workspace &workspace, QWidget *parent = nullptr);

    CatalogQuery query() const; // without the search
    void clear();               // but for the order
    void setCategories(const std::vector<std::string> &categories);

Q_SIGNALS:
    void queryChanged();
    void refreshWanted();

protected:
    void changeEvent(QEvent *event) override;

private:
    void retranslate();

    std::vector<std::string> m_keys; // of the categories in the menu, after the first entry
    QComboBox *m_categories;
    QComboBox *m_order;
    QCheckBox *m_variable;
    QCheckBox *m_installed;
    QToolButton *m_refresh;
};

} // namespace kerlune
