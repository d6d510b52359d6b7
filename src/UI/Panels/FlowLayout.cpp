#include "UI/Panels/FlowLayout.h"

#include <QWidget>

#include <algorithm>

namespace kerlune {

namespace {
constexpr int kGap = 4;
}

FlowLayout::FlowLayout(QWidget *parent)
    : QLayout(parent)
{
    setContentsMargins(0, 0, 0, 0);
}

FlowLayout::~FlowLayout() = default;

void FlowLayout::addItem(QLayoutItem *item)
{
    m_items.emplace_back(item);
}

int FlowLayout::count() const
{
    return static_cast<int>(m_items.size());
}

QLayoutItem *FlowLayout::itemAt(int index) const
{
    return index >= 0 && index < count() ? m_items[static_cast<std::size_t>(index)].get() : nullptr;
}

QLayoutItem *FlowLayout::takeAt(int index)
{
    if (index < 0 || index >= count())
        return nullptr;
    QLayoutItem *const taken = m_items[static_cast<std::size_t>(index)].release();
    m_items.erase(m_items.begin() + index);
    return taken;
}

template <typename Place>
int FlowLayout::arrange(const QRect &rect, Place place) const
{
    const QRect area = rect.marginsRemoved(contentsMargins());
    int x = area.left();
    int y = area.top();
    int lineHeight = 0;
    for (const auto &item : m_items) {
        if (item->isEmpty())
            continue;
        const QSize wanted = item->sizeHint();
        const QSize size(std::min(wanted.width(), area.width()), wanted.height());
        if (x > area.left() && x + size.width() > area.left() + area.width()) {
            x = area.left();
            y += lineHeight + kGap;
            lineHeight = 0;
        }
        place(*item, QRect(QPoint(x, y), size));
        x += size.width() + kGap;
        lineHeight = std::max(lineHeight, size.height());
    }
    return y + lineHeight - rect.top() + contentsMargins().bottom();
}

int FlowLayout::heightForWidth(int width) const
{
    return arrange(QRect(0, 0, width, 0), [](const QLayoutItem &, const QRect &) {});
}

QSize FlowLayout::minimumSize() const
{
    QSize size;
    for (const auto &item : m_items)
        size = size.expandedTo({0, item->minimumSize().height()});
    return size;
}

void FlowLayout::setGeometry(const QRect &rect)
{
    QLayout::setGeometry(rect);
    arrange(rect, [](QLayoutItem &item, const QRect &place) { item.setGeometry(place); });
}

} // namespace kerlune
