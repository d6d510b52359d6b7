#include "UI/Panels/FaceList.h"

#include "UI/Panels/FaceDelegate.h"

#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace kerlune {

FaceList::FaceList(Workspace &workspace, QWidget *parent)
    : QListView(parent)
    , m_workspace(workspace)
    , m_model(new FaceListModel(this))
    , m_delegate(new FaceDelegate(workspace, *m_model, this))
{
    setModel(m_model);
    setItemDelegate(m_delegate);
    setUniformItemSizes(true);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setMouseTracking(true);
    viewport()->setAutoFillBackground(false);
    connect(selectionModel(), &QItemSelectionModel::currentChanged, this, [this](const QModelIndex &index) {
        if (index.isValid() && !m_isFollowing)
            Q_EMIT faceChosen(m_model->line(index).face);
    });
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &FaceList::wantPreviews);
    connect(&workspace.previews(), &PreviewQueue::previewsReady, viewport(), qOverload<>(&QWidget::update));
    connect(&workspace.theme(), &Theme::changed, this, &FaceList::wantPreviews);
    m_observers.push_back(workspace.state().previewText.addNotifier([this] { wantPreviews(); }));
}

void FaceList::setLines(std::vector<FaceLine> lines)
{
    m_model->setLines(std::move(lines));
    wantPreviews();
}

void FaceList::setCurrentFace(const FontRecordPointer &face)
{
    const QScopedValueRollback following(m_isFollowing, true);
    const QModelIndex index = m_model->indexOf(face);
    setCurrentIndex(index);
    scrollTo(index);
}

// Those in sight, then a page below and above.
void FaceList::wantPreviews()
{
    if (!isVisible())
        return;
    std::vector<PreviewRequest> requests;
    const int rows = m_model->rowCount();
    const int first = std::max(0, indexAt({0, 0}).row());
    const int height = sizeHintForRow(0);
    const int page = height > 0 ? viewport()->height() / height + 2 : 0;
    const auto want = [&](int from, int to) {
        for (int row = std::max(0, from); row < std::min(rows, to); ++row) {
            const QModelIndex index = m_model->index(row);
            requests.push_back(m_delegate->request(index, visualRect(index), devicePixelRatioF()));
        }
    };
    want(first, first + page);
    want(first + page, first + 2 * page);
    want(first - page, first);
    m_workspace.previews().setWanted(this, std::move(requests));
    viewport()->update();
}

void FaceList::resizeEvent(QResizeEvent *event)
{
    QListView::resizeEvent(event);
    wantPreviews();
}

void FaceList::showEvent(QShowEvent *event)
{
    QListView::showEvent(event);
    wantPreviews();
}

void FaceList::hideEvent(QHideEvent *event)
{
    QListView::hideEvent(event);
    m_workspace.previews().setWanted(this, {});
}

} // namespace kerlune
