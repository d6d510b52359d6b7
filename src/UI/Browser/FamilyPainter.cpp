#include "UI/Browser/FamilyPainter.h"

#include "UI/ActivationSign.h"
#include "UI/InterfaceText.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace kerlune {

namespace {

constexpr int kBadgeIcon = 14;
constexpr int kSignIcon = 18;
constexpr int kBadgeGap = 8;

QString pixels(const Preview &preview, qreal devicePixelRatio)
{
    return uiText("%1 px", {QString::number(std::lround(preview.emPixels / devicePixelRatio))});
}

bool isFailed(const FamilyPainter::Drawn &drawn)
{
    return drawn.preview != nullptr && drawn.preview->failure != Preview::Failure::None;
}

} // namespace

FamilyPainter::FamilyPainter(const Theme &theme)
    : m_theme(theme)
    , m_nameFont(Theme::font(TextSize::body))
    , m_detailsFont(Theme::font(TextSize::small))
{}

void FamilyPainter::paint(QPainter &painter, const BrowserLayout &layout, const QString &name,
                          const FamilySummary &summary, std::span<const Drawn> drawn, const Look &look) const
{
    const BrowserLayout::Cell &cell = layout.cell();
    paintGround(painter, layout, look);
    const std::size_t count = std::min(drawn.size(), cell.previews.size());
    const bool failsEverywhere = count > 0 && std::all_of(drawn.begin(), drawn.end(), isFailed);
    for (std::size_t i = 0; i < (failsEverywhere ? std::min<std::size_t>(1, count) : count); ++i)
        paintPreview(painter, cell.previews[i], name, drawn[i]);
    if (layout.measures().mode == BrowserLayout::Mode::waterfall && !failsEverywhere)
        paintSizes(painter, layout, drawn);

    painter.setFont(m_nameFont);
    painter.setPen(m_theme.colors().text);
    const QString elided = QFontMetrics(m_nameFont).elidedText(name, Qt::ElideMiddle, cell.name.width());
    painter.drawText(cell.name, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, elided);
    paintDetails(painter, layout, summary, drawn);
    paintButtons(painter, layout, summary, look);
}

void FamilyPainter::paintGround(QPainter &painter, const BrowserLayout &layout, const Look &look) const
{
    const ThemeColors &colors = m_theme.colors();
    const QRectF cell(QPointF(0, 0), layout.cellSize());
    if (layout.measures().mode != BrowserLayout::Mode::grid) {
        if (look.isSelected || look.isHovered)
            painter.fillRect(cell, look.isSelected ? colors.selection : colors.hover);
        painter.fillRect(QRectF(kCardPadding, cell.height() - 1, cell.width() - 2 * kCardPadding, 1), colors.hairline);
        if (look.isFocused) {
            painter.setPen(QPen(colors.accent, 2));
            painter.setBrush(Qt::NoBrush);
            painter.drawRoundedRect(cell.adjusted(2, 1, -2, -2), kControlRadius, kControlRadius);
        }
        return;
    }
    const double line = look.isFocused ? 2 : 1;
    const QColor &border = look.isSelected || look.isFocused ? colors.accent
                           : look.isHovered                  ? colors.secondaryText
                                                             : colors.hairline;
    painter.setPen(QPen(border, line));
    painter.setBrush(look.isSelected ? colors.selection : colors.card);
    const double inset = line / 2;
    painter.drawRoundedRect(cell.adjusted(inset, inset, -inset, -inset), kCardRadius, kCardRadius);
}

void FamilyPainter::paintPreview(QPainter &painter, const QRect &rect, const QString &name, const Drawn &drawn) const
{
    if (isFailed(drawn)) {
        paintFailure(painter, rect, name);
        return;
    }
    if (drawn.preview == nullptr) {
        const double height = std::clamp(rect.height() / 6.0, 4.0, 10.0);
        const QRectF bar(rect.left(), rect.center().y() - height / 2, rect.width() * 0.4, height);
        painter.setPen(Qt::NoPen);
        painter.setBrush(m_theme.colors().hairline);
        painter.drawRoundedRect(bar, height / 2, height / 2);
        return;
    }
    // One pixel of the image is one of the screen, without a copy of the image that knows it.
    const QImage &image = drawn.preview->image;
    const qreal scale = painter.device()->devicePixelRatioF();
    painter.save();
    painter.setClipRect(rect, Qt::IntersectClip);
    painter.translate(rect.topLeft());
    painter.scale(1 / scale, 1 / scale);
    painter.drawImage(QPoint(0, 0), image);
    painter.restore();
}

// The name stands for what the face could not draw.
void FamilyPainter::paintFailure(QPainter &painter, const QRect &rect, const QString &name) const
{
    const QFont font = Theme::font(rect.height() >= 48 ? TextSize::large : TextSize::title);
    const int iconSize = 16;
    const int room = rect.width() - iconSize - kGridStep;
    const QString elided = QFontMetrics(font).elidedText(name, Qt::ElideMiddle, room);
    paintIcon(painter, QRect(rect.left(), rect.top(), iconSize, rect.height()), "warning", iconSize,
              m_theme.colors().secondaryText);
    painter.setFont(font);
    painter.setPen(m_theme.colors().secondaryText);
    painter.drawText(rect.adjusted(iconSize + kGridStep, 0, 0, 0),
                     Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, elided);
}

// The size of each line of the waterfall on the line's own baseline.
void FamilyPainter::paintSizes(QPainter &painter, const BrowserLayout &layout, std::span<const Drawn> drawn) const
{
    painter.setFont(m_detailsFont);
    painter.setPen(m_theme.colors().secondaryText);
    const qreal scale = painter.device()->devicePixelRatioF();
    const std::vector<QRect> &places = layout.cell().previews;
    for (std::size_t i = 0; i < places.size(); ++i) {
        const Preview *preview = i < drawn.size() ? drawn[i].preview.get() : nullptr;
        const bool hasLine = preview != nullptr && preview->failure == Preview::Failure::None;
        const double baseline = hasLine ? preview->baseline / scale
                                        : places[i].height() / 2.0 + QFontMetrics(m_detailsFont).xHeight() / 2.0;
        const long size =
            hasLine && drawn[i].isReduced ? std::lround(preview->emPixels / scale) : BrowserLayout::waterfallSizes()[i];
        painter.drawText(QPointF(kCardPadding, places[i].top() + std::round(baseline)), QString::number(size));
    }
}

void FamilyPainter::paintDetails(QPainter &painter, const BrowserLayout &layout, const FamilySummary &summary,
                                 std::span<const Drawn> drawn) const
{
    const ThemeColors &colors = m_theme.colors();
    const QRect rect = layout.cell().details;
    const QFontMetrics metrics(m_detailsFont);
    painter.setFont(m_detailsFont);
    painter.setPen(colors.secondaryText);
    const QString styles = uiCount("%1 style", "%1 styles", summary.styleCount);
    painter.drawText(rect, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, styles);
    int x = rect.left() + metrics.horizontalAdvance(styles) + kBadgeGap;
    if (summary.isVariable) {
        const QString badge = uiText("VAR");
        const int width = metrics.horizontalAdvance(badge) + 8;
        const int top = rect.top() + (rect.height() - metrics.height()) / 2;
        const QRectF frame(x + 0.5, top + 0.5, width, metrics.height() - 1);
        painter.setPen(colors.secondaryText);
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(frame, 3, 3);
        painter.drawText(frame, Qt::AlignCenter, badge);
        x += width + kBadgeGap;
    }
    if (summary.isColor) {
        paintIcon(painter, QRect(x, rect.top(), kBadgeIcon, rect.height()), "color", kBadgeIcon, colors.secondaryText);
        x += kBadgeIcon + kBadgeGap;
    }
    const bool isWaterfall = layout.measures().mode == BrowserLayout::Mode::waterfall;
    if (isWaterfall || drawn.empty() || drawn.front().preview == nullptr || isFailed(drawn.front()) ||
        !drawn.front().isReduced)
        return;
    const QString size = pixels(*drawn.front().preview, painter.device()->devicePixelRatioF());
    if (x + metrics.horizontalAdvance(size) <= rect.right() + 1) {
        painter.setPen(colors.secondaryText);
        painter.drawText(rect, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, size);
    }
}

// The empty star shows only where the pointer or the keyboard is: most families are no favourites.
void FamilyPainter::paintButtons(QPainter &painter, const BrowserLayout &layout, const FamilySummary &summary,
                                 const Look &look) const
{
    const ThemeColors &colors = m_theme.colors();
    const BrowserLayout::Cell &cell = layout.cell();
    const bool isToggle = summary.activation != ActivationState::system;
    if (look.isHovered && (look.hoveredPart == CellPart::star || (look.hoveredPart == CellPart::sign && isToggle))) {
        const bool onHover = layout.measures().mode != BrowserLayout::Mode::grid && !look.isSelected;
        painter.setPen(Qt::NoPen);
        painter.setBrush(onHover ? colors.hairline : colors.hover);
        painter.drawRoundedRect(look.hoveredPart == CellPart::star ? cell.star : cell.sign, kControlRadius,
                                kControlRadius);
    }
    if (summary.isFavorite)
        paintIcon(painter, cell.star, "star-filled", kSignIcon, colors.text);
    else if (look.isHovered || look.isFocused)
        paintIcon(painter, cell.star, "star", kSignIcon, colors.secondaryText);
    const ActivationSign sign = activationSign(summary.activation);
    paintIcon(painter, cell.sign, sign.icon, kSignIcon, sign.isAccented ? colors.accent : colors.secondaryText);
}

void FamilyPainter::paintIcon(QPainter &painter, const QRect &rect, const char *icon, int size,
                              const QColor &color) const
{
    const QPixmap pixmap = m_theme.iconPixmap(icon, size, color, painter.device()->devicePixelRatioF());
    painter.drawPixmap(rect.left() + (rect.width() - size) / 2, rect.top() + (rect.height() - size) / 2, pixmap);
}

CellPart FamilyPainter::partAt(const BrowserLayout &layout, QPoint inCell)
{
    const BrowserLayout::Cell &cell = layout.cell();
    if (cell.star.contains(inCell))
        return CellPart::star;
    if (cell.sign.contains(inCell))
        return CellPart::sign;
    if (cell.name.contains(inCell))
        return CellPart::name;
    if (cell.details.contains(inCell))
        return CellPart::details;
    return QRect(QPoint(0, 0), layout.cellSize()).contains(inCell) ? CellPart::preview : CellPart::none;
}

bool FamilyPainter::isNameElided(const BrowserLayout &layout, const QString &name)
{
    return QFontMetrics(Theme::font(TextSize::body)).horizontalAdvance(name) > layout.cell().name.width();
}

} // namespace kerlune
