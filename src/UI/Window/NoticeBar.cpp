#include "UI/Window/NoticeBar.h"

#include "UI/InterfaceText.h"
#include "UI/Window/ApplyNotice.h"

#include <QAccessible>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>
#include <QToolButton>

#include <algorithm>

namespace kerlune {

namespace {

constexpr int kMostWidth = 560;
constexpr int kNoticeIconSize = 16;

} // namespace

NoticeBar::NoticeBar(Workspace &workspace, QWidget *parent)
    : QFrame(parent)
    , m_workspace(workspace)
    , m_icon(new QLabel)
    , m_text(new QLabel)
    , m_close(new QToolButton)
{
    setObjectName(QStringLiteral("noticeBar"));
    setProperty("floating", true);
    m_text->setObjectName(QStringLiteral("noticeText"));
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    m_close->setObjectName(QStringLiteral("noticeClose"));
    m_close->setIcon(m_workspace.theme().icon("close"));
    m_close->setIconSize({kNoticeIconSize, kNoticeIconSize});
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(12, 8, 8, 8);
    layout->setSpacing(kGridStep);
    layout->addWidget(m_icon, 0, Qt::AlignTop);
    layout->addWidget(m_text, 1);
    layout->addWidget(m_close, 0, Qt::AlignTop);
    connect(m_close, &QToolButton::clicked, this, &NoticeBar::dismiss);
    connect(&m_workspace.theme(), &Theme::changed, this, &NoticeBar::refresh);
    AppState &state = m_workspace.state();
    m_observers.push_back(state.notice.observe([this, &state] {
        m_isFeedbackLater = !state.notice();
        refresh();
    }));
    m_observers.push_back(state.applyFeedback.observe([this, &state] {
        m_isFeedbackLater = state.applyFeedback().has_value();
        refresh();
    }));
    parent->installEventFilter(this);
    refresh();
}

// What came of applying a font and any other notice have their own times: the one that was posted last is shown.
std::optional<Notice> NoticeBar::latest() const
{
    const AppState &state = m_workspace.state();
    if (state.applyFeedback() && (m_isFeedbackLater || !state.notice()))
        return noticeOf(*state.applyFeedback());
    return state.notice();
}

void NoticeBar::refresh()
{
    const std::optional<Notice> notice = latest();
    setVisible(notice.has_value());
    if (!notice)
        return;
    const ThemeColors &colors = m_workspace.theme().colors();
    m_icon->setPixmap(m_workspace.theme().iconPixmap(notice->isError ? "warning" : "check", kNoticeIconSize,
                                                     notice->isError ? colors.error : colors.text,
                                                     devicePixelRatioF()));
    const QString text = shown(notice->text);
    m_text->setText(notice->isError ? uiText("Erreur : %1", {text}) : text);
    m_text->setProperty("error", notice->isError);
    m_text->style()->polish(m_text);
    m_close->setAccessibleName(uiText("Fermer le message"));
    m_close->setToolTip(uiText("Fermer le message"));
    setAccessibleName(m_text->text());
    place();
    raise();
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void NoticeBar::place()
{
    const QSize room = parentWidget()->size() - QSize(2 * kCardPadding, 2 * kCardPadding);
    const int width = std::min({kMostWidth, room.width(), sizeHint().width() + 2 * kGridStep});
    const int height = layout()->hasHeightForWidth() ? layout()->totalHeightForWidth(width) : sizeHint().height();
    setGeometry((parentWidget()->width() - width) / 2, parentWidget()->height() - height - kCardPadding, width, height);
}

void NoticeBar::dismiss()
{
    AppState &state = m_workspace.state();
    if (state.applyFeedback() && (m_isFeedbackLater || !state.notice()))
        state.dismissApplyFeedback();
    else
        state.dismissNotice();
}

void NoticeBar::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        refresh();
    QFrame::changeEvent(event);
}

bool NoticeBar::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize && !isHidden())
        place();
    return QFrame::eventFilter(watched, event);
}

} // namespace kerlune
