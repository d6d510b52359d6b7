#include "UI/Browser/FamilyListModel.h"

#include "Support/Text.h"
#include "UI/ActivationSign.h"
#include "UI/Drop.h"
#include "UI/InterfaceText.h"

#include <QMimeData>
#include <QUrl>

#include <algorithm>
#include <memory>
#include <set>
#include <string_view>
#include <unordered_set>

namespace kerlune {

FamilyListModel::FamilyListModel(Workspace &workspace, QObject *parent)
    : QAbstractListModel(parent)
    , m_workspace(workspace)
{}

bool FamilyListModel::hasFamilies(const AppState::Families &families) const
{
    return std::equal(m_families.begin(), m_families.end(), families.begin(), families.end(),
                      [](const auto &a, const auto &b) { return a == b || a->name == b->name; });
}

void FamilyListModel::setFamilies(const AppState::Families &families)
{
    if (m_families == families)
        return;
    if (hasFamilies(families)) {
        m_families = families;
        noteUserDataChanged();
        return;
    }
    beginResetModel();
    m_families = families;
    endResetModel();
}

void FamilyListModel::noteUserDataChanged()
{
    if (!m_families.empty())
        Q_EMIT dataChanged(index(0), index(rowCount() - 1));
}

FamilySummary FamilyListModel::summary(int row) const
{
    const FontFamily &shownFamily = *family(row);
    const AppState &state = m_workspace.state();
    return {.face = shownFamily.representative(),
            .styleCount = static_cast<int>(shownFamily.faces.size()),
            .isVariable = shownFamily.isVariable(),
            .isColor = shownFamily.isColor(),
            .isFavorite = state.favorites().contains(shownFamily.name),
            .activation = state.activationState(shownFamily)};
}

std::optional<int> FamilyListModel::rowOf(const std::string &name) const
{
    const auto found =
        std::find_if(m_families.begin(), m_families.end(), [&](const auto &family) { return family->name == name; });
    return found == m_families.end() ? std::nullopt : std::optional(static_cast<int>(found - m_families.begin()));
}

std::vector<int> FamilyListModel::rowsOf(const std::vector<std::string> &names) const
{
    const std::unordered_set<std::string_view> wanted(names.begin(), names.end());
    std::vector<int> rows;
    for (int row = 0; !wanted.empty() && row < rowCount(); ++row) {
        if (wanted.contains(name(row)))
            rows.push_back(row);
    }
    return rows;
}

std::optional<int> FamilyListModel::rowBeginningWith(const std::string &text, int from) const
{
    const std::string sought = folded(text);
    const int count = rowCount();
    std::string beginning;
    for (int i = 0; !sought.empty() && i < count; ++i) {
        const int row = (std::max(0, from) + i) % count;
        beginning.clear();
        appendFolded(beginning, name(row));
        if (beginning.starts_with(sought))
            return row;
    }
    return std::nullopt;
}

int FamilyListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_families.size());
}

QVariant FamilyListModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid))
        return {};
    switch (role) {
    case Qt::DisplayRole:
    case NameRole:
        return shown(name(index.row()));
    case FamilyRole:
        return QVariant::fromValue(family(index.row()));
    case Qt::AccessibleTextRole:
        return accessibleText(index.row());
    default:
        return {};
    }
}

QString FamilyListModel::accessibleText(int row) const
{
    const FamilySummary facts = summary(row);
    QStringList parts{shown(name(row)), uiCount("%1 style", "%1 styles", facts.styleCount),
                      activationWord(facts.activation)};
    if (facts.isFavorite)
        parts << uiText("Favori");
    if (facts.isVariable)
        parts << uiText("Variable");
    if (facts.isColor)
        parts << uiText("En couleur");
    return parts.join(QStringLiteral(", "));
}

Qt::ItemFlags FamilyListModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    return Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsDragEnabled | Qt::ItemNeverHasChildren;
}

QStringList FamilyListModel::mimeTypes() const
{
    return {QLatin1String(kFamiliesMimeType), QStringLiteral("text/uri-list")};
}

QMimeData *FamilyListModel::mimeData(const QModelIndexList &indexes) const
{
    std::vector<int> rows;
    for (const QModelIndex &index : indexes) {
        if (checkIndex(index, CheckIndexOption::IndexIsValid))
            rows.push_back(index.row());
    }
    if (rows.empty())
        return nullptr;
    std::sort(rows.begin(), rows.end());
    std::vector<std::string> names;
    std::set<std::string> files;
    for (const int row : rows) {
        names.push_back(name(row));
        for (const FontRecordPointer &face : family(row)->faces)
            files.insert(face->filePath);
    }
    QList<QUrl> urls;
    for (const std::string &file : files)
        urls << QUrl::fromLocalFile(QString::fromStdString(file));
    auto data = std::make_unique<QMimeData>();
    data->setData(QLatin1String(kFamiliesMimeType), encodeFamilies(names));
    data->setUrls(urls);
    return data.release();
}

} // namespace kerlune
