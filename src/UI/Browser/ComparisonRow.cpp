#include "UI/Browser/ComparisonRow.h"

#include "UI/InterfaceText.h"

#include <QApplication>
#include <QFontMetrics>
#include <QMouseEvent>
#include <QPainter>
#include <QToolButton>

#include <algorithm>
#include <cmath>
#include <utility>

namespace kerlune {

namespace {

constexpr int kButton = 24;
constexpr int kIcon = 16;

int nameWidth(int rowWidth)
{
    return std::clamp(rowWidth / 6, 96, 176);
}

int columnWidth(int rowWidth)
{
    return std::clamp(rowWidth / 12, 52, 80);
}

} // namespace

ComparisonRow::ComparisonRow(Workspace &workspace, QWidget *parent)
    : QWidget(parent)
    , m_workspace(workspace)
    , m_up(makeButton("chevron-up", "moveUp"))
    , m_down(makeButton("chevron-down", "moveDown"))
    , m_remove(makeButton("close", "remove"))
{
    connect(m_up, &QToolButton::clicked, this, [this] { Q_EMIT moveWanted(-1); });
    connect(m_down, &QToolButton::clicked, this, [this] { Q_EMIT moveWanted(1); });
    connect(m_remove, &QToolButton::clicked, this, &ComparisonRow::removeWanted);
    retranslate();
}

// The keys that do the same work in the whole view, which is one stop for the tabulator.
QToolButton *ComparisonRow::makeButton(const char *icon, const char *name)
{
    auto *button = new QToolButton(this);
    button->setObjectName(QLatin1String(name));
    button->setIcon(m_workspace.theme().icon(icon));
    button->setIconSize({kIcon, kIcon});
    button->setFixedSize(kButton, kButton);
    button->setFocusPolicy(Qt::NoFocus);
    return button;
}

void ComparisonRow::retranslate()
{
    const auto label = [](QToolButton *button, const QString &text, const QString &keys) {
        button->setAccessibleName(text);
        button->setToolTip(uiText("%1 (%2)", {text, keys}));
    };
    label(m_up, uiText("Monter"), uiText("Ctrl+Haut"));
    label(m_down, uiText("Descendre"), uiText("Ctrl+Bas"));
    label(m_remove, uiText("Retirer de la comparaison"), uiText("Suppr"));
}

void ComparisonRow::setContent(Content content)
{
    if (content.family != m_content.family) {
        m_preview = nullptr;
        m_isThere = false;
    }
    m_content = std::move(content);
    m_up->setEnabled(!m_content.isFirst);
    m_down->setEnabled(!m_content.isLast);
    QStringList told{shown(m_content.family)};
    const std::array<QString, kColumns> titles{uiText("Hauteur d’x"), uiText("Capitales"), uiText("Largeur")};
    for (std::size_t i = 0; i < titles.size(); ++i)
        told << titles[i] + QLatin1Char(' ') + m_content.values[i].text;
    setAccessibleName(told.join(QStringLiteral(", ")));
    const QFontMetrics metrics(Theme::font(TextSize::body));
    const bool isElided = metrics.horizontalAdvance(told.front()) > nameWidth(width()) - kGridStep;
    setToolTip(isElided ? shownAsMarkup(m_content.family) : QString());
    update();
}

void ComparisonRow::setRequest(const PreviewRequest &request)
{
    m_request = request;
    m_isThere = false;
    takePreview();
}

void ComparisonRow::setCurrent(bool isCurrent, bool hasFocus)
{
    m_isCurrent = isCurrent;
    m_hasFocus = hasFocus;
    update();
}

void ComparisonRow::takePreview()
{
    if (m_isThere || m_request.face == nullptr)
        return;
    PreviewPointer preview = m_workspace.previews().find(m_request);
    if (preview == nullptr)
        return;
    m_preview = std::move(preview);
    m_isThere = true;
    update();
}

bool ComparisonRow::isPainted() const
{
    return m_content.face == nullptr || m_isThere;
}

// Geometry.

QRect ComparisonRow::columnRect(const QSize &row, Column column)
{
    const int width = columnWidth(row.width());
    return {row.width() - kCardPadding - (kColumns - column) * width, 0, width, row.height()};
}

QRect ComparisonRow::lineRect(const QSize &row)
{
    const int left = kCardPadding + nameWidth(row.width());
    const int right = columnRect(row, XHeight).left() - kGridStep;
    return {left, kGridStep, std::max(1, right - left), std::max(1, row.height() - 2 * kGridStep)};
}

QRect ComparisonRow::lineRect() const
{
    return lineRect(size());
}

void ComparisonRow::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    int x = kCardPadding - (kButton - kIcon) / 2;
    for (QToolButton *button : {m_up, m_down, m_remove}) {
        button->move(x, height() / 2 + kGridStep);
        x += kButton;
    }
}

// Painting.

void ComparisonRow::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const ThemeColors &colors = m_workspace.theme().colors();
    if (m_isCurrent)
        painter.fillRect(rect(), colors.selection);
    painter.fillRect(QRect(kCardPadding, height() - 1, width() - 2 * kCardPadding, 1), colors.hairline);
    if (m_isCurrent && m_hasFocus) {
        painter.setPen(QPen(colors.accent, 2));
        painter.drawRoundedRect(QRectF(rect()).adjusted(2, 1, -2, -2), kControlRadius, kControlRadius);
    }
    const QRect line = lineRect();
    paintGuides(painter, line);
    paintLine(painter, line);
    paintName(painter);
    paintValues(painter);
}

void ComparisonRow::paintGuides(QPainter &painter, const QRect &line) const
{
    if (m_preview == nullptr || m_preview->failure != Preview::Failure::None || m_content.face == nullptr)
        return;
    const qreal scale = devicePixelRatioF();
    const double baseline = line.top() + m_preview->baseline / scale;
    const double em = m_preview->emPixels / scale;
    QColor color = m_workspace.theme().colors().secondaryText;
    color.setAlphaF(0.45F);
    const auto guide = [&](double ratio, Qt::PenStyle style) {
        const double y = std::round((baseline - ratio * em) * scale) / scale;
        painter.setPen(QPen(color, 1 / scale, style));
        painter.drawLine(QPointF(line.left(), y), QPointF(line.right(), y));
    };
    painter.setRenderHint(QPainter::Antialiasing, false);
    guide(0, Qt::SolidLine);
    if (m_content.face->xHeightRatio > 0)
        guide(m_content.face->xHeightRatio, Qt::DashLine);
    if (m_content.face->capHeightRatio > 0)
        guide(m_content.face->capHeightRatio, Qt::DotLine);
    painter.setRenderHint(QPainter::Antialiasing);
}

QString ComparisonRow::message() const
{
    if (m_content.face == nullptr)
        return uiText("Cette famille n’est plus dans la bibliothèque.");
    if (m_preview != nullptr && m_preview->failure != Preview::Failure::None)
        return uiText("Cette police ne peut pas être dessinée.");
    return {};
}

void ComparisonRow::paintLine(QPainter &painter, const QRect &line) const
{
    const ThemeColors &colors = m_workspace.theme().colors();
    if (const QString text = message(); !text.isEmpty()) {
        painter.setFont(Theme::font(TextSize::body));
        painter.setPen(colors.secondaryText);
        painter.drawText(line, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextWordWrap, text);
        return;
    }
    if (m_preview == nullptr) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(colors.hairline);
        painter.drawRoundedRect(QRectF(line.left(), line.center().y() - 5, line.width() * 0.4, 10), 5, 5);
        return;
    }
    const qreal scale = devicePixelRatioF();
    painter.save();
    painter.setClipRect(line);
    painter.translate(line.topLeft());
    painter.scale(1 / scale, 1 / scale);
    painter.drawImage(QPoint(0, 0), m_preview->image);
    painter.restore();
}

void ComparisonRow::paintName(QPainter &painter) const
{
    const ThemeColors &colors = m_workspace.theme().colors();
    const QFont font = Theme::font(TextSize::body);
    const QFontMetrics metrics(font);
    const QRect rect(kCardPadding, height() / 2 - metrics.height() - kGridStep / 2, nameWidth(width()) - kGridStep,
                     metrics.height());
    painter.setFont(font);
    painter.setPen(colors.text);
    const QString name = metrics.elidedText(shown(m_content.family), Qt::ElideMiddle, rect.width());
    painter.drawText(rect, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, name);
    if (m_preview == nullptr || !m_isThere || m_preview->failure != Preview::Failure::None ||
        !m_preview->isReduced(m_request))
        return;
    painter.setFont(Theme::font(TextSize::small));
    painter.setPen(colors.secondaryText);
    painter.drawText(rect.translated(0, -metrics.height()), Qt::AlignLeft | Qt::AlignVCenter,
                     uiText("%1 px", {QString::number(std::lround(m_preview->emPixels / devicePixelRatioF()))}));
}

void ComparisonRow::paintValues(QPainter &painter) const
{
    const ThemeColors &colors = m_workspace.theme().colors();
    const int lineHeight = QFontMetrics(Theme::font(TextSize::body)).height();
    for (int i = 0; i < kColumns; ++i) {
        const Value &value = m_content.values[static_cast<std::size_t>(i)];
        QRect rect = columnRect(size(), static_cast<Column>(i));
        const int lines = value.detail.isEmpty() ? 1 : 2;
        rect.setTop((height() - lines * lineHeight) / 2);
        rect.setHeight(lineHeight);
        painter.setFont(Theme::font(TextSize::body));
        painter.setPen(colors.text);
        painter.drawText(rect, Qt::AlignRight | Qt::AlignVCenter, value.text);
        painter.setFont(Theme::font(TextSize::small));
        painter.setPen(colors.secondaryText);
        if (!value.detail.isEmpty())
            painter.drawText(rect.translated(0, lineHeight), Qt::AlignRight | Qt::AlignVCenter, value.detail);
    }
}

// Mouse.

void ComparisonRow::mousePressEvent(QMouseEvent *event)
{
    m_pressPosition = event->pos();
    m_isDragging = false;
    Q_EMIT pressed();
}

void ComparisonRow::mouseMoveEvent(QMouseEvent *event)
{
    if ((event->buttons() & Qt::LeftButton) == 0)
        return;
    m_isDragging =
        m_isDragging || (event->pos() - m_pressPosition).manhattanLength() >= QApplication::startDragDistance();
    if (m_isDragging)
        Q_EMIT dragged(event->globalPosition().toPoint());
}

void ComparisonRow::mouseReleaseEvent(QMouseEvent *)
{
    m_isDragging = false;
}

void ComparisonRow::mouseDoubleClickEvent(QMouseEvent *)
{
    Q_EMIT opened();
}

} // namespace kerlune
