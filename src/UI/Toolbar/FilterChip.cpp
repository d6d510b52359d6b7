#include "UI/Toolbar/FilterChip.h"

#include "UI/InterfaceText.h"

#include <QKeyEvent>
#include <QPainter>
#include <QToolButton>

#include <algorithm>

namespace kerlune {

namespace {

constexpr int kHeight = 28;
constexpr int kChipPadding = 10;
constexpr int kMarkSize = 12; // chevron or ×
constexpr int kMostTextWidth = 180;

} // namespace

FilterChip::FilterChip(FilterKind kind, const Theme &theme, QWidget *parent)
    : QAbstractButton(parent)
    , m_kind(kind)
    , m_theme(theme)
    , m_unset(new QToolButton(this))
{
    setObjectName(QStringLiteral("filter%1").arg(static_cast<int>(kind)));
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setFont(Theme::font(TextSize::body));
    m_unset->setObjectName(QStringLiteral("unset%1").arg(static_cast<int>(kind)));
    m_unset->setIcon(theme.icon("close"));
    m_unset->setIconSize({kMarkSize, kMarkSize});
    m_unset->setAutoRaise(true);
    m_unset->setFocusPolicy(Qt::TabFocus);
    m_unset->hide();
    connect(m_unset, &QToolButton::clicked, this, &FilterChip::unsetWanted);
    connect(&theme, &Theme::changed, this, qOverload<>(&QWidget::update));
}

void FilterChip::showFilters(const Filters &filters)
{
    const QString name = filterName(m_kind);
    m_isSet = isSet(m_kind, filters);
    setText(filterText(m_kind, filters));
    setAccessibleName(text());
    setToolTip(text().toHtmlEscaped());
    m_unset->setAccessibleName(uiText("Retirer le filtre « %1 »", {name}));
    m_unset->setToolTip(uiText("Retirer le filtre « %1 »", {name}));
    // Not hidden while it is used: the focus would jump away.
    if (!m_isSet && m_unset->hasFocus())
        setFocus();
    m_unset->setVisible(m_isSet);
    updateGeometry();
    update();
}

QSize FilterChip::sizeHint() const
{
    const int mark = m_isSet || !isSwitch(m_kind) ? kMarkSize + 6 : 0;
    const int width = std::min(fontMetrics().horizontalAdvance(text()), kMostTextWidth);
    return {kChipPadding + width + mark + kChipPadding, kHeight};
}

void FilterChip::resizeEvent(QResizeEvent *)
{
    constexpr int side = kMarkSize + 10;
    m_unset->setGeometry(width() - side - 3, (height() - side) / 2, side, side);
}

void FilterChip::paintEvent(QPaintEvent *)
{
    const ThemeColors &colors = m_theme.colors();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(underMouse() ? colors.hover : m_isSet ? colors.selection : colors.card);
    painter.setPen(QPen(m_isSet || hasFocus() ? colors.accent : colors.hairline, hasFocus() ? 2 : 1));
    const qreal inset = hasFocus() ? 1 : 0.5;
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), kControlRadius, kControlRadius);

    const bool hasMark = m_isSet || !isSwitch(m_kind);
    const QRect place =
        rect().adjusted(kChipPadding, 0, hasMark ? -(kChipPadding + kMarkSize + 4) : -kChipPadding + 2, 0);
    painter.setPen(colors.text);
    painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter,
                     fontMetrics().elidedText(text(), Qt::ElideRight, place.width()));
    if (!m_isSet && hasMark) {
        painter.drawPixmap(width() - kChipPadding - kMarkSize + 1, (height() - kMarkSize) / 2 + 1,
                           m_theme.iconPixmap("chevron-down", kMarkSize, colors.secondaryText, devicePixelRatioF()));
    }
}

void FilterChip::keyPressEvent(QKeyEvent *event)
{
    const int key = event->key();
    if (m_isSet && (key == Qt::Key_Delete || key == Qt::Key_Backspace))
        Q_EMIT unsetWanted();
    else if (key == Qt::Key_Return || key == Qt::Key_Enter || (key == Qt::Key_Down && !isSwitch(m_kind)))
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

} // namespace kerlune
