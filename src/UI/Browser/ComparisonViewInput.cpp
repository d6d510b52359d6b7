#include "UI/Browser/ComparisonOverlay.h"
#include "UI/Browser/ComparisonRow.h"
#include "UI/Browser/ComparisonView.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QScrollArea>

#include <algorithm>

// What the user does with mouse and keys.

namespace kerlune {

// The current row.

std::optional<std::size_t> ComparisonView::currentIndex() const
{
    const auto found = std::find(compared().begin(), compared().end(), m_current);
    return found == compared().end() ? std::nullopt : std::optional<std::size_t>(found - compared().begin());
}

void ComparisonView::setCurrent(const std::string &family)
{
    m_current = family;
    m_workspace.select({family});
    markCurrent();
    if (const auto index = currentIndex())
        m_scroll->ensureWidgetVisible(m_rows[*index], 0, 0);
}

void ComparisonView::markCurrent()
{
    const std::size_t current = currentIndex().value_or(m_rows.size());
    std::vector<PreviewPointer> lines;
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        m_rows[i]->setCurrent(i == current, hasFocus());
        lines.push_back(m_rows[i]->preview());
    }
    if (!m_rows.empty())
        m_overlay->setLines(std::move(lines), current, m_rows.front()->lineRect().left());
}

void ComparisonView::step(int by)
{
    const auto index = currentIndex();
    if (!index)
        return;
    const auto last = static_cast<std::ptrdiff_t>(compared().size()) - 1;
    const auto next = std::clamp<std::ptrdiff_t>(static_cast<std::ptrdiff_t>(*index) + by, 0, last);
    setCurrent(compared()[static_cast<std::size_t>(next)]);
}

// Changes of the order.

void ComparisonView::move(const std::string &family, std::ptrdiff_t to)
{
    std::vector<std::string> order = compared();
    const auto found = std::find(order.begin(), order.end(), family);
    if (found == order.end() || to < 0 || to >= static_cast<std::ptrdiff_t>(order.size()))
        return;
    const auto target = order.begin() + to;
    if (target < found)
        std::rotate(target, found, found + 1);
    else
        std::rotate(found, found + 1, target + 1);
    m_workspace.state().comparisonSet = std::move(order);
    setCurrent(compared()[static_cast<std::size_t>(to)]); // the row that had the name has another one now
}

// The next row becomes the current one, so that the key can be pressed again.
void ComparisonView::remove(const std::string &family)
{
    const auto found = std::find(compared().begin(), compared().end(), family);
    if (found == compared().end())
        return;
    const auto index = static_cast<std::size_t>(found - compared().begin());
    const bool wasCurrent = family == m_current;
    m_workspace.removeFromComparison(family); // and with it the row, in which the name lives
    if (wasCurrent && !compared().empty())
        setCurrent(compared()[std::min(index, compared().size() - 1)]);
}

void ComparisonView::dragTo(const std::string &family, const QPoint &globalPosition)
{
    if (m_rows.empty())
        return;
    const int y = m_content->mapFromGlobal(globalPosition).y();
    const auto last = static_cast<std::ptrdiff_t>(m_rows.size()) - 1;
    const auto to = std::clamp<std::ptrdiff_t>(y / m_rows.front()->height(), 0, last);
    if (compared()[static_cast<std::size_t>(to)] != family)
        move(family, to);
}

// Events.

bool ComparisonView::handleKey(const QKeyEvent &event)
{
    const bool isControl = event.modifiers() == Qt::ControlModifier;
    const bool isPlain = (event.modifiers() & ~Qt::KeypadModifier) == 0;
    const auto index = currentIndex();
    if (!index || (!isControl && !isPlain))
        return false;
    const auto at = static_cast<std::ptrdiff_t>(*index);
    switch (event.key()) {
    case Qt::Key_Up:
        isControl ? move(m_current, at - 1) : step(-1);
        return true;
    case Qt::Key_Down:
        isControl ? move(m_current, at + 1) : step(1);
        return true;
    case Qt::Key_Home:
        step(-static_cast<int>(Workspace::kMostCompared));
        return isPlain;
    case Qt::Key_End:
        step(static_cast<int>(Workspace::kMostCompared));
        return isPlain;
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        if (isPlain)
            remove(m_current);
        return isPlain;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (isPlain)
            Q_EMIT m_workspace.panelWanted(Workspace::Panel::styles);
        return isPlain;
    case Qt::Key_Space:
        if (isPlain)
            Q_EMIT m_workspace.largePreviewWanted();
        return isPlain;
    default:
        return false;
    }
}

void ComparisonView::keyPressEvent(QKeyEvent *event)
{
    if (!handleKey(*event))
        QWidget::keyPressEvent(event);
}

void ComparisonView::contextMenuEvent(QContextMenuEvent *event)
{
    const auto index = currentIndex();
    if (!index)
        return;
    QPoint position = event->globalPos();
    if (event->reason() == QContextMenuEvent::Keyboard) {
        position = m_rows[*index]->mapToGlobal(m_rows[*index]->lineRect().center());
    } else {
        const auto isUnder = [&](const ComparisonRow *row) {
            return row->rect().contains(row->mapFromGlobal(position));
        };
        const auto row = std::find_if(m_rows.begin(), m_rows.end(), isUnder);
        if (row == m_rows.end())
            return;
        setCurrent((*row)->content().family);
    }
    Q_EMIT contextMenuWanted(position);
}

void ComparisonView::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    layOut();
}

void ComparisonView::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    follow();
}

void ComparisonView::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    want();
}

void ComparisonView::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void ComparisonView::focusInEvent(QFocusEvent *event)
{
    QWidget::focusInEvent(event);
    markCurrent();
}

void ComparisonView::focusOutEvent(QFocusEvent *event)
{
    QWidget::focusOutEvent(event);
    markCurrent();
}

} // namespace kerlune
