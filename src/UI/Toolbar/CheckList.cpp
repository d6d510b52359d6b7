#include "UI/Toolbar/CheckList.h"

#include "Support/Localization.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>

#include <algorithm>

namespace kerlune {

namespace {

constexpr int kLineHeight = 26;

bool canBeTicked(const QTreeWidgetItem *item)
{
    return item != nullptr && item->flags().testFlag(Qt::ItemIsUserCheckable);
}

} // namespace

CheckList::CheckList(const Theme &theme, QWidget *parent)
    : QTreeWidget(parent)
{
    setColumnCount(2);
    setHeaderHidden(true);
    setRootIsDecorated(false);
    setIndentation(0);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setMouseTracking(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTextElideMode(Qt::ElideMiddle);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(0, QHeaderView::Stretch);
    header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    QPalette colors = palette();
    colors.setColor(QPalette::Highlight, theme.colors().selection);
    colors.setColor(QPalette::HighlightedText, theme.colors().text);
    setPalette(colors);
    connect(this, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem *item, int column) {
        if (column == 0 && canBeTicked(item))
            Q_EMIT ticked(item, item->checkState(0) == Qt::Checked);
    });
    connect(this, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem *item) {
        if (canBeTicked(item) && item == m_pressed && item->checkState(0) == m_stateWhenPressed)
            toggle(item); // the click was not on the box itself
    });
}

QTreeWidgetItem *CheckList::addHead(const QString &text)
{
    auto *head = new QTreeWidgetItem(this, {text});
    head->setFlags(Qt::ItemIsEnabled);
    head->setFont(0, Theme::font(TextSize::small, QFont::DemiBold));
    head->setForeground(0, palette().placeholderText());
    head->setSizeHint(0, {0, kLineHeight});
    return head;
}

QTreeWidgetItem *CheckList::addLine(const QString &text, std::int64_t count, bool isChecked, QTreeWidgetItem *head)
{
    const QSignalBlocker blocker(this);
    const QStringList texts{text, QString::fromStdString(groupedDigits(count))};
    auto *item = head == nullptr ? new QTreeWidgetItem(this, texts) : new QTreeWidgetItem(head, texts);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    item->setCheckState(0, isChecked ? Qt::Checked : Qt::Unchecked);
    item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
    item->setForeground(1, palette().placeholderText());
    item->setFont(1, Theme::font(TextSize::small));
    item->setToolTip(0, text.toHtmlEscaped());
    item->setSizeHint(0, {0, kLineHeight});
    if (head != nullptr)
        head->setExpanded(true);
    return item;
}

void CheckList::fitHeight(int most)
{
    setFixedHeight(std::min(most, kLineHeight * topLevelItemCount() + 4));
}

void CheckList::toggle(QTreeWidgetItem *item)
{
    item->setCheckState(0, item->checkState(0) == Qt::Checked ? Qt::Unchecked : Qt::Checked);
}

void CheckList::mousePressEvent(QMouseEvent *event)
{
    m_pressed = itemAt(event->position().toPoint());
    m_stateWhenPressed = m_pressed == nullptr ? Qt::Unchecked : m_pressed->checkState(0);
    QTreeWidget::mousePressEvent(event);
}

void CheckList::keyPressEvent(QKeyEvent *event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && canBeTicked(currentItem()))
        toggle(currentItem());
    else
        QTreeWidget::keyPressEvent(event);
}

} // namespace kerlune
