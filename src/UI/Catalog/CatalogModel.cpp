#include "UI/Catalog/CatalogModel.h"

#include "UI/InterfaceText.h"

#include <algorithm>
#include <utility>

namespace kerlune {

CatalogModel::CatalogModel(Workspace &workspace, QObject *parent)
    : QAbstractListModel(parent)
    , m_workspace(workspace)
{}

void CatalogModel::setFamilies(GoogleFamilies families)
{
    if (families == m_families)
        return;
    beginResetModel();
    m_families = std::move(families);
    endResetModel();
}

void CatalogModel::noteChanged()
{
    if (!m_families.empty())
        Q_EMIT dataChanged(index(0), index(rowCount() - 1));
}

bool CatalogModel::isInstalled(int row) const
{
    return m_workspace.state().googleInstalledFamilies().contains(family(row).family);
}

std::optional<double> CatalogModel::installProgress(int row) const
{
    const auto &running = m_workspace.state().googleInstallProgress();
    const auto found = running.find(family(row).family);
    return found == running.end() ? std::nullopt : std::optional(found->second);
}

std::optional<int> CatalogModel::rowOf(const std::string &family) const
{
    const auto found = std::find_if(m_families.begin(), m_families.end(),
                                    [&](const GoogleFontFamily &listed) { return listed.family == family; });
    return found == m_families.end() ? std::nullopt : std::optional(static_cast<int>(found - m_families.begin()));
}

int CatalogModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_families.size());
}

QVariant CatalogModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return shown(family(index.row()).shownName());
    case Qt::AccessibleTextRole:
        return accessibleText(index.row());
    case Qt::ToolTipRole: {
        QStringList designers;
        for (const std::string &designer : family(index.row()).designers)
            designers.push_back(shown(designer));
        return (shown(family(index.row()).shownName()) + QLatin1Char('\n') + designers.join(QStringLiteral(", ")))
            .trimmed()
            .toHtmlEscaped()
            .replace(u'\n', QStringLiteral("<br>"));
    }
    default:
        return {};
    }
}

QString CatalogModel::accessibleText(int row) const
{
    QStringList parts{shown(family(row).shownName()), catalogDetails(family(row))};
    if (isInstalled(row))
        parts.push_back(uiText("installée"));
    else if (installProgress(row))
        parts.push_back(uiText("installation en cours"));
    return parts.join(QStringLiteral(", "));
}

QString catalogDetails(const GoogleFontFamily &family)
{
    QStringList parts;
    if (!family.category.empty())
        parts.push_back(shown(categoryLabel(family.category)));
    if (!family.variants.empty())
        parts.push_back(uiCount("%1 style", "%1 styles", static_cast<std::int64_t>(family.variants.size())));
    return parts.join(QStringLiteral(" · "));
}

} // namespace kerlune
