#pragma once

#include "Catalogs/GoogleFontFamily.h"
#include "UI/Workspace.h"

#include <QAbstractListModel>

#include <optional>
#include <string>

namespace kerlune {

// The listed families of the Google catalogue.
//
// Thread: main.
class CatalogModel final : public QAbstractListModel {
    Q_OBJECT

public:
    explicit CatalogModel(Workspace &workspace, QObject *parent = nullptr);

    void setFamilies(GoogleFamilies families);
    void noteChanged(); // what is installed, or being installed

    const GoogleFamilies &families() const { return m_families; }
    const GoogleFontFamily &family(int row) const { return m_families[static_cast<std::size_t>(row)]; }
    bool isInstalled(int row) const;
    std::optional<double> installProgress(int row) const; // 0…1 while it is being installed
    std::optional<int> rowOf(const std::string &family) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

private:
    QString accessibleText(int row) const;

    Workspace &m_workspace;
    GoogleFamilies m_families;
};

// What stands below a family's name: "Serif · 12 styles".
QString catalogDetails(const GoogleFontFamily &family);

} // namespace kerlune
