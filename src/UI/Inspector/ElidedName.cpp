#include "UI/Inspector/ElidedName.h"

#include <QResizeEvent>

namespace kerlune {

ElidedName::ElidedName(QWidget *parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse);
    setFocusPolicy(Qt::ClickFocus);
    QSizePolicy policy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void ElidedName::setName(const QString &name)
{
    m_name = name;
    setAccessibleName(name);
    setToolTip(name.toHtmlEscaped());
    setText(fitted(width()));
    updateGeometry();
}

QSize ElidedName::minimumSizeHint() const
{
    return {0, fontMetrics().lineSpacing()};
}

QSize ElidedName::sizeHint() const
{
    return {0, heightForWidth(width())};
}

int ElidedName::heightForWidth(int width) const
{
    const bool isOneLine = fontMetrics().horizontalAdvance(fitted(width)) <= width;
    return (isOneLine ? 1 : 2) * fontMetrics().lineSpacing();
}

void ElidedName::resizeEvent(QResizeEvent *event)
{
    QLabel::resizeEvent(event);
    if (event->size().width() != event->oldSize().width())
        setText(fitted(event->size().width()));
}

QString ElidedName::fitted(int width) const
{
    const QFontMetrics metrics = fontMetrics();
    const auto fits = [&](const QString &text) {
        const QRect box = metrics.boundingRect(QRect(0, 0, width, 10'000), Qt::TextWordWrap, text);
        return box.width() <= width && box.height() <= 2 * metrics.lineSpacing();
    };
    if (fits(m_name))
        return m_name;
    // A line that ends before a long word wastes some of its width.
    for (const double lines : {1.8, 1.5}) {
        QString elided = metrics.elidedText(m_name, Qt::ElideMiddle, static_cast<int>(width * lines));
        if (fits(elided))
            return elided;
    }
    return metrics.elidedText(m_name, Qt::ElideMiddle, width);
}

} // namespace kerlune
