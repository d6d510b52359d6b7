#include "UI/Panels/GlyphGrid.h"

#include "Platform/FaceContents.h"
#include "UI/Panels/GlyphImages.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>

#include <algorithm>
#include <utility>

namespace kerlune {

namespace {

constexpr int kMargin = 12;
constexpr int kLeastCell = 44;
constexpr int kCellHeight = 48;

QString codeText(char32_t character)
{
    return QStringLiteral("%1").arg(static_cast<std::uint32_t>(character), 4, 16, QLatin1Char('0')).toUpper();
}

// Fonts begin with control characters and the space, of which nothing is seen.
int firstWithInk(const GlyphGrid::Entries &entries)
{
    const auto first = std::find_if(entries.begin(), entries.end(),
                                    [](const CharacterMap::Entry &entry) { return isGraphic(entry.character); });
    return entries.empty() ? -1 : first == entries.end() ? 0 : static_cast<int>(first - entries.begin());
}

} // namespace

GlyphGrid::GlyphGrid(const Theme &theme, GlyphImages &images, QWidget *parent)
    : QAbstractScrollArea(parent)
    , m_theme(theme)
    , m_images(images)
{
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setAutoFillBackground(false);
    verticalScrollBar()->setSingleStep(kCellHeight);
    connect(&images, &GlyphImages::imagesReady, viewport(), qOverload<>(&QWidget::update));
    connect(&theme, &Theme::changed, viewport(), qOverload<>(&QWidget::update));
}

void GlyphGrid::setEntries(Entries entries)
{
    const CharacterMap::Entry *const before = current();
    const char32_t character = before == nullptr ? 0 : before->character;
    m_entries = std::move(entries);
    const auto same = std::find_if(m_entries.begin(), m_entries.end(),
                                   [character](const auto &entry) { return entry.character == character; });
    const bool isThere = same != m_entries.end() && character != 0;
    m_current = isThere ? static_cast<int>(same - m_entries.begin()) : firstWithInk(m_entries);
    layOut();
    verticalScrollBar()->setValue(0);
    if (isThere)
        scrollTo(m_current);
    wantImages();
    viewport()->update();
    Q_EMIT currentChanged();
}

const CharacterMap::Entry *GlyphGrid::current() const
{
    return m_current < 0 ? nullptr : &m_entries[static_cast<std::size_t>(m_current)];
}

void GlyphGrid::setCurrentIndex(int index)
{
    if (m_entries.empty())
        return;
    const int last = static_cast<int>(m_entries.size()) - 1;
    const int wanted = std::clamp(index, 0, last);
    if (wanted == m_current)
        return;
    m_current = wanted;
    scrollTo(wanted);
    viewport()->update();
    Q_EMIT currentChanged();
    QAccessibleEvent spoken(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&spoken);
}

int GlyphGrid::columns() const
{
    return std::max(1, (viewport()->width() - 2 * kMargin) / kLeastCell);
}

int GlyphGrid::rows() const
{
    const int count = static_cast<int>(m_entries.size());
    return (count + columns() - 1) / columns();
}

QSize GlyphGrid::cellSize() const
{
    return {std::max(1, (viewport()->width() - 2 * kMargin) / columns()), kCellHeight};
}

QRect GlyphGrid::cellRect(int index) const
{
    const QSize cell = cellSize();
    const int column = index % columns();
    const int row = index / columns();
    return {QPoint(kMargin + column * cell.width(), row * kCellHeight - verticalScrollBar()->value()), cell};
}

int GlyphGrid::indexAt(const QPoint &position) const
{
    const int x = position.x() - kMargin;
    const int column = x < 0 ? -1 : x / cellSize().width();
    if (column < 0 || column >= columns())
        return -1;
    const int index = (position.y() + verticalScrollBar()->value()) / kCellHeight * columns() + column;
    return index >= 0 && index < static_cast<int>(m_entries.size()) ? index : -1;
}

void GlyphGrid::layOut()
{
    const int height = rows() * kCellHeight + kMargin;
    verticalScrollBar()->setPageStep(viewport()->height());
    verticalScrollBar()->setRange(0, std::max(0, height - viewport()->height()));
}

void GlyphGrid::scrollTo(int index)
{
    const int top = index / columns() * kCellHeight;
    QScrollBar &bar = *verticalScrollBar();
    if (top < bar.value())
        bar.setValue(top);
    else if (top + kCellHeight > bar.value() + viewport()->height())
        bar.setValue(top + kCellHeight - viewport()->height());
}

void GlyphGrid::wantImages()
{
    const int perRow = columns();
    const int firstRow = verticalScrollBar()->value() / kCellHeight;
    const int page = viewport()->height() / kCellHeight + 2;
    std::vector<std::uint32_t> wanted;
    const auto want = [&](int fromRow, int toRow) {
        const int first = std::max(0, fromRow) * perRow;
        const int last = std::min(std::max(0, toRow) * perRow, static_cast<int>(m_entries.size()));
        for (int i = first; i < last; ++i)
            wanted.push_back(m_entries[static_cast<std::size_t>(i)].glyph);
    };
    want(firstRow, firstRow + page);
    want(firstRow + page, firstRow + 2 * page);
    want(firstRow - page, firstRow);
    m_images.setWanted(std::move(wanted));
}

void GlyphGrid::paintEvent(QPaintEvent *event)
{
    QPainter painter(viewport());
    painter.setRenderHint(QPainter::Antialiasing);
    const int top = event->rect().top() + verticalScrollBar()->value();
    const int bottom = event->rect().bottom() + verticalScrollBar()->value();
    const int last = std::min((bottom / kCellHeight + 1) * columns(), static_cast<int>(m_entries.size()));
    for (int i = top / kCellHeight * columns(); i < last; ++i)
        paintCell(painter, i);
}

void GlyphGrid::paintCell(QPainter &painter, int index) const
{
    const ThemeColors &colors = m_theme.colors();
    const QRect cell = cellRect(index);
    const auto &entry = m_entries[static_cast<std::size_t>(index)];
    if (index == m_current) {
        painter.setPen(hasFocus() ? QPen(colors.accent, 1.5) : QPen(Qt::NoPen));
        painter.setBrush(colors.selection);
        painter.drawRoundedRect(QRectF(cell).adjusted(1, 1, -1, -1), kControlRadius, kControlRadius);
    }
    const QImage *const image = m_images.find(entry.glyph);
    if (image == nullptr)
        return;
    if (!image->isNull()) {
        painter.drawImage(cell.topLeft(), *image);
        return;
    }
    painter.setPen(colors.secondaryText); // a space, or a glyph that cannot be drawn
    painter.setFont(Theme::font(TextSize::small));
    painter.drawText(cell, Qt::AlignCenter, codeText(entry.character));
}

void GlyphGrid::resizeEvent(QResizeEvent *event)
{
    QAbstractScrollArea::resizeEvent(event);
    layOut();
    if (cellSize() != std::exchange(m_lastCellSize, cellSize()))
        Q_EMIT cellSizeChanged();
    wantImages();
}

void GlyphGrid::scrollContentsBy(int, int)
{
    wantImages();
    viewport()->update();
}

// The window has an action of its own for this key.
bool GlyphGrid::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride && static_cast<QKeyEvent *>(event)->matches(QKeySequence::Copy)) {
        event->accept();
        return true;
    }
    return QAbstractScrollArea::event(event);
}

void GlyphGrid::keyPressEvent(QKeyEvent *event)
{
    if (event->matches(QKeySequence::Copy) || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        Q_EMIT copyWanted();
        return;
    }
    const int page = std::max(1, viewport()->height() / kCellHeight) * columns();
    switch (event->key()) {
    case Qt::Key_Left:
        return setCurrentIndex(m_current - 1);
    case Qt::Key_Right:
        return setCurrentIndex(m_current + 1);
    case Qt::Key_Up:
        return setCurrentIndex(m_current < columns() ? m_current : m_current - columns());
    case Qt::Key_Down:
        return setCurrentIndex(m_current + columns());
    case Qt::Key_PageUp:
        return setCurrentIndex(m_current - page);
    case Qt::Key_PageDown:
        return setCurrentIndex(m_current + page);
    case Qt::Key_Home:
        return setCurrentIndex(0);
    case Qt::Key_End:
        return setCurrentIndex(static_cast<int>(m_entries.size()) - 1);
    default:
        QAbstractScrollArea::keyPressEvent(event);
    }
}

void GlyphGrid::mousePressEvent(QMouseEvent *event)
{
    if (const int index = indexAt(event->pos()); index >= 0)
        setCurrentIndex(index);
}

void GlyphGrid::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && indexAt(event->pos()) >= 0)
        Q_EMIT copyWanted();
}

void GlyphGrid::contextMenuEvent(QContextMenuEvent *event)
{
    if (m_current < 0)
        return;
    const bool isByKey = event->reason() == QContextMenuEvent::Keyboard;
    Q_EMIT menuWanted(isByKey ? viewport()->mapToGlobal(cellRect(m_current).center()) : event->globalPos());
}

void GlyphGrid::focusInEvent(QFocusEvent *event)
{
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
}

void GlyphGrid::focusOutEvent(QFocusEvent *event)
{
    QAbstractScrollArea::focusOutEvent(event);
    viewport()->update();
}

bool GlyphGrid::viewportEvent(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QAbstractScrollArea::viewportEvent(event);
    const auto *const help = static_cast<QHelpEvent *>(event);
    const int index = indexAt(help->pos());
    if (index < 0) {
        QToolTip::hideText();
        return true;
    }
    const char32_t character = m_entries[static_cast<std::size_t>(index)].character;
    const QString name = QString::fromStdString(characterName(character));
    QToolTip::showText(help->globalPos(), QStringLiteral("U+") + codeText(character) + u' ' + name.toHtmlEscaped(),
                       viewport(), cellRect(index));
    return true;
}

} // namespace kerlune
