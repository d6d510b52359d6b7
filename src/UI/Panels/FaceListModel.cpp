#include "UI/Panels/FaceListModel.h"

#include "UI/InterfaceText.h"

#include <algorithm>

namespace kerlune {

void FaceListModel::setLines(std::vector<FaceLine> lines)
{
    beginResetModel();
    m_lines = std::move(lines);
    endResetModel();
}

const FaceLine &FaceListModel::line(const QModelIndex &index) const
{
    return m_lines.at(static_cast<std::size_t>(index.row()));
}

QModelIndex FaceListModel::indexOf(const FontRecordPointer &face) const
{
    const auto found =
        std::find_if(m_lines.begin(), m_lines.end(), [&](const FaceLine &line) { return line.face == face; });
    return found == m_lines.end() ? QModelIndex() : index(static_cast<int>(found - m_lines.begin()));
}

int FaceListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_lines.size());
}

QVariant FaceListModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const FaceLine &entry = line(index);
    switch (role) {
    case Qt::DisplayRole:
        return entry.caption;
    case Qt::AccessibleTextRole:
        return QStringLiteral("%1, %2").arg(entry.caption, entry.detail);
    case Qt::ToolTipRole:
        return shownAsMarkup(entry.face->postScriptName);
    default:
        return {};
    }
}

} // namespace kerlune
