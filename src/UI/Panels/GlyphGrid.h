#pragma once

#include "Platform/CharacterMap.h"
#include "UI/Theme.h"

#include <QAbstractScrollArea>

#include <memory>
#include <vector>

namespace kerlune {

class GlyphImages;

// Characters in rows of cells, each drawn by its glyph. One cell is current: the arrow keys, Home, End and the page
// keys move it. Only the cells in sight cost anything.
//
// Thread: main.
class GlyphGrid final : public QAbstractScrollArea {
    Q_OBJECT

public:
    using Entries = std::vector<CharacterMap::Entry>;

    GlyphGrid(const Theme &theme, GlyphImages &images, QWidget *parent = nullptr);

    void setEntries(Entries entries); // the current character stays current where it is one of them
    const Entries &entries() const { return m_entries; }
    const CharacterMap::Entry *current() const; // null when there is none
    void setCurrentIndex(int index);
    QRect cellRect(int index) const; // on the viewport
    QSize cellSize() const;

    void wantImages(); // of the cells in sight, then a page below and above

Q_SIGNALS:
    void currentChanged();
    void copyWanted();
    void menuWanted(const QPoint &globalPosition);
    void cellSizeChanged();

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    bool viewportEvent(QEvent *event) override;

private:
    int columns() const;
    int rows() const;
    int indexAt(const QPoint &position) const; // −1 outside
    void layOut();
    void scrollTo(int index);
    void paintCell(QPainter &painter, int index) const;

    const Theme &m_theme;
    GlyphImages &m_images;
    Entries m_entries;
    int m_current = -1;
    QSize m_lastCellSize;
};

} // namespace kerlune
