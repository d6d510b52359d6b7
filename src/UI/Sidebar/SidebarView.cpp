#include "UI/Sidebar/SidebarView.h"

#include "UI/Drop.h"
#include "UI/Sidebar/SidebarDelegate.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QUrl>

#include <chrono>

namespace kerlune {

namespace {

using Kind = SidebarSelection::Kind;

constexpr int kScrollMargin = 32; // at each end
constexpr std::chrono::milliseconds kScrollInterval{30};

} // namespace

SidebarView::SidebarView(SidebarModel &model, const Theme &theme, QWidget *parent)
    : QTreeView(parent)
    , m_model(model)
    , m_delegate(*new SidebarDelegate(model, theme, this))
{
    setModel(&model);
    setItemDelegate(&m_delegate);
    setHeaderHidden(true);
    setRootIsDecorated(false);
    setIndentation(0);
    setExpandsOnDoubleClick(false);
    setMouseTracking(true);
    setSelectionMode(SingleSelection);
    setEditTriggers(DoubleClicked | EditKeyPressed);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    setAcceptDrops(true);
    viewport()->setAutoFillBackground(false);
    connect(this, &QTreeView::clicked, this, [this](const QModelIndex &index) {
        if (m_model.isHead(index))
            toggle(index);
    });
    m_scrolling.setInterval(kScrollInterval);
    connect(&m_scrolling, &QTimer::timeout, this, &SidebarView::scrollOn);
    connect(&theme, &Theme::changed, viewport(), qOverload<>(&QWidget::update));
}

// A line without a ground of its own: the delegate draws all of it.
void SidebarView::drawBranches(QPainter *, const QRect &, const QModelIndex &) const {}

QItemSelectionModel::SelectionFlags SidebarView::selectionCommand(const QModelIndex &index, const QEvent *) const
{
    return index.flags().testFlag(Qt::ItemIsSelectable) ? QItemSelectionModel::ClearAndSelect
                                                        : QItemSelectionModel::NoUpdate;
}

void SidebarView::keyPressEvent(QKeyEvent *event)
{
    const QModelIndex current = currentIndex();
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (state() == EditingState || !current.isValid()) {
        QTreeView::keyPressEvent(event);
        return;
    }
    if (event->key() == Qt::Key_Delete) {
        Q_EMIT removeWanted(current);
    } else if (event->key() == Qt::Key_Insert) {
        Q_EMIT addWanted(m_model.group(current));
    } else if (m_model.isHead(current) && (isEnter || event->key() == Qt::Key_Space)) {
        toggle(current);
    } else {
        QTreeView::keyPressEvent(event);
    }
}

void SidebarView::contextMenuEvent(QContextMenuEvent *event)
{
    const bool isByKey = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex index = isByKey ? currentIndex() : indexAt(event->pos());
    if (!index.isValid())
        return;
    const QPoint position = isByKey ? viewport()->mapToGlobal(visualRect(index).center()) : event->globalPos();
    Q_EMIT menuWanted(index, position);
}

// Dropping.

// The line that takes families dropped there; what no line is below stands for a new collection.
QModelIndex SidebarView::targetAt(const QPoint &position) const
{
    const QModelIndex index = indexAt(position);
    if (!index.isValid())
        return m_model.headOf(SidebarGroup::collections);
    const SidebarEntry *entry = m_model.entry(index);
    const SidebarGroup group = m_model.group(index);
    if (entry == nullptr || entry->isHint) {
        const bool isMaking = group == SidebarGroup::collections || group == SidebarGroup::tags;
        return isMaking ? m_model.headOf(group) : QModelIndex();
    }
    const Kind kind = entry->selection.kind;
    return kind == Kind::collection || kind == Kind::tag || kind == Kind::favorites ? index : QModelIndex();
}

void SidebarView::setDropTarget(const QModelIndex &index)
{
    m_delegate.setDropTarget(index);
    viewport()->update();
}

bool SidebarView::takes(QDropEvent &event)
{
    const QMimeData &dragged = *event.mimeData();
    m_dragged = event.position().toPoint();
    m_hasFamilies = hasFamilies(dragged);
    if (m_hasFamilies) {
        const QModelIndex target = targetAt(m_dragged);
        setDropTarget(target);
        if (!target.isValid())
            return false;
    } else if (dragged.hasUrls()) {
        setDropTarget(m_model.headOf(SidebarGroup::folders));
    } else {
        return false;
    }
    event.setDropAction(Qt::CopyAction);
    event.accept();
    return true;
}

void SidebarView::dragEnterEvent(QDragEnterEvent *event)
{
    takes(*event);
    event->accept(); // the families may be for a line further down
}

void SidebarView::dragMoveEvent(QDragMoveEvent *event)
{
    if (!takes(*event))
        event->ignore();
    if (scrollStep() == 0)
        m_scrolling.stop();
    else if (!m_scrolling.isActive())
        m_scrolling.start();
}

int SidebarView::scrollStep() const
{
    const int above = kScrollMargin - m_dragged.y();
    const int below = m_dragged.y() - (viewport()->height() - kScrollMargin);
    if (above > 0)
        return -(above / 2 + 1);
    return below > 0 ? below / 2 + 1 : 0;
}

// The pointer rests, so that no event tells that another line is below it now.
void SidebarView::scrollOn()
{
    const int before = verticalScrollBar()->value();
    verticalScrollBar()->setValue(before + scrollStep());
    if (verticalScrollBar()->value() == before)
        m_scrolling.stop();
    else if (m_hasFamilies)
        setDropTarget(targetAt(m_dragged));
}

void SidebarView::endDrag()
{
    m_scrolling.stop();
    setDropTarget({});
}

void SidebarView::dragLeaveEvent(QDragLeaveEvent *)
{
    endDrag();
}

void SidebarView::dropEvent(QDropEvent *event)
{
    const bool isTaken = takes(*event);
    endDrag();
    if (!isTaken) {
        event->ignore();
        return;
    }
    if (hasFamilies(*event->mimeData())) {
        Q_EMIT familiesDropped(targetAt(event->position().toPoint()), droppedFamilies(*event->mimeData()));
        return;
    }
    QStringList paths;
    for (const QUrl &url : event->mimeData()->urls()) {
        if (url.isLocalFile())
            paths.push_back(url.toLocalFile());
    }
    Q_EMIT filesDropped(paths);
}

} // namespace kerlune
