#include "UI/Toolbar/RangeSlider.h"

#include "UI/InterfaceText.h"
#include "UI/Toolbar/FilterKind.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cstdlib>

namespace kerlune {

namespace {

constexpr int kLeast = 100;
constexpr int kMost = 900;
constexpr int kStep = 100;
constexpr int kHandleSize = 18;

} // namespace

class RangeHandle final : public QWidget {
public:
    RangeHandle(RangeSlider &slider, RangeSlider::End end)
        : QWidget(&slider)
        , m_slider(slider)
        , m_end(end)
    {
        setFocusPolicy(Qt::StrongFocus);
        setAttribute(Qt::WA_Hover);
        setFixedSize(kHandleSize, kHandleSize);
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        const ThemeColors &colors = m_slider.m_theme.colors();
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setBrush(colors.card);
        painter.setPen(QPen(hasFocus()     ? colors.accent
                            : underMouse() ? colors.text
                                           : colors.secondaryText,
                            hasFocus() ? 2 : 1));
        painter.drawEllipse(QRectF(rect()).adjusted(2, 2, -2, -2));
    }

    void keyPressEvent(QKeyEvent *event) override
    {
        const int weight = m_slider.weight(m_end);
        switch (event->key()) {
        case Qt::Key_Left:
        case Qt::Key_Down:
            return m_slider.moveHandle(m_end, weight - kStep);
        case Qt::Key_Right:
        case Qt::Key_Up:
            return m_slider.moveHandle(m_end, weight + kStep);
        case Qt::Key_Home:
            return m_slider.moveHandle(m_end, kLeast);
        case Qt::Key_End:
            return m_slider.moveHandle(m_end, kMost);
        default:
            QWidget::keyPressEvent(event);
        }
    }

    void mousePressEvent(QMouseEvent *event) override { event->accept(); }

    void mouseMoveEvent(QMouseEvent *event) override
    {
        if (event->buttons().testFlag(Qt::LeftButton))
            m_slider.moveHandle(m_end, m_slider.weightAt(mapToParent(event->position().toPoint()).x()));
    }

private:
    RangeSlider &m_slider;
    RangeSlider::End m_end;
};

RangeSlider::RangeSlider(const Theme &theme, QWidget *parent)
    : QWidget(parent)
    , m_theme(theme)
    , m_handles{new RangeHandle(*this, End::lower), new RangeHandle(*this, End::upper)}
{
    m_handles[0]->setObjectName(QStringLiteral("lowerWeight"));
    m_handles[1]->setObjectName(QStringLiteral("upperWeight"));
    setFocusProxy(m_handles[0]);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(&theme, &Theme::changed, this, qOverload<>(&QWidget::update));
    retranslate();
}

void RangeSlider::setRange(const WeightRange &range)
{
    m_range = {std::clamp(range.lower, kLeast, kMost), std::clamp(range.upper, kLeast, kMost)};
    place();
    retranslate();
    update();
}

void RangeSlider::moveHandle(End end, int weight)
{
    WeightRange range = m_range;
    if (end == End::lower)
        range.lower = std::clamp(weight, kLeast, range.upper);
    else
        range.upper = std::clamp(weight, range.lower, kMost);
    if (range == m_range)
        return;
    setRange(range);
    Q_EMIT rangeChosen(range);
}

int RangeSlider::xOf(int weight) const
{
    return kHandleSize / 2 + (width() - kHandleSize) * (weight - kLeast) / (kMost - kLeast);
}

int RangeSlider::weightAt(int x) const
{
    const int way = std::max(1, width() - kHandleSize);
    const int steps = ((x - kHandleSize / 2) * (kMost - kLeast) + way * kStep / 2) / (way * kStep);
    return std::clamp(kLeast + steps * kStep, kLeast, kMost);
}

void RangeSlider::place()
{
    const int y = (height() - kHandleSize) / 2;
    m_handles[0]->move(xOf(m_range.lower) - kHandleSize / 2, y);
    m_handles[1]->move(xOf(m_range.upper) - kHandleSize / 2, y);
    if (m_range.lower == kMost) // the one that can still move lies on top
        m_handles[0]->raise();
    else
        m_handles[1]->raise();
}

void RangeSlider::resizeEvent(QResizeEvent *)
{
    place();
}

void RangeSlider::mousePressEvent(QMouseEvent *event)
{
    const int x = event->position().toPoint().x();
    const int toLower = std::abs(x - xOf(m_range.lower));
    const int toUpper = std::abs(x - xOf(m_range.upper));
    const bool isLower = toLower < toUpper || (toLower == toUpper && x < xOf(m_range.lower));
    m_handles[isLower ? 0 : 1]->setFocus(Qt::MouseFocusReason);
    moveHandle(isLower ? End::lower : End::upper, weightAt(x));
}

void RangeSlider::paintEvent(QPaintEvent *)
{
    const ThemeColors &colors = m_theme.colors();
    const int y = height() / 2;
    QPainter painter(this);
    painter.setPen(QPen(colors.hairline, 2));
    painter.drawLine(xOf(kLeast), y, xOf(kMost), y);
    painter.setPen(QPen(colors.secondaryText, 2));
    painter.drawLine(xOf(m_range.lower), y, xOf(m_range.upper), y);
}

void RangeSlider::retranslate()
{
    m_handles[0]->setAccessibleName(uiText("Graisse minimale : %1", {QString::number(m_range.lower)}));
    m_handles[1]->setAccessibleName(uiText("Graisse maximale : %1", {QString::number(m_range.upper)}));
    m_handles[0]->setToolTip(weightName(m_range.lower));
    m_handles[1]->setToolTip(weightName(m_range.upper));
}

void RangeSlider::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

} // namespace kerlune
