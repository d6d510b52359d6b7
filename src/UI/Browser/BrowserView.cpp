#include "UI/Browser/BrowserView.h"

#include "UI/Browser/BrowserAccessible.h"

#include <QEvent>
#include <QFontMetrics>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>

// Where things stand and how they are painted; BrowserViewInput.cpp has what the user does.

namespace kerlune {

namespace {

constexpr int kWheelStep = 32; // pixels; a notch of the wheel is three
constexpr std::size_t kMostSummaries = 4096;

} // namespace

BrowserView::BrowserView(Workspace &workspace, FamilyListModel &model, QWidget *parent)
    : QAbstractItemView(parent)
    , m_workspace(workspace)
    , m_model(model)
    , m_painter(workspace.theme())
{
    makeBrowserAccessible();
    setModel(&model);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setDragEnabled(true);
    setDragDropMode(DragOnly);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFrameShape(NoFrame);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setAutoFillBackground(false);
    connect(&workspace.previews(), &PreviewQueue::previewsReady, this, &BrowserView::takePreviews);
    connect(&model, &QAbstractItemModel::dataChanged, this, [this] {
        m_summaries.clear();
        want(); // the faces may be others
        viewport()->update();
    });
    m_rubberBandScrolling.setInterval(16);
    connect(&m_rubberBandScrolling, &QTimer::timeout, this, &BrowserView::scrollWithRubberBand);
}

void BrowserView::setMode(BrowserLayout::Mode mode)
{
    if (m_mode == mode)
        return;
    m_anchor = anchor();
    m_mode = mode;
    m_last.clear();
    layOut();
}

void BrowserView::followPreviewSettings()
{
    layOut();
}

BrowserLayout::Measures BrowserView::measures() const
{
    return {.mode = m_mode,
            .width = viewport()->width(),
            .count = m_model.rowCount(),
            .emSize = m_workspace.state().previewSize.value(),
            .characters = static_cast<int>(
                QString::fromStdString(m_workspace.previewText()).size()), // as good as any count for an estimate
            .lineHeight = QFontMetrics(Theme::font(TextSize::body)).height(),
            .smallHeight = QFontMetrics(Theme::font(TextSize::small)).height()};
}

// The family that the user looks at stays where it is: the current one when it is in sight, else the first in sight.
void BrowserView::layOut()
{
    if (!m_anchor)
        m_anchor = anchor();
    m_layout = BrowserLayout(measures());
    m_previews = CellPreviews(m_layout, m_workspace.previewText(), m_workspace.theme().colors().text,
                              viewport()->devicePixelRatioF());
    m_isPlacing = true;
    updateGeometries();
    if (m_anchor->row >= 0 && m_anchor->row < m_model.rowCount())
        verticalScrollBar()->setValue(m_layout.cellRect(m_anchor->row).top() - m_anchor->offset);
    m_isPlacing = false;
    m_hovered = {};
    want();
    viewport()->update();
}

BrowserView::Anchor BrowserView::anchor() const
{
    const BrowserLayout::Range inSight = rowsInSight();
    const int current = currentIndex().row();
    const int top = verticalOffset();
    if (!inSight.isEmpty() && inSight.contains(current))
        return {current, m_layout.cellRect(current).top() - top};
    if (inSight.isEmpty() || top == 0)
        return {-1, 0};
    return {inSight.first, m_layout.cellRect(inSight.first).top() - top};
}

BrowserView::Place BrowserView::place() const
{
    const BrowserLayout::Range inSight = rowsInSight();
    Place place;
    place.isTop = verticalOffset() == 0;
    if (inSight.isEmpty())
        return place;
    const Anchor kept = anchor();
    place.offset = kept.offset;
    if (kept.row >= 0)
        place.names.push_back(m_model.name(kept.row));
    if (place.isTop) // what comes before the others then may well take their place
        return place;
    for (int row = inSight.first; row <= inSight.last; ++row)
        place.names.push_back(m_model.name(row));
    return place;
}

void BrowserView::restore(const Place &place)
{
    m_anchor = std::nullopt;
    const std::vector<int> rows = m_model.rowsOf(place.names);
    m_isPlacing = true;
    updateGeometries();
    int value = 0;
    if (!rows.empty()) {
        const std::string &first = place.names.front();
        const auto kept = std::find_if(rows.begin(), rows.end(), [&](int row) { return m_model.name(row) == first; });
        const int row = kept == rows.end() ? rows.front() : *kept;
        value = m_layout.cellRect(row).top() - place.offset;
        // A grid may have put it elsewhere in its line; where it was at the very top, nothing needs to move.
        if (place.isTop && m_layout.cellRect(row).bottom() < pageHeight())
            value = 0;
    }
    verticalScrollBar()->setValue(value);
    m_isPlacing = false;
    want();
}

void BrowserView::reset()
{
    QAbstractItemView::reset();
    m_summaries.clear();
    m_last.clear();
    m_missing.clear();
    m_hovered = {};
    m_pressed = {};
    m_rubberBand.reset();
    m_anchor = std::nullopt;
    m_layout = BrowserLayout(measures());
    updateGeometries();
}

void BrowserView::updateGeometries()
{
    QAbstractItemView::updateGeometries();
    QScrollBar *bar = verticalScrollBar();
    bar->setPageStep(pageHeight());
    bar->setSingleStep(kWheelStep);
    bar->setRange(0, std::max(0, m_layout.contentHeight() - pageHeight()));
}

int BrowserView::verticalOffset() const
{
    return verticalScrollBar()->value();
}

void BrowserView::scrollContentsBy(int dx, int dy)
{
    if (!m_isPlacing)
        m_anchor = std::nullopt;
    if (m_rubberBand)
        viewport()->update();
    else
        viewport()->scroll(dx, dy);
    if (!m_isPlacing) {
        hover(hitAt(viewport()->mapFromGlobal(QCursor::pos())));
        want();
    }
}

QRect BrowserView::visualRect(const QModelIndex &index) const
{
    return index.isValid() ? m_layout.cellRect(index.row()).translated(0, -verticalOffset()) : QRect();
}

QModelIndex BrowserView::indexAt(const QPoint &point) const
{
    const int row = m_layout.rowAt(point + QPoint(0, verticalOffset()));
    return row < 0 ? QModelIndex() : indexOf(row);
}

void BrowserView::scrollTo(const QModelIndex &index, ScrollHint hint)
{
    if (!index.isValid())
        return;
    const QRect cell = m_layout.cellRect(index.row());
    const int margin = m_mode == BrowserLayout::Mode::grid ? kCardGap : 0;
    const int top = cell.top() - margin;
    const int bottom = cell.bottom() + 1 + margin;
    const int value = verticalOffset();
    const bool isHigher = bottom - top > pageHeight();
    if (hint == PositionAtCenter)
        verticalScrollBar()->setValue(cell.center().y() - pageHeight() / 2);
    else if (hint == PositionAtTop || top < value || isHigher)
        verticalScrollBar()->setValue(top);
    else if (hint == PositionAtBottom || bottom > value + pageHeight())
        verticalScrollBar()->setValue(bottom - pageHeight());
}

QRegion BrowserView::visualRegionForSelection(const QItemSelection &selection) const
{
    const BrowserLayout::Range inSight = rowsInSight();
    QRegion region;
    for (const QItemSelectionRange &range : selection) {
        const int first = std::max(inSight.first, range.top());
        const int last = std::min(inSight.last, range.bottom());
        for (int row = first; row <= last; ++row)
            region += visualRect(indexOf(row));
    }
    return region;
}

// Previews.

BrowserLayout::Range BrowserView::rowsInSight() const
{
    BrowserLayout::Range rows = m_layout.rowsBetween(verticalOffset(), verticalOffset() + pageHeight() - 1);
    rows.last = std::min(rows.last, m_model.rowCount() - 1);
    return rows;
}

void BrowserView::want()
{
    std::vector<PreviewRequest> requests;
    const BrowserLayout::Range inSight = rowsInSight();
    std::erase_if(m_missing, [&](int row) { return !inSight.contains(row); });
    std::erase_if(m_last, [&](const auto &entry) { return !inSight.contains(entry.first); });
    if (isVisible()) {
        const int top = verticalOffset();
        for (const int row : m_layout.nearestFirst(top - pageHeight(), top + 2 * pageHeight())) {
            if (row >= m_model.rowCount())
                continue;
            const FontRecordPointer &face = summary(row).face;
            for (std::size_t slot = 0; slot < m_previews.count(); ++slot)
                requests.push_back(m_previews.request(face, slot));
        }
    }
    m_workspace.previews().setWanted(this, std::move(requests));
}

bool BrowserView::isThere(int row) const
{
    for (std::size_t slot = 0; slot < m_previews.count(); ++slot) {
        if (m_workspace.previews().find(m_previews.request(summary(row).face, slot)) == nullptr)
            return false;
    }
    return true;
}

bool BrowserView::isPainted() const
{
    const BrowserLayout::Range inSight = rowsInSight();
    for (int row = inSight.first; row <= inSight.last; ++row) {
        if (!isThere(row))
            return false;
    }
    return true;
}

void BrowserView::takePreviews()
{
    for (const int row : std::vector<int>(m_missing.begin(), m_missing.end())) {
        if (row < m_model.rowCount() && (m_previews.count() > 1 || isThere(row)))
            updateRow(row);
    }
}

const FamilySummary &BrowserView::summary(int row) const
{
    if (m_summaries.size() > kMostSummaries)
        m_summaries.clear();
    const auto found = m_summaries.find(row);
    return found != m_summaries.end() ? found->second : m_summaries.emplace(row, m_model.summary(row)).first->second;
}

std::vector<FamilyPainter::Drawn> BrowserView::drawn(int row)
{
    std::vector<FamilyPainter::Drawn> all(m_previews.count());
    std::vector<PreviewPointer> &last = m_last[row];
    last.resize(all.size());
    bool isComplete = true;
    for (std::size_t slot = 0; slot < all.size(); ++slot) {
        const PreviewRequest request = m_previews.request(summary(row).face, slot);
        if (PreviewPointer preview = m_workspace.previews().find(request)) {
            all[slot] = {.preview = preview, .isReduced = preview->isReduced(request)};
            last[slot] = std::move(preview);
        } else {
            all[slot] = {.preview = last[slot], .isReduced = false};
            isComplete = false;
        }
    }
    if (isComplete)
        m_missing.erase(row);
    else
        m_missing.insert(row);
    return all;
}

// Painting.

void BrowserView::updateRow(int row)
{
    if (row >= 0 && row < m_model.rowCount())
        viewport()->update(visualRect(indexOf(row)));
}

void BrowserView::paintEvent(QPaintEvent *event)
{
    QPainter painter(viewport());
    painter.setRenderHint(QPainter::Antialiasing);
    const QRect dirty = event->rect();
    const ThemeColors &colors = m_workspace.theme().colors();
    painter.fillRect(dirty, colors.canvas);
    const int top = verticalOffset();
    BrowserLayout::Range rows = m_layout.rowsBetween(dirty.top() + top, dirty.bottom() + top);
    rows.last = std::min(rows.last, m_model.rowCount() - 1);
    for (int row = rows.first; row <= rows.last; ++row) {
        if (event->region().intersects(visualRect(indexOf(row))))
            paintRow(painter, row);
    }
    if (m_rubberBand) {
        QColor ground = colors.accent;
        ground.setAlphaF(0.12F);
        painter.setPen(colors.accent);
        painter.setBrush(ground);
        painter.drawRect(QRectF(QRect(m_rubberBand->from, m_rubberBand->to).normalized().translated(0, -top))
                             .adjusted(0.5, 0.5, -0.5, -0.5));
    }
}

void BrowserView::paintRow(QPainter &painter, int row)
{
    const QModelIndex index = indexOf(row);
    const FamilyPainter::Look look{.isSelected = selectionModel()->isSelected(index),
                                   .isFocused = hasFocus() && currentIndex() == index,
                                   .isHovered = m_hovered.row == row,
                                   .hoveredPart = m_hovered.row == row ? m_hovered.part : CellPart::none};
    painter.save();
    painter.translate(visualRect(index).topLeft());
    m_painter.paint(painter, m_layout, index.data().toString(), summary(row), drawn(row), look);
    painter.restore();
}

void BrowserView::resizeEvent(QResizeEvent *event)
{
    QAbstractItemView::resizeEvent(event);
    layOut();
}

void BrowserView::showEvent(QShowEvent *event)
{
    QAbstractItemView::showEvent(event);
    layOut();
}

void BrowserView::hideEvent(QHideEvent *event)
{
    QAbstractItemView::hideEvent(event);
    want();
}

void BrowserView::changeEvent(QEvent *event)
{
    QAbstractItemView::changeEvent(event);
    if (event->type() == QEvent::LanguageChange || event->type() == QEvent::FontChange)
        layOut();
}

} // namespace kerlune
