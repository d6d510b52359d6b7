#include "UI/Theme.h"

#include <QApplication>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QPointer>
#include <QStyleFactory>
#include <QSvgRenderer>

#include <array>
#include <utility>

namespace kerlune {

namespace {

const ThemeColors &lightColors()
{
    static const ThemeColors colors{.canvas = QColor(0xF6F6F4),
                                    .card = QColor(0xFFFFFF),
                                    .text = QColor(0x1B1B1A),
                                    .secondaryText = QColor(0x5E5E5A),
                                    .hairline = QColor(0xE2E2DD),
                                    .accent = QColor(0x2B59C3),
                                    .onAccent = QColor(0xFFFFFF),
                                    .selection = QColor(0xE3EAF9),
                                    .hover = QColor(0xECECE8),
                                    .error = QColor(0xB3261E)};
    return colors;
}

const ThemeColors &darkColors()
{
    static const ThemeColors colors{.canvas = QColor(0x161617),
                                    .card = QColor(0x202022),
                                    .text = QColor(0xF1F1EF),
                                    .secondaryText = QColor(0xA3A3A0),
                                    .hairline = QColor(0x333336),
                                    .accent = QColor(0x86A8FF),
                                    .onAccent = QColor(0x161617),
                                    .selection = QColor(0x26304A),
                                    .hover = QColor(0x2A2A2D),
                                    .error = QColor(0xFF8A80)};
    return colors;
}

QByteArray resource(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// An icon that is drawn in the colours that the theme has at that moment.
class ThemedIconEngine final : public QIconEngine {
public:
    ThemedIconEngine(const Theme &theme, const char *name)
        : m_theme(&theme)
        , m_name(name)
    {}

    QIconEngine *clone() const override { return new ThemedIconEngine(*this); }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override
    {
        const int size = std::min(rect.width(), rect.height());
        const QPixmap drawn = draw(size, painter->device()->devicePixelRatioF(), mode, state);
        painter->drawPixmap(rect.left() + (rect.width() - size) / 2, rect.top() + (rect.height() - size) / 2, drawn);
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        return draw(std::min(size.width(), size.height()), 1, mode, state);
    }

    QPixmap scaledPixmap(const QSize &size, QIcon::Mode mode, QIcon::State state, qreal scale) override
    {
        return draw(qRound(std::min(size.width(), size.height()) / scale), scale, mode, state);
    }

private:
    QPixmap draw(int size, qreal scale, QIcon::Mode mode, QIcon::State state) const
    {
        if (m_theme == nullptr || size <= 0)
            return {};
        const ThemeColors &colors = m_theme->colors();
        const QColor &color = mode == QIcon::Disabled ? colors.secondaryText
                              : state == QIcon::On    ? colors.accent
                                                      : colors.text;
        return m_theme->iconPixmap(m_name, size, color, scale);
    }

    QPointer<const Theme> m_theme;
    const char *m_name;
};

} // namespace

Theme::Theme(Appearance appearance, QObject *parent)
    : QObject(parent)
    , m_appearance(appearance)
{}

const ThemeColors &Theme::colors() const
{
    return isDark() ? darkColors() : lightColors();
}

bool Theme::isDark() const
{
    return m_appearance == Appearance::dark || (m_appearance == Appearance::system && m_desktopIsDark);
}

void Theme::setAppearance(Appearance appearance)
{
    const bool wasDark = isDark();
    m_appearance = appearance;
    if (isDark() != wasDark)
        Q_EMIT changed();
}

void Theme::setDesktopIsDark(bool desktopIsDark)
{
    const bool wasDark = isDark();
    m_desktopIsDark = desktopIsDark;
    if (isDark() != wasDark)
        Q_EMIT changed();
}

QFont Theme::font(TextSize size, QFont::Weight weight)
{
    QFont font = QApplication::font();
    font.setPixelSize(static_cast<int>(size));
    font.setWeight(weight);
    return font;
}

QIcon Theme::icon(const char *name) const
{
    return QIcon(new ThemedIconEngine(*this, name));
}

QPixmap Theme::iconPixmap(const char *name, int size, const QColor &color, qreal devicePixelRatio) const
{
    const int pixels = qRound(size * devicePixelRatio);
    const QString key =
        QStringLiteral("kerlune/%1/%2/%3").arg(QLatin1String(name)).arg(pixels).arg(color.rgba(), 0, 16);
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        QByteArray svg = resource(QStringLiteral(":/icons/%1.svg").arg(QLatin1String(name)));
        svg.replace("currentColor", color.name().toLatin1());
        QSvgRenderer renderer(svg);
        Q_ASSERT_X(renderer.isValid(), "Theme", name);
        pixmap = QPixmap(pixels, pixels);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        renderer.render(&painter);
        painter.end();
        QPixmapCache::insert(key, pixmap);
    }
    pixmap.setDevicePixelRatio(devicePixelRatio);
    return pixmap;
}

void Theme::applyTo(QApplication &application)
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    const auto apply = [this, &application] {
        QApplication::setPalette(palette());
        application.setStyleSheet(styleSheet());
    };
    QFont interfaceFont = QApplication::font();
    interfaceFont.setPixelSize(static_cast<int>(TextSize::body));
    QApplication::setFont(interfaceFont);
    apply();
    connect(this, &Theme::changed, &application, apply);
}

QPalette Theme::palette() const
{
    const ThemeColors &c = colors();
    QPalette palette;
    palette.setColor(QPalette::Window, c.canvas);
    palette.setColor(QPalette::WindowText, c.text);
    palette.setColor(QPalette::Base, c.card);
    palette.setColor(QPalette::AlternateBase, c.canvas);
    palette.setColor(QPalette::Text, c.text);
    palette.setColor(QPalette::PlaceholderText, c.secondaryText);
    palette.setColor(QPalette::Button, c.card);
    palette.setColor(QPalette::ButtonText, c.text);
    palette.setColor(QPalette::BrightText, c.error);
    palette.setColor(QPalette::Highlight, c.accent);
    palette.setColor(QPalette::HighlightedText, c.onAccent);
    palette.setColor(QPalette::ToolTipBase, c.card);
    palette.setColor(QPalette::ToolTipText, c.text);
    palette.setColor(QPalette::Link, c.accent);
    palette.setColor(QPalette::LinkVisited, c.accent);
    palette.setColor(QPalette::Light, c.hover);
    palette.setColor(QPalette::Midlight, c.hover);
    palette.setColor(QPalette::Mid, c.hairline);
    palette.setColor(QPalette::Dark, c.hairline);
    palette.setColor(QPalette::Shadow, c.hairline);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, c.secondaryText);
    return palette;
}

// "@accent" in theme.qss stands for the colour of that name.
QString Theme::styleSheet() const
{
    const ThemeColors &c = colors();
    const std::array<std::pair<const char *, QColor>, 10> names{{{"@canvas", c.canvas},
                                                                 {"@card", c.card},
                                                                 {"@text", c.text},
                                                                 {"@secondary", c.secondaryText},
                                                                 {"@hairline", c.hairline},
                                                                 {"@accent", c.accent},
                                                                 {"@onAccent", c.onAccent},
                                                                 {"@selection", c.selection},
                                                                 {"@hover", c.hover},
                                                                 {"@error", c.error}}};
    QString sheet = QString::fromUtf8(resource(QStringLiteral(":/theme.qss")));
    for (const auto &[name, color] : names)
        sheet.replace(QLatin1String(name), color.name());
    return sheet.replace(QLatin1String("@variant"), isDark() ? QLatin1String("dark") : QLatin1String("light"));
}

} // namespace kerlune
