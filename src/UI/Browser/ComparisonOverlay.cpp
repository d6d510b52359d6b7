#include "UI/Browser/ComparisonOverlay.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace kerlune {

namespace {

constexpr double kOpacityOfFirst = 0.45;
constexpr double kLeastOpacity = 0.15;

} // namespace

ComparisonOverlay::ComparisonOverlay(const Theme &theme, QWidget *parent)
    : QWidget(parent)
    , m_theme(theme)
{}

void ComparisonOverlay::setLines(std::vector<PreviewPointer> lines, std::size_t current, int left)
{
    m_lines = std::move(lines);
    m_current = current;
    m_left = left;
    update();
}

void ComparisonOverlay::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), m_theme.colors().card);
    const auto isDrawn = [](const PreviewPointer &line) {
        return line != nullptr && line->failure == Preview::Failure::None;
    };
    double baseline = 0;
    for (const PreviewPointer &line : m_lines)
        baseline = std::max(baseline, isDrawn(line) ? line->baseline : 0.0);
    const qreal scale = devicePixelRatioF();
    painter.fillRect(QRectF(m_left, baseline / scale, width() - m_left - kCardPadding, 1 / scale),
                     m_theme.colors().hairline);
    double opacity = kOpacityOfFirst;
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
        if (i == m_current || !isDrawn(m_lines[i]))
            continue;
        paintLine(painter, *m_lines[i], baseline, opacity);
        opacity = std::max(kLeastOpacity, opacity * 0.8);
    }
    if (m_current < m_lines.size() && isDrawn(m_lines[m_current]))
        paintLine(painter, *m_lines[m_current], baseline, 1);
    painter.fillRect(QRect(0, height() - 1, width(), 1), m_theme.colors().hairline);
}

void ComparisonOverlay::paintLine(QPainter &painter, const Preview &line, double baseline, double opacity) const
{
    const qreal scale = devicePixelRatioF();
    painter.save();
    painter.setOpacity(opacity);
    painter.translate(m_left, 0);
    painter.scale(1 / scale, 1 / scale);
    painter.drawImage(QPointF(0, std::round(baseline - line.baseline)), line.image);
    painter.restore();
}

} // namespace kerlune
