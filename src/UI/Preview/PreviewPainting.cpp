#include "UI/Preview/PreviewPainting.h"

#include "UI/InterfaceText.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStringList>

#include <algorithm>

namespace kerlune::PreviewPainting {

namespace {

constexpr int kIconSize = 16;

QString reason(Preview::Failure failure)
{
    switch (failure) {
    case Preview::Failure::None:
        break;
    case Preview::Failure::Unreadable:
        return uiText("Cette police ne peut pas être lue.");
    case Preview::Failure::NoInk:
        return uiText("Cette police ne dessine rien pour ce texte.");
    case Preview::Failure::TooCostly:
        return uiText("Cette police est trop longue à dessiner.");
    }
    return {};
}

void paintFailure(QPainter &painter, const QRect &area, const FontRecord &face, const Theme &theme)
{
    const QFont font = Theme::font(TextSize::title);
    const QFontMetrics metrics(font);
    const int gap = kGridStep;
    const QString name =
        metrics.elidedText(shown(face.family), Qt::ElideMiddle, std::max(0, area.width() - kIconSize - gap));
    painter.drawPixmap(
        area.left(), area.center().y() - kIconSize / 2,
        theme.iconPixmap("warning", kIconSize, theme.colors().secondaryText, painter.device()->devicePixelRatioF()));
    painter.setFont(font);
    painter.setPen(theme.colors().text);
    painter.drawText(area.adjusted(kIconSize + gap, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft, name);
}

} // namespace

void paint(QPainter &painter, const QRect &area, const PreviewRequest &request, const Preview &preview,
           const Theme &theme)
{
    painter.save();
    const double ratio = painter.device()->devicePixelRatioF();
    if (preview.failure != Preview::Failure::None) {
        if (request.face != nullptr)
            paintFailure(painter, area, *request.face, theme);
        painter.restore();
        return;
    }
    const QSizeF size = QSizeF(preview.image.size()) / ratio;
    painter.drawImage(QRectF(area.topLeft(), size), preview.image, QRectF(preview.image.rect()));
    const QRect mark = sizeMark(area, request, preview, ratio);
    if (!mark.isEmpty() && isFree(mark, area, preview, ratio)) {
        painter.setFont(Theme::font(TextSize::small));
        painter.setPen(theme.colors().secondaryText);
        painter.drawText(mark, Qt::AlignRight | Qt::AlignBottom, sizeText(preview, ratio));
    }
    painter.restore();
}

QRect sizeMark(const QRect &area, const PreviewRequest &request, const Preview &preview, double devicePixelRatio)
{
    if (preview.image.isNull() || !preview.isReduced(request))
        return {};
    const QFontMetrics metrics(Theme::font(TextSize::small));
    const QSize size(metrics.horizontalAdvance(sizeText(preview, devicePixelRatio)) + 2, metrics.height());
    return {area.right() + 1 - size.width(), area.bottom() + 1 - size.height(), size.width(), size.height()};
}

bool isFree(const QRect &mark, const QRect &area, const Preview &preview, double devicePixelRatio)
{
    const QRect moved = mark.translated(-area.topLeft());
    const QRect pixels = QRectF(QPointF(moved.topLeft()) * devicePixelRatio, QSizeF(moved.size()) * devicePixelRatio)
                             .toAlignedRect()
                             .intersected(preview.image.rect());
    for (int y = pixels.top(); y <= pixels.bottom(); ++y) {
        const auto *row = reinterpret_cast<const QRgb *>(preview.image.constScanLine(y));
        if (std::any_of(row + pixels.left(), row + pixels.right() + 1, [](QRgb pixel) { return qAlpha(pixel) != 0; }))
            return false;
    }
    return true;
}

QString sizeText(const Preview &preview, double devicePixelRatio)
{
    return uiText("%1 px", {QString::number(std::max(1, qRound(preview.emPixels / devicePixelRatio)))});
}

QString remark(const PreviewRequest &request, const Preview &preview, double devicePixelRatio)
{
    QStringList remarks;
    if (preview.failure != Preview::Failure::None)
        remarks << reason(preview.failure);
    else if (preview.isSubstitute)
        remarks << uiText("Cette police n’a pas les caractères du texte : un autre texte est montré.");
    if (preview.failure == Preview::Failure::None && preview.isReduced(request))
        remarks << uiText("Réduit à %1 pour tenir dans la place.", {sizeText(preview, devicePixelRatio)});
    return remarks.join(u'\n');
}

} // namespace kerlune::PreviewPainting
