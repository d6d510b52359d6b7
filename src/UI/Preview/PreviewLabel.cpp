#include "UI/Preview/PreviewLabel.h"

#include "UI/InterfaceText.h"
#include "UI/Preview/PreviewPainting.h"

#include <QEvent>
#include <QFontMetrics>
#include <QPainter>

namespace kerlune {

PreviewLabel::PreviewLabel(Workspace &workspace, QWidget *parent)
    : QWidget(parent)
    , m_workspace(workspace)
{
    connect(&workspace.previews(), &PreviewQueue::previewsReady, this, &PreviewLabel::take);
    connect(&workspace.theme(), &Theme::changed, this, &PreviewLabel::want);
}

void PreviewLabel::setContent(Content content)
{
    if (content == m_content)
        return;
    m_content = std::move(content);
    m_leavesRoom = false;
    setAccessibleName(shown(m_content.text));
    setAccessibleDescription(m_content.face == nullptr ? QString() : shown(m_content.face->family));
    want();
}

QSize PreviewLabel::sizeHint() const
{
    return {200, 64};
}

void PreviewLabel::paintEvent(QPaintEvent *)
{
    if (const auto wanted = request(); wanted && m_wanted != wanted)
        want(); // the screen has another resolution
    if (m_last == nullptr)
        return;
    QPainter painter(this);
    PreviewPainting::paint(painter, rect(), m_lastRequest, *m_last, m_workspace.theme());
}

void PreviewLabel::resizeEvent(QResizeEvent *)
{
    m_leavesRoom = false;
    want();
}

void PreviewLabel::showEvent(QShowEvent *)
{
    want();
}

void PreviewLabel::hideEvent(QHideEvent *)
{
    m_wanted.reset();
    m_workspace.previews().setWanted(this, {});
}

void PreviewLabel::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        describe();
    QWidget::changeEvent(event);
}

std::optional<PreviewRequest> PreviewLabel::request() const
{
    const double ratio = devicePixelRatioF();
    QSize size = QSizeF(QSizeF(rect().size()) * ratio).toSize();
    if (m_leavesRoom)
        size.rheight() -= qRound(QFontMetrics(Theme::font(TextSize::small)).height() * ratio);
    if (m_content.face == nullptr || m_content.text.empty() || !(m_content.emSize > 0) || size.isEmpty())
        return std::nullopt;
    return PreviewRequest{.face = m_content.face,
                          .text = m_content.text,
                          .emPixels = m_content.emSize * ratio,
                          .size = size,
                          .color = m_workspace.theme().colors().text,
                          .lines = m_content.lines,
                          .sample = m_content.sample,
                          .features = m_content.features,
                          .coordinates = m_content.coordinates};
}

void PreviewLabel::want()
{
    m_wanted = request();
    if (!m_wanted) {
        m_last.reset();
        m_workspace.previews().setWanted(this, {});
        describe();
        update();
        return;
    }
    take();
    if (m_wanted && isVisible())
        m_workspace.previews().setWanted(this, {*m_wanted});
}

void PreviewLabel::take()
{
    if (!m_wanted)
        return;
    PreviewPointer preview = m_workspace.previews().find(*m_wanted);
    if (preview == nullptr || preview == m_last)
        return;
    const double ratio = devicePixelRatioF();
    const QRect mark = PreviewPainting::sizeMark(rect(), *m_wanted, *preview, ratio);
    if (!m_leavesRoom && !mark.isEmpty() && !PreviewPainting::isFree(mark, rect(), *preview, ratio)) {
        m_leavesRoom = true; // below the text
        want();
        return;
    }
    m_last = std::move(preview);
    m_lastRequest = *m_wanted;
    describe();
    update();
}

void PreviewLabel::describe()
{
    const QString remark =
        m_last == nullptr ? QString() : PreviewPainting::remark(m_lastRequest, *m_last, devicePixelRatioF());
    setToolTip(remark);
}

} // namespace kerlune
