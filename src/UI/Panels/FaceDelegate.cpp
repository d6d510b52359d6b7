#include "UI/Panels/FaceDelegate.h"

#include "UI/Panels/FaceListModel.h"
#include "UI/Preview/PreviewPainting.h"

#include <QPainter>

namespace kerlune {

namespace {

constexpr int kRowHeight = 64;
constexpr int kLineHeightOfPreview = 36;
constexpr double kEmSize = 22;

QRect previewArea(const QRect &row)
{
    return {row.left() + kCardPadding, row.top() + 5, row.width() - 2 * kCardPadding, kLineHeightOfPreview};
}

} // namespace

FaceDelegate::FaceDelegate(Workspace &workspace, const FaceListModel &model, QObject *parent)
    : QStyledItemDelegate(parent)
    , m_workspace(workspace)
    , m_model(model)
{}

PreviewRequest FaceDelegate::request(const QModelIndex &index, const QRect &row, qreal devicePixelRatio) const
{
    const FontRecordPointer &face = m_model.line(index).face;
    const QSize size = (QSizeF(previewArea(row).size()) * devicePixelRatio).toSize();
    return {.face = face,
            .text = m_workspace.previewText(),
            .emPixels = kEmSize * devicePixelRatio,
            .size = size,
            .color = m_workspace.theme().colors().text};
}

void FaceDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const ThemeColors &colors = m_workspace.theme().colors();
    const FaceLine &line = m_model.line(index);
    const QRect row = option.rect;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    const bool isHovered = option.state.testFlag(QStyle::State_MouseOver);
    const QRectF ground = QRectF(row).adjusted(8, 1, -8, -1);
    if (isSelected || isHovered) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(isSelected ? colors.selection : colors.hover);
        painter->drawRoundedRect(ground, kControlRadius, kControlRadius);
    }
    if (option.state.testFlag(QStyle::State_HasFocus)) {
        painter->setPen(QPen(colors.accent, 1.5));
        painter->setBrush(Qt::NoBrush);
        painter->drawRoundedRect(ground.adjusted(0.75, 0.75, -0.75, -0.75), kControlRadius, kControlRadius);
    }

    const QRect area = previewArea(row);
    const qreal ratio = painter->device()->devicePixelRatioF();
    const PreviewRequest wanted = request(index, row, ratio);
    if (const auto preview = m_workspace.previews().find(wanted); preview != nullptr)
        PreviewPainting::paint(*painter, area, wanted, *preview, m_workspace.theme());

    const QRect caption(area.left(), area.bottom() + 2, area.width(), row.bottom() - area.bottom() - 6);
    painter->setFont(Theme::font(TextSize::small));
    painter->setPen(isSelected ? colors.text : colors.secondaryText);
    const int detailWidth = painter->fontMetrics().horizontalAdvance(line.detail) + kGridStep;
    painter->drawText(caption, Qt::AlignVCenter | Qt::AlignRight, line.detail);
    painter->drawText(caption.adjusted(0, 0, -detailWidth, 0), Qt::AlignVCenter | Qt::AlignLeft,
                      painter->fontMetrics().elidedText(line.caption, Qt::ElideMiddle, caption.width() - detailWidth));
    painter->restore();
}

QSize FaceDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const
{
    return {0, kRowHeight};
}

} // namespace kerlune
