#include "UI/MessagePage.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QResizeEvent>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace kerlune {

namespace {

constexpr int kIconSize = 40;
constexpr int kTextWidth = 440;

} // namespace

MessagePage::MessagePage(const Theme &theme, QWidget *parent)
    : QWidget(parent)
    , m_theme(theme)
    , m_icon(new QLabel)
    , m_title(new QLabel)
    , m_text(new QLabel)
    , m_progress(new QProgressBar)
    , m_buttons(new QVBoxLayout)
{
    setObjectName(QStringLiteral("messagePage"));
    m_title->setObjectName(QStringLiteral("messageTitle"));
    m_title->setFont(Theme::font(TextSize::large, QFont::DemiBold));
    m_text->setObjectName(QStringLiteral("messageText"));
    m_text->setProperty("secondary", true);
    m_text->setFixedWidth(kTextWidth);
    for (QLabel *label : {m_icon, m_title, m_text})
        label->setAlignment(Qt::AlignCenter);
    for (QLabel *label : {m_title, m_text}) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
    }
    m_title->setFixedWidth(kTextWidth);
    m_progress->setRange(0, 1000);
    m_progress->setTextVisible(false);
    m_progress->setFixedWidth(kTextWidth / 2);

    auto *layout = new QVBoxLayout(this);
    layout->setSpacing(kGridStep);
    layout->addStretch(2);
    layout->addWidget(m_icon, 0, Qt::AlignHCenter);
    layout->addSpacing(kGridStep);
    layout->addWidget(m_title, 0, Qt::AlignHCenter);
    layout->addWidget(m_text, 0, Qt::AlignHCenter);
    layout->addWidget(m_progress, 0, Qt::AlignHCenter);
    layout->addSpacing(kGridStep);
    layout->addLayout(m_buttons);
    layout->addStretch(3);
    m_buttons->setSpacing(kGridStep);
    connect(&m_theme, &Theme::changed, this, &MessagePage::paintIcon);
}

// Lines that are not too long to read, and never longer than the page.
void MessagePage::resizeEvent(QResizeEvent *event)
{
    const int width = std::min(kTextWidth, event->size().width() - 2 * kCardPadding);
    for (QLabel *label : {m_title, m_text})
        label->setFixedWidth(width);
    QWidget::resizeEvent(event);
}

void MessagePage::setContent(Content content)
{
    m_content = std::move(content);
    m_title->setText(m_content.title);
    m_text->setText(m_content.text);
    m_text->setVisible(!m_content.text.isEmpty());
    m_progress->setVisible(m_content.hasProgress);
    m_progress->setAccessibleName(m_content.title);
    setAccessibleName(m_content.title);
    setAccessibleDescription(m_content.text);
    paintIcon();
    makeButtons();
}

void MessagePage::makeButtons()
{
    while (QLayoutItem *item = m_buttons->takeAt(0)) {
        item->widget()->hide();
        item->widget()->deleteLater(); // it may be the one that was just clicked
        delete item;
    }
    for (const Button &button : m_content.buttons) {
        auto *push = new QPushButton(button.text);
        push->setProperty("prominent", button.isProminent);
        push->setAutoDefault(true);
        connect(push, &QPushButton::clicked, this, button.does);
        m_buttons->addWidget(push, 0, Qt::AlignHCenter);
    }
}

void MessagePage::setButtonText(std::size_t index, const QString &text)
{
    if (QLayoutItem *item = m_buttons->itemAt(static_cast<int>(index)))
        qobject_cast<QPushButton *>(item->widget())->setText(text);
}

void MessagePage::setButtonVisible(std::size_t index, bool isVisible)
{
    if (QLayoutItem *item = m_buttons->itemAt(static_cast<int>(index)))
        item->widget()->setVisible(isVisible);
}

void MessagePage::setProgress(double share)
{
    m_progress->setValue(static_cast<int>(share * 1000));
}

void MessagePage::paintIcon()
{
    m_icon->setPixmap(
        m_theme.iconPixmap(m_content.icon, kIconSize, m_theme.colors().secondaryText, devicePixelRatioF()));
}

} // namespace kerlune
