#include "UI/Panels/GlyphDetail.h"

#include "Support/Localization.h"
#include "UI/InterfaceText.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

#include <cmath>
#include <utility>

namespace kerlune {

namespace {

constexpr QSize kPortrait(112, 128);

QString units(double value)
{
    return QString::fromStdString(groupedDigits(std::lround(value)));
}

} // namespace

GlyphDetail::GlyphDetail(const Theme &theme, QWidget *parent)
    : QWidget(parent)
    , m_theme(theme)
    , m_name(new QLabel(this))
    , m_code(new QLabel(this))
    , m_measures(new QLabel(this))
{
    setFixedHeight(kPortrait.height());
    auto *const row = new QHBoxLayout(this);
    row->setContentsMargins(kPortrait.width() + kCardGap, 0, 0, 0);
    auto *const column = new QVBoxLayout;
    column->setSpacing(4);
    row->addLayout(column);
    for (QLabel *label : {m_name, m_code, m_measures}) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
        label->setAlignment(Qt::AlignTop | Qt::AlignLeft);
        label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
        label->setFocusPolicy(Qt::ClickFocus);
        column->addWidget(label);
    }
    column->addStretch(1);
    m_name->setObjectName(QStringLiteral("characterName"));
    m_name->setFont(Theme::font(TextSize::small, QFont::DemiBold));
    for (QLabel *label : {m_code, m_measures}) {
        label->setFont(Theme::font(TextSize::small));
        label->setProperty("secondary", true);
    }
    connect(&theme, &Theme::changed, this, qOverload<>(&QWidget::update));
}

void GlyphDetail::setEntry(std::optional<CharacterMap::Entry> entry)
{
    m_entry = entry;
    m_portrait.reset();
    retranslate();
    update();
}

void GlyphDetail::setPortrait(GlyphDrawer::Portrait portrait)
{
    m_portrait = std::move(portrait);
    retranslate();
    update();
}

QSize GlyphDetail::portraitSize() const
{
    return kPortrait;
}

void GlyphDetail::retranslate()
{
    if (!m_entry) {
        for (QLabel *label : {m_name, m_code, m_measures})
            label->clear();
        return;
    }
    const auto character = static_cast<std::uint32_t>(m_entry->character);
    m_name->setText(QString::fromStdString(characterName(m_entry->character)));
    m_name->setToolTip(m_name->text().toHtmlEscaped());
    m_code->setText(uiText("U+%1, glyphe %2", {QStringLiteral("%1").arg(character, 4, 16, QLatin1Char('0')).toUpper(),
                                               QString::fromStdString(groupedDigits(m_entry->glyph))}));
    if (!m_portrait)
        return m_measures->clear();
    const GlyphMeasures &measures = m_portrait->measures;
    QString text = uiText("Chasse %1", {units(measures.advance)});
    if (const auto &bounds = measures.bounds)
        text += u'\n' + uiText("x %1 … %2", {units(bounds->left), units(bounds->right)}) + u'\n' +
                uiText("y %1 … %2", {units(bounds->bottom), units(bounds->top)});
    m_measures->setText(text);
}

QRect GlyphDetail::portraitArea() const
{
    return {QPoint(0, 0), kPortrait};
}

void GlyphDetail::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const ThemeColors &colors = m_theme.colors();
    const QRectF area = portraitArea();
    painter.setPen(colors.hairline);
    painter.setBrush(colors.card);
    painter.drawRoundedRect(area.adjusted(0.5, 0.5, -0.5, -0.5), kControlRadius, kControlRadius);
    if (!m_portrait)
        return;
    const double ratio = devicePixelRatioF();
    painter.setRenderHint(QPainter::Antialiasing, false);
    if (m_portrait->unitsPerEm > 0) {
        for (const double y : {m_portrait->baseline, m_portrait->xHeight, m_portrait->capHeight})
            painter.drawLine(QLineF(area.left() + 1, std::round(y / ratio), area.right() - 1, std::round(y / ratio)));
        for (const double x : {m_portrait->left, m_portrait->right})
            painter.drawLine(QLineF(std::round(x / ratio), area.top() + 1, std::round(x / ratio), area.bottom() - 1));
    }
    if (!m_portrait->image.isNull())
        painter.drawImage(portraitArea().topLeft(), m_portrait->image);
}

} // namespace kerlune
