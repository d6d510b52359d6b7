#include "UI/Catalog/CatalogList.h"

#include "UI/Catalog/CatalogModel.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QScrollBar>

#include <algorithm>
#include <chrono>

namespace kerlune {

namespace {

constexpr int kLeastCardWidth = 240;
constexpr std::chrono::milliseconds kRest{120}; // then the user looks at what is there

} // namespace

CatalogList::CatalogList(Workspace &workspace, CatalogModel &model, QWidget *parent)
    : QListView(parent)
    , m_workspace(workspace)
    , m_model(model)
    , m_delegate(new CatalogDelegate(workspace, model, this))
{
    setObjectName(QStringLiteral("catalogList"));
    setModel(&model);
    setItemDelegate(m_delegate);
    setUniformItemSizes(true);
    setResizeMode(QListView::Adjust);
    setMovement(QListView::Static);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setMouseTracking(true);
    viewport()->setAutoFillBackground(false);

    m_resting.setSingleShot(true);
    connect(&m_resting, &QTimer::timeout, this, &CatalogList::want);
    connect(selectionModel(), &QItemSelectionModel::currentChanged, this, [this](const QModelIndex &index) {
        if (index.isValid())
            Q_EMIT familyChosen(m_model.family(index.row()).family);
    });
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &CatalogList::wantSoon);
    connect(&model, &QAbstractItemModel::modelReset, this, &CatalogList::wantSoon);
    connect(&workspace.previews(), &PreviewQueue::previewsReady, viewport(), qOverload<>(&QWidget::update));
    connect(&workspace.theme(), &Theme::changed, this, &CatalogList::wantSoon);
    AppState &state = workspace.state();
    m_observers.push_back(state.previewText.addNotifier([this] { wantSoon(); }));
    m_observers.push_back(state.previewSize.addNotifier([this] { layOut(); }));
    m_observers.push_back(state.googlePreviews().bindableRevision().addNotifier([this] {
        if (!m_resting.isActive()) // else it is about to
            want();
    }));
}

void CatalogList::setForm(CatalogDelegate::Form form)
{
    if (m_delegate->form() == form)
        return;
    m_delegate->setForm(form);
    layOut();
}

void CatalogList::layOut()
{
    const bool isGrid = m_delegate->form() == CatalogDelegate::Form::Card;
    const int side = isGrid ? kCardPadding - kCardGap / 2 : 0; // each card has half a gap around it
    setViewportMargins(side, 0, 0, 0);
    const int room = viewport()->width() - 1; // a grid as wide as the room would leave the last column out
    const int columns = isGrid ? std::max(1, room / kLeastCardWidth) : 1;
    setViewMode(isGrid ? QListView::IconMode : QListView::ListMode);
    setMovement(QListView::Static); // the mode has set its own
    m_delegate->setCell({std::max(1, room / columns), m_delegate->height()});
    setGridSize(m_delegate->cell());
    verticalScrollBar()->setSingleStep(m_delegate->height() / 3);
    scheduleDelayedItemsLayout();
    if (const QModelIndex current = currentIndex(); current.isValid())
        scrollTo(current);
    wantSoon();
}

std::optional<std::string> CatalogList::currentFamily() const
{
    const QModelIndex current = currentIndex();
    return current.isValid() ? std::optional(m_model.family(current.row()).family) : std::nullopt;
}

void CatalogList::setCurrentFamily(const std::string &family)
{
    if (const auto row = m_model.rowOf(family); row && currentIndex().row() != *row)
        setCurrentIndex(m_model.index(*row));
}

// Those in sight, from above.
std::vector<int> CatalogList::rowsInSight() const
{
    const QSize cell = gridSize();
    if (cell.isEmpty() || m_model.rowCount() == 0)
        return {};
    const bool isGrid = m_delegate->form() == CatalogDelegate::Form::Card;
    const int columns = isGrid ? std::max(1, viewport()->width() / cell.width()) : 1;
    const int top = verticalScrollBar()->value();
    const int first = top / cell.height() * columns;
    const int last = ((top + viewport()->height()) / cell.height() + 1) * columns;
    std::vector<int> rows;
    for (int row = first; row < std::min(last, m_model.rowCount()); ++row)
        rows.push_back(row);
    return rows;
}

void CatalogList::wantSoon()
{
    viewport()->update();
    m_resting.start(kRest);
}

void CatalogList::want()
{
    if (!isVisible())
        return;
    std::vector<PreviewRequest> requests;
    for (const int row : rowsInSight()) {
        m_workspace.state().googlePreviews().request(m_model.family(row));
        for (PreviewRequest &request : m_delegate->requests(row, devicePixelRatioF()))
            requests.push_back(std::move(request));
    }
    m_workspace.previews().setWanted(this, std::move(requests));
    viewport()->update();
}

bool CatalogList::isPainted() const
{
    if (m_resting.isActive())
        return false;
    const std::vector<int> rows = rowsInSight();
    return std::all_of(rows.begin(), rows.end(), [this](int row) {
        const std::vector<PreviewRequest> requests = m_delegate->requests(row, devicePixelRatioF());
        if (requests.empty())
            return m_workspace.state().googlePreviews().hasFailed(m_model.family(row).family);
        return std::all_of(requests.begin(), requests.end(), [this](const PreviewRequest &request) {
            return m_workspace.previews().find(request) != nullptr;
        });
    });
}

void CatalogList::resizeEvent(QResizeEvent *event)
{
    QListView::resizeEvent(event);
    layOut();
}

void CatalogList::showEvent(QShowEvent *event)
{
    QListView::showEvent(event);
    want();
}

void CatalogList::hideEvent(QHideEvent *event)
{
    QListView::hideEvent(event);
    m_workspace.previews().setWanted(this, {});
}

void CatalogList::mousePressEvent(QMouseEvent *event)
{
    QListView::mousePressEvent(event);
    const QModelIndex index = indexAt(event->pos());
    const bool isOnSign = index.isValid() && m_delegate->signRect(visualRect(index)).contains(event->pos());
    if (isOnSign && event->button() == Qt::LeftButton)
        Q_EMIT installWanted(m_model.family(index.row()).family);
}

void CatalogList::keyPressEvent(QKeyEvent *event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && event->modifiers() == Qt::NoModifier && currentFamily())
        Q_EMIT installWanted(*currentFamily());
    else
        QListView::keyPressEvent(event);
}

void CatalogList::contextMenuEvent(QContextMenuEvent *event)
{
    const bool isByKey = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex index = isByKey ? currentIndex() : indexAt(event->pos());
    if (!index.isValid())
        return;
    Q_EMIT menuWanted(m_model.family(index.row()).family,
                      isByKey ? viewport()->mapToGlobal(visualRect(index).center()) : event->globalPos());
}

} // namespace kerlune
