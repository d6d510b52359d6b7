#pragma once

#include "State/Preferences.h"

#include <QColor>
#include <QFont>
#include <QIcon>
#include <QObject>
#include <QPalette>
#include <QPixmap>

class QApplication;

namespace kerlune {

struct ThemeColors {
    QColor canvas;
    QColor card;
    QColor text;
    QColor secondaryText;
    QColor hairline;
    QColor accent;    // selection, focus and activation only
    QColor onAccent;  // text on it
    QColor selection; // ground of what is selected; text stands on it in its own colours
    QColor hover;
    QColor error;
};

enum class TextSize { small = 11, body = 13, title = 15, large = 20 }; // pixels

// Everything is laid out on multiples of this, in pixels.
inline constexpr int kGridStep = 8;
inline constexpr int kCardPadding = 16;
inline constexpr int kCardGap = 12;
inline constexpr int kCardRadius = 8;
inline constexpr int kControlRadius = 6;
inline constexpr int kToolbarHeight = 48;
inline constexpr int kFilterBarHeight = 40;

// Colours, fonts and icons of the window: the only place that knows a colour.
//
// Thread: main.
class Theme final : public QObject {
    Q_OBJECT

public:
    explicit Theme(Appearance appearance = Appearance::system, QObject *parent = nullptr);

    const ThemeColors &colors() const;
    bool isDark() const;

    void setAppearance(Appearance appearance);
    void setDesktopIsDark(bool isDark); // what Appearance::system follows

    static QFont font(TextSize size, QFont::Weight weight = QFont::Normal); // of the interface

    // One of src/UI/icons, "star" for icons/star.svg, in the text's colour (the accent's where it is checked, the
    // secondary text's where it is disabled). It follows the theme by itself.
    QIcon icon(const char *name) const;
    QPixmap iconPixmap(const char *name, int size, const QColor &color, qreal devicePixelRatio) const;

    // Style, palette, style sheet and font of the whole program, now and whenever the theme changes.
    void applyTo(QApplication &application);

Q_SIGNALS:
    void changed();

private:
    QPalette palette() const;
    QString styleSheet() const;

    Appearance m_appearance;
    bool m_desktopIsDark = false;
};

} // namespace kerlune
