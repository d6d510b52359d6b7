#include "UI/Catalog/CatalogDelegate.h"

#include "UI/Browser/CellPreviews.h"
#include "UI/Catalog/CatalogModel.h"
#include "UI/InterfaceText.h"
#include "UI/Preview/PreviewPainting.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace kerlune {

namespace {

constexpr int kNamesHeight = 36;
constexpr int kSignRoom = 28;
constexpr int kCatalogSignIcon = 16;
constexpr int kNameColumn = 220;

QRect ground(const QRect &cell)
{
    return cell.adjusted(kCardGap / 2, kCardGap / 2, -kCardGap / 2, -kCardGap / 2);
}

} // namespace

CatalogDelegate::CatalogDelegate(Workspace &workspace, const CatalogModel &model, QObject *parent)
    : QStyledItemDelegate(parent)
    , m_workspace(workspace)
    , m_model(model)
{}

int CatalogDelegate::height() const
{
    if (m_form == Form::Waterfall)
        return BrowserLayout({.mode = BrowserLayout::Mode::waterfall, .count = 1}).cellSize().height();
    const double em = m_workspace.state().previewSize.value();
    const int preview = static_cast<int>(std::ceil(em * 1.6 / kGridStep)) * kGridStep;
    if (m_form == Form::Line)
        return std::clamp(preview, 6 * kGridStep, 25 * kGridStep);
    return std::clamp(preview, 9 * kGridStep, 25 * kGridStep) + kNamesHeight + 2 * kCardPadding + kCardGap;
}

void CatalogDelegate::setCell(const QSize &cell)
{
    m_cell = cell;
    m_waterfall = BrowserLayout({.mode = BrowserLayout::Mode::waterfall, .width = cell.width(), .count = 1});
}

std::vector<QRect> CatalogDelegate::previewRects(const QRect &cell) const
{
    if (m_form == Form::Line)
        return {cell.adjusted(kCardPadding + kNameColumn, 2, -kCardPadding - kSignRoom, -2)};
    if (m_form == Form::Card)
        return {ground(cell).adjusted(kCardPadding, kGridStep, -kCardPadding, -kCardPadding - kNamesHeight)};
    std::vector<QRect> lines = m_waterfall.cell().previews;
    for (QRect &line : lines)
        line.translate(cell.topLeft());
    return lines;
}

CatalogDelegate::Names CatalogDelegate::nameRects(const QRect &cell) const
{
    if (m_form == Form::Waterfall) {
        return {m_waterfall.cell().name.translated(cell.topLeft()),
                m_waterfall.cell().details.translated(cell.topLeft())};
    }
    const QRect card = ground(cell);
    const QRect both = m_form == Form::Line
                           ? QRect(cell.left() + kCardPadding, cell.center().y() - kNamesHeight / 2,
                                   kNameColumn - kCardGap, kNamesHeight)
                           : QRect(card.left() + kCardPadding, card.bottom() + 1 - kCardPadding - kNamesHeight,
                                   card.width() - 2 * kCardPadding - kSignRoom, kNamesHeight);
    return {both.adjusted(0, 0, 0, -kNamesHeight / 2), both.adjusted(0, kNamesHeight / 2, 0, 0)};
}

QRect CatalogDelegate::signRect(const QRect &cell) const
{
    if (m_form == Form::Waterfall)
        return m_waterfall.cell().sign.translated(cell.topLeft());
    const QRect inner = m_form == Form::Line ? cell : ground(cell);
    const Names names = nameRects(cell);
    return {inner.right() + 1 - kCardPadding - kSignRoom + 6, names.details.top() - 1 - kSignRoom / 2, kSignRoom,
            kSignRoom};
}

std::vector<PreviewRequest> CatalogDelegate::requests(int row, qreal devicePixelRatio) const
{
    const FontRecordPointer face = m_workspace.state().googlePreviews().descriptor(m_model.family(row).family);
    if (face == nullptr)
        return {};
    const std::string text = m_workspace.previewText();
    const QColor color = m_workspace.theme().colors().text;
    if (m_form == Form::Waterfall) {
        const CellPreviews cell(m_waterfall, text, color, devicePixelRatio);
        std::vector<PreviewRequest> lines;
        for (std::size_t i = 0; i < cell.count(); ++i)
            lines.push_back(cell.request(face, i));
        return lines;
    }
    const QRect area = previewRects(QRect(QPoint(0, 0), m_cell)).front();
    return {{.face = face,
             .text = text,
             .emPixels = m_workspace.state().previewSize.value() * devicePixelRatio,
             .size = (QSizeF(area.size()) * devicePixelRatio).toSize(),
             .color = color}};
}

void CatalogDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    paintGround(*painter, option);
    paintPreviews(*painter, option.rect, index.row());
    paintNames(*painter, option.rect, index.row());
    paintSign(*painter, option.rect, index.row());
    painter->restore();
}

void CatalogDelegate::paintGround(QPainter &painter, const QStyleOptionViewItem &option) const
{
    const ThemeColors &colors = m_workspace.theme().colors();
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    const bool isHovered = option.state.testFlag(QStyle::State_MouseOver);
    const bool isFocused = option.state.testFlag(QStyle::State_HasFocus);
    if (m_form != Form::Card) {
        if (isSelected || isHovered)
            painter.fillRect(option.rect, isSelected ? colors.selection : colors.hover);
        painter.fillRect(option.rect.adjusted(kCardPadding, option.rect.height() - 1, -kCardPadding, 0),
                         colors.hairline);
        if (isFocused) {
            painter.setPen(QPen(colors.accent, 2));
            painter.setBrush(Qt::NoBrush);
            painter.drawRoundedRect(QRectF(option.rect).adjusted(2, 1, -2, -2), kControlRadius, kControlRadius);
        }
        return;
    }
    const double line = isFocused ? 2 : 1;
    painter.setPen(QPen(isSelected || isFocused ? colors.accent
                        : isHovered             ? colors.secondaryText
                                                : colors.hairline,
                        line));
    painter.setBrush(isSelected ? colors.selection : colors.card);
    const double inset = line / 2;
    painter.drawRoundedRect(QRectF(ground(option.rect)).adjusted(inset, inset, -inset, -inset), kCardRadius,
                            kCardRadius);
}

void CatalogDelegate::paintPreviews(QPainter &painter, const QRect &cell, int row) const
{
    const std::vector<QRect> areas = previewRects(cell);
    const std::vector<PreviewRequest> wanted = requests(row, painter.device()->devicePixelRatioF());
    bool isThere = false;
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        const PreviewPointer preview = m_workspace.previews().find(wanted[i]);
        if (preview == nullptr)
            continue;
        isThere = true;
        PreviewPainting::paint(painter, areas[i], wanted[i], *preview, m_workspace.theme());
        if (preview->failure != Preview::Failure::None)
            return; // one line says so for all
        if (m_form == Form::Waterfall)
            paintSize(painter, areas[i], *preview);
    }
    if (!isThere)
        paintMissing(painter, areas[areas.size() / 2], row);
}

// On the line's own baseline.
void CatalogDelegate::paintSize(QPainter &painter, const QRect &area, const Preview &preview) const
{
    const double scale = painter.device()->devicePixelRatioF();
    painter.setFont(Theme::font(TextSize::small));
    painter.setPen(m_workspace.theme().colors().secondaryText);
    painter.drawText(
        QPointF(area.left() - BrowserLayout::kSizeLabelWidth, area.top() + std::round(preview.baseline / scale)),
        QString::number(std::lround(preview.emPixels / scale)));
}

// While the font is on its way a bar stands for it; where it cannot be had, the name in the interface font.
void CatalogDelegate::paintMissing(QPainter &painter, const QRect &area, int row) const
{
    const ThemeColors &colors = m_workspace.theme().colors();
    if (m_workspace.state().googlePreviews().hasFailed(m_model.family(row).family)) {
        const QPixmap mark = m_workspace.theme().iconPixmap("warning", kCatalogSignIcon, colors.secondaryText,
                                                            painter.device()->devicePixelRatioF());
        painter.drawPixmap(area.left(), area.center().y() + 1 - kCatalogSignIcon / 2, mark);
        const QRect name = area.adjusted(kCatalogSignIcon + kGridStep, 0, 0, 0);
        painter.setFont(Theme::font(TextSize::large));
        painter.setPen(colors.secondaryText);
        painter.drawText(
            name, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
            painter.fontMetrics().elidedText(shown(m_model.family(row).shownName()), Qt::ElideMiddle, name.width()));
        return;
    }
    const double height = std::clamp(area.height() / 6.0, 4.0, 10.0);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colors.hairline);
    painter.drawRoundedRect(QRectF(area.left(), area.center().y() - height / 2, area.width() * 0.4, height), height / 2,
                            height / 2);
}

void CatalogDelegate::paintNames(QPainter &painter, const QRect &cell, int row) const
{
    const ThemeColors &colors = m_workspace.theme().colors();
    const GoogleFontFamily &family = m_model.family(row);
    const auto [upper, lower] = nameRects(cell);
    painter.setFont(Theme::font(TextSize::body));
    painter.setPen(colors.text);
    painter.drawText(upper, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(shown(family.shownName()), Qt::ElideMiddle, upper.width()));
    painter.setFont(Theme::font(TextSize::small));
    painter.setPen(colors.secondaryText);
    const QString details = catalogDetails(family);
    painter.drawText(lower, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     painter.fontMetrics().elidedText(details, Qt::ElideRight, lower.width()));
    if (!family.isVariable)
        return;
    const QFontMetrics metrics = painter.fontMetrics();
    const QString badge = uiText("VAR");
    const int x = lower.left() + metrics.horizontalAdvance(details) + 6;
    const int top = lower.top() + (lower.height() - metrics.height()) / 2;
    const QRectF frame(x + 0.5, top + 0.5, metrics.horizontalAdvance(badge) + 8, metrics.height() - 1);
    if (frame.right() > lower.right())
        return;
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(frame, 3, 3);
    painter.drawText(frame, Qt::AlignCenter, badge);
}

void CatalogDelegate::paintSign(QPainter &painter, const QRect &cell, int row) const
{
    const ThemeColors &colors = m_workspace.theme().colors();
    const QRect sign = signRect(cell);
    if (const auto progress = m_model.installProgress(row)) {
        QRectF circle(0, 0, kCatalogSignIcon - 2, kCatalogSignIcon - 2);
        circle.moveCenter(QRectF(sign).center());
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(colors.hairline, 2));
        painter.drawEllipse(circle);
        painter.setPen(QPen(colors.accent, 2));
        constexpr int kTurn = 360 * 16;
        painter.drawArc(circle, kTurn / 4, -static_cast<int>(std::lround(std::max(0.03, *progress) * kTurn)));
        return;
    }
    const bool isInstalled = m_model.isInstalled(row);
    const QPixmap icon = m_workspace.theme().iconPixmap(isInstalled ? "check" : "download", kCatalogSignIcon,
                                                        isInstalled ? colors.accent : colors.secondaryText,
                                                        painter.device()->devicePixelRatioF());
    painter.drawPixmap(sign.center().x() + 1 - kCatalogSignIcon / 2, sign.center().y() + 1 - kCatalogSignIcon / 2,
                       icon);
}

QSize CatalogDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const
{
    return m_cell;
}

} // namespace kerlune
