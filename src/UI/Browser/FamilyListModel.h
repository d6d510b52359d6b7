#pragma once

#include "UI/Workspace.h"

#include <QAbstractListModel>

#include <optional>
#include <string>
#include <vector>

namespace kerlune {

// What a card tells of a family.
struct FamilySummary {
    FontRecordPointer face; // that stands for the family
    int styleCount = 0;
    bool isVariable = false;
    bool isColor = false;
    bool isFavorite = false;
    ActivationState activation = ActivationState::inactive;
};

// The visible families. It is told when they have changed, and does not look for itself.
//
// Thread: main.
class FamilyListModel final : public QAbstractListModel {
    Q_OBJECT

public:
    enum Role { NameRole = Qt::UserRole + 1, FamilyRole }; // FamilyRole: a FontFamilyPointer

    explicit FamilyListModel(Workspace &workspace, QObject *parent = nullptr);

    // Takes the list over. What stands in both keeps its place in `families` only: the rows are reset, unless they
    // bear the same names as before.
    void setFamilies(const AppState::Families &families);
    bool hasFamilies(const AppState::Families &families) const; // the same names in the same order

    const AppState::Families &families() const { return m_families; }
    const FontFamilyPointer &family(int row) const { return m_families[static_cast<std::size_t>(row)]; }
    const std::string &name(int row) const { return family(row)->name; }
    FamilySummary summary(int row) const;

    // Blocks for one pass over the list.
    std::optional<int> rowOf(const std::string &name) const;
    std::vector<int> rowsOf(const std::vector<std::string> &names) const; // ascending; others are passed over

    // The next row, from this one on and around, whose name begins with the text, neither case nor diacritics counting.
    std::optional<int> rowBeginningWith(const std::string &text, int from) const;

    void noteUserDataChanged(); // favourites or activation

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QStringList mimeTypes() const override;
    QMimeData *mimeData(const QModelIndexList &indexes) const override; // names, and the files of all faces

private:
    QString accessibleText(int row) const;

    Workspace &m_workspace;
    AppState::Families m_families;
};

} // namespace kerlune

Q_DECLARE_METATYPE(kerlune::FontFamilyPointer)
