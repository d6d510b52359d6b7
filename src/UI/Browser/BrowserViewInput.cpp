#include "UI/Browser/BrowserAccessible.h"
#include "UI/Browser/BrowserView.h"
#include "UI/InterfaceText.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDrag>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

// What the user does with mouse and keys.

namespace kerlune {

namespace {

constexpr double kLeastSizeByWheel = 12;
constexpr double kMostSizeByWheel = 200;

QPixmap dragPixmap(const Theme &theme, const QString &text, qreal devicePixelRatio)
{
    const QFont font = Theme::font(TextSize::body);
    const QFontMetrics metrics(font);
    const QString elided = metrics.elidedText(text, Qt::ElideMiddle, 240);
    const QSize size(metrics.horizontalAdvance(elided) + 2 * kCardGap, metrics.height() + kGridStep);
    QPixmap pixmap(size * devicePixelRatio);
    pixmap.setDevicePixelRatio(devicePixelRatio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme.colors().accent);
    painter.drawRoundedRect(QRectF(QPointF(0, 0), size), kControlRadius, kControlRadius);
    painter.setFont(font);
    painter.setPen(theme.colors().onAccent);
    painter.drawText(QRect(QPoint(0, 0), size), Qt::AlignCenter, elided);
    return pixmap;
}

} // namespace

// Selection.

std::vector<int> BrowserView::selectedRows() const
{
    std::vector<int> rows;
    for (const QItemSelectionRange &range : selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows.push_back(row);
    }
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

std::vector<std::string> BrowserView::selectedNames() const
{
    std::vector<std::string> names;
    for (const int row : selectedRows())
        names.push_back(m_model.name(row));
    return names;
}

void BrowserView::selectRows(const std::vector<int> &ascending, std::optional<int> current)
{
    QItemSelection selection;
    for (std::size_t i = 0; i < ascending.size();) {
        std::size_t end = i + 1;
        while (end < ascending.size() && ascending[end] == ascending[end - 1] + 1)
            ++end;
        selection.append(QItemSelectionRange(indexOf(ascending[i]), indexOf(ascending[end - 1])));
        i = end;
    }
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    const bool scrolls = hasAutoScroll();
    setAutoScroll(false);
    selectionModel()->setCurrentIndex(current ? indexOf(*current) : QModelIndex(), QItemSelectionModel::NoUpdate);
    setAutoScroll(scrolls);
}

// From the anchor of the selection to where the pointer or the keys are now, in reading order.
void BrowserView::setSelection(const QRect &rect, QItemSelectionModel::SelectionFlags command)
{
    const QPoint offset(0, verticalOffset());
    const int a = m_layout.nearestRow(rect.topLeft() + offset);
    const int b = m_layout.nearestRow(rect.bottomRight() + offset);
    if (a < 0 || b < 0)
        return;
    selectionModel()->select(QItemSelection(indexOf(std::min(a, b)), indexOf(std::max(a, b))), command);
}

// Mouse.

BrowserView::Hit BrowserView::hitAt(QPoint inViewport) const
{
    if (!viewport()->rect().contains(inViewport))
        return {};
    const QPoint inContents = inViewport + QPoint(0, verticalOffset());
    const int row = m_layout.rowAt(inContents);
    if (row < 0 || row >= m_model.rowCount())
        return {};
    return {row, FamilyPainter::partAt(m_layout, inContents - m_layout.cellRect(row).topLeft())};
}

void BrowserView::hover(const Hit &hit)
{
    if (hit == m_hovered)
        return;
    const int before = m_hovered.row;
    m_hovered = hit;
    updateRow(before);
    updateRow(hit.row);
}

void BrowserView::mousePressEvent(QMouseEvent *event)
{
    const Hit hit = hitAt(event->pos());
    if (event->button() == Qt::LeftButton && (hit.part == CellPart::star || hit.part == CellPart::sign)) {
        m_pressed = hit;
        return;
    }
    if (event->button() == Qt::LeftButton && hit.row < 0) {
        const bool keeps = (event->modifiers() & (Qt::ControlModifier | Qt::ShiftModifier)) != 0;
        const QPoint from = event->pos() + QPoint(0, verticalOffset());
        m_rubberBand = RubberBand{from, from, keeps ? selectionModel()->selection() : QItemSelection()};
        if (!keeps)
            clearSelection();
        return;
    }
    QAbstractItemView::mousePressEvent(event);
}

void BrowserView::mouseMoveEvent(QMouseEvent *event)
{
    if (m_rubberBand) {
        stretchRubberBand(event->pos());
        return;
    }
    hover(hitAt(event->pos()));
    if (m_pressed.row < 0)
        QAbstractItemView::mouseMoveEvent(event);
}

void BrowserView::mouseReleaseEvent(QMouseEvent *event)
{
    if (m_rubberBand && event->button() == Qt::LeftButton) {
        m_rubberBand.reset();
        m_rubberBandScrolling.stop();
        viewport()->update();
        return;
    }
    if (const Hit pressed = m_pressed; pressed.row >= 0 && event->button() == Qt::LeftButton) {
        m_pressed = {};
        if (hitAt(event->pos()) == pressed)
            toggle(pressed);
        return;
    }
    QAbstractItemView::mouseReleaseEvent(event);
}

void BrowserView::mouseDoubleClickEvent(QMouseEvent *event)
{
    const Hit hit = hitAt(event->pos());
    const bool isOnCard = hit.row >= 0 && hit.part != CellPart::star && hit.part != CellPart::sign;
    if (!isOnCard || event->button() != Qt::LeftButton)
        mousePressEvent(event); // a quick second click on a button counts as a click
    else if ((event->modifiers() & (Qt::ControlModifier | Qt::ShiftModifier)) == 0)
        Q_EMIT m_workspace.largePreviewWanted();
}

void BrowserView::toggle(const Hit &hit)
{
    const FamilySummary pressed = summary(hit.row);
    const bool isSelected = selectionModel()->isSelected(indexOf(hit.row));
    const std::vector<std::string> names = isSelected ? selectedNames() : std::vector{m_model.name(hit.row)};
    if (hit.part == CellPart::star)
        m_workspace.commands().setFavorites(names, !pressed.isFavorite);
    else if (pressed.activation != ActivationState::system)
        m_workspace.commands().setActive(names, pressed.activation != ActivationState::active);
}

void BrowserView::stretchRubberBand(QPoint inViewport)
{
    m_rubberBand->to = inViewport + QPoint(0, verticalOffset());
    QItemSelection selection = m_rubberBand->before;
    for (const auto &[first, last] : m_layout.rowsIn(QRect(m_rubberBand->from, m_rubberBand->to).normalized()))
        selection.merge(QItemSelection(indexOf(first), indexOf(last)), QItemSelectionModel::Select);
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    if (!viewport()->rect().contains(inViewport))
        m_rubberBandScrolling.start();
    else
        m_rubberBandScrolling.stop();
    viewport()->update();
}

// The further away the pointer is, the faster.
void BrowserView::scrollWithRubberBand()
{
    if (!m_rubberBand)
        return m_rubberBandScrolling.stop();
    const QPoint pointer = viewport()->mapFromGlobal(QCursor::pos());
    const int beyond = pointer.y() < 0 ? pointer.y() : std::max(0, pointer.y() - pageHeight());
    verticalScrollBar()->setValue(verticalOffset() + beyond / 4);
    stretchRubberBand(pointer);
}

void BrowserView::wheelEvent(QWheelEvent *event)
{
    if ((event->modifiers() & Qt::ControlModifier) == 0) {
        QAbstractItemView::wheelEvent(event);
        return;
    }
    const int turn = event->angleDelta().y();
    if (turn != 0) {
        QProperty<double> &size = m_workspace.state().previewSize;
        const double step = std::max(1.0, std::round(size.value() / 12));
        size = std::clamp(std::round(size.value()) + (turn > 0 ? step : -step), kLeastSizeByWheel, kMostSizeByWheel);
    }
    event->accept();
}

void BrowserView::startDrag(Qt::DropActions)
{
    const std::vector<int> rows = selectedRows();
    QModelIndexList indexes;
    for (const int row : rows)
        indexes << indexOf(row);
    QMimeData *content = m_model.mimeData(indexes);
    if (content == nullptr)
        return;
    const QString text = rows.size() == 1
                             ? indexes.front().data().toString()
                             : uiCount("%1 famille", "%1 familles", static_cast<std::int64_t>(rows.size()));
    auto *drag = new QDrag(this); // Qt deletes it after the drop
    drag->setMimeData(content);
    drag->setPixmap(dragPixmap(m_workspace.theme(), text, devicePixelRatioF()));
    drag->setHotSpot(QPoint(-12, -8));
    drag->exec(Qt::CopyAction, Qt::CopyAction);
}

bool BrowserView::viewportEvent(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto *help = static_cast<QHelpEvent *>(event);
        const Hit hit = hitAt(help->pos());
        const QString text = hit.row < 0 ? QString() : toolTipAt(hit);
        if (text.isEmpty())
            QToolTip::hideText();
        else
            QToolTip::showText(help->globalPos(), text, viewport());
        return true;
    }
    if (event->type() == QEvent::Leave)
        hover({});
    return QAbstractItemView::viewportEvent(event);
}

QString BrowserView::toolTipAt(const Hit &hit) const
{
    const std::string &name = m_model.name(hit.row);
    switch (hit.part) {
    case CellPart::star:
        return summary(hit.row).isFavorite ? uiText("Retirer des favoris") : uiText("Ajouter aux favoris");
    case CellPart::sign:
        return signToolTip(hit.row);
    case CellPart::name:
        return FamilyPainter::isNameElided(m_layout, shown(name)) ? shownAsMarkup(name) : QString();
    case CellPart::preview: {
        const PreviewPointer preview = m_workspace.previews().find(m_previews.request(summary(hit.row).face, 0));
        if (preview == nullptr)
            return {};
        switch (preview->failure) {
        case Preview::Failure::None:
            return preview->isSubstitute ? uiText("Échantillon d’une écriture que la police couvre") : QString();
        case Preview::Failure::Unreadable:
            return uiText("Le fichier de la police n’a pas pu être lu.");
        case Preview::Failure::NoInk:
            return uiText("La police ne dessine rien pour ce texte.");
        case Preview::Failure::TooCostly:
            return uiText("La police est trop longue à dessiner.");
        }
        return {};
    }
    case CellPart::details:
    case CellPart::none:
        return {};
    }
    return {};
}

QString BrowserView::signToolTip(int row) const
{
    switch (summary(row).activation) {
    case ActivationState::system:
        return uiText("Police du système : toujours active");
    case ActivationState::active:
        return uiText("Active : cliquer pour désactiver");
    case ActivationState::inactive:
        return uiText("Inactive : cliquer pour activer");
    case ActivationState::partial:
        return uiText("Active en partie : cliquer pour activer tous les styles");
    }
    return {};
}

void BrowserView::contextMenuEvent(QContextMenuEvent *event)
{
    event->accept();
    QPoint position = event->globalPos();
    if (event->reason() == QContextMenuEvent::Keyboard) {
        const QRect cell = visualRect(currentIndex()).intersected(viewport()->rect());
        position = viewport()->mapToGlobal(cell.isEmpty() ? QPoint(kCardPadding, kCardPadding) : cell.center());
    } else if (const Hit hit = hitAt(viewport()->mapFromGlobal(position)); hit.row < 0) {
        return;
    } else if (!selectionModel()->isSelected(indexOf(hit.row))) {
        selectionModel()->setCurrentIndex(indexOf(hit.row), QItemSelectionModel::ClearAndSelect);
    }
    if (selectionModel()->hasSelection())
        Q_EMIT contextMenuWanted(position);
}

// Keys.

int BrowserView::rowOfMove(CursorAction action, int row) const
{
    const int columns = m_layout.columns();
    const int last = m_model.rowCount() - 1;
    const int page = std::max(1, pageHeight() / m_layout.rowStep()) * columns;
    const bool isGrid = columns > 1;
    const auto down = [&](int by) {
        const int column = row % columns;
        const int lastLine = last / columns * columns;
        // In a last line that is not full, the step goes to its end.
        return row + by <= last ? row + by : std::min(last, lastLine + column);
    };
    const auto up = [&](int by) { return row - by >= 0 ? row - by : row % columns; };
    switch (action) {
    case MoveUp:
        return up(columns);
    case MoveDown:
        return down(columns);
    case MovePageUp:
        return up(page);
    case MovePageDown:
        return down(page);
    case MoveLeft:
        return isGrid ? std::max(0, row - 1) : row;
    case MoveRight:
        return isGrid ? std::min(last, row + 1) : row;
    case MovePrevious:
        return std::max(0, row - 1);
    case MoveNext:
        return std::min(last, row + 1);
    case MoveHome:
        return 0;
    case MoveEnd:
        return last;
    }
    return row;
}

void BrowserView::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QAbstractItemView::currentChanged(current, previous);
    if (current.isValid() && hasFocus())
        announceRow(*this, current.row());
}

QModelIndex BrowserView::moveCursor(CursorAction action, Qt::KeyboardModifiers)
{
    if (m_model.rowCount() == 0)
        return {};
    const QModelIndex current = currentIndex();
    if (!current.isValid()) {
        const BrowserLayout::Range inSight = rowsInSight();
        return indexOf(action == MoveEnd ? m_model.rowCount() - 1 : std::max(0, inSight.first));
    }
    return indexOf(rowOfMove(action, current.row()));
}

void BrowserView::keyPressEvent(QKeyEvent *event)
{
    const bool isPlain = (event->modifiers() & ~Qt::KeypadModifier) == 0;
    if (isPlain && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) {
        Q_EMIT m_workspace.panelWanted(Workspace::Panel::styles);
        return;
    }
    if (isPlain && event->key() == Qt::Key_Space) {
        if (!searchOn(QStringLiteral(" "))) // "Noto S"
            Q_EMIT m_workspace.largePreviewWanted();
        return;
    }
    // The current family may not be selected yet; where it is the only one, an arrow leads nowhere else.
    const bool isArrow = event->key() >= Qt::Key_Left && event->key() <= Qt::Key_Down;
    if (isPlain && isArrow && currentIndex().isValid() && !selectionModel()->hasSelection()) {
        selectionModel()->setCurrentIndex(currentIndex(), QItemSelectionModel::ClearAndSelect);
        return;
    }
    QAbstractItemView::keyPressEvent(event);
}

void BrowserView::keyboardSearch(const QString &text)
{
    const bool isSameLetter = m_typed.count(text, Qt::CaseInsensitive) == m_typed.size();
    if (searchOn(text) || (isSearching() && !isSameLetter))
        return;
    m_typed = text;
    m_sinceTyped.restart();
    // The same letter again steps through the names that begin with it.
    const int from = currentIndex().isValid() ? currentIndex().row() + 1 : 0;
    if (const auto row = m_model.rowBeginningWith(text.toStdString(), from))
        selectionModel()->setCurrentIndex(indexOf(*row), QItemSelectionModel::ClearAndSelect);
}

bool BrowserView::isSearching() const
{
    return !m_typed.isEmpty() && m_sinceTyped.isValid() &&
           m_sinceTyped.elapsed() < QApplication::keyboardInputInterval();
}

// Goes on with what was typed just now; false when nothing was, or when no name goes on so.
bool BrowserView::searchOn(const QString &text)
{
    if (!isSearching())
        return false;
    const auto row = m_model.rowBeginningWith((m_typed + text).toStdString(), std::max(0, currentIndex().row()));
    if (!row)
        return false;
    m_typed += text;
    m_sinceTyped.restart();
    selectionModel()->setCurrentIndex(indexOf(*row), QItemSelectionModel::ClearAndSelect);
    return true;
}

} // namespace kerlune
