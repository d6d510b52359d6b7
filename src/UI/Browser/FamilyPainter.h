#pragma once

#include "UI/Browser/BrowserLayout.h"
#include "UI/Browser/FamilyListModel.h"
#include "UI/Workspace.h"

#include <QFont>
#include <QRect>
#include <QString>

#include <span>
#include <vector>

class QPainter;

namespace kerlune {

// What a part of a cell is for.
enum class CellPart { none, preview, name, details, star, sign };

// Paints one family of the grid, the list or the waterfall.
//
// Thread: main.
class FamilyPainter final {
public:
    struct Look {
        bool isSelected = false;
        bool isFocused = false; // the keyboard acts on it
        bool isHovered = false;
        CellPart hoveredPart = CellPart::none;
    };

    // What stands at one of the cell's previews. Without a preview it is still being drawn.
    struct Drawn {
        PreviewPointer preview;
        bool isReduced = false;
    };

    explicit FamilyPainter(const Theme &theme);

    // The painter's origin is the top left corner of the cell.
    void paint(QPainter &painter, const BrowserLayout &layout, const QString &name, const FamilySummary &summary,
               std::span<const Drawn> drawn, const Look &look) const;

    static CellPart partAt(const BrowserLayout &layout, QPoint inCell);
    static bool isNameElided(const BrowserLayout &layout, const QString &name);

private:
    void paintGround(QPainter &painter, const BrowserLayout &layout, const Look &look) const;
    void paintPreview(QPainter &painter, const QRect &rect, const QString &name, const Drawn &drawn) const;
    void paintFailure(QPainter &painter, const QRect &rect, const QString &name) const;
    void paintSizes(QPainter &painter, const BrowserLayout &layout, std::span<const Drawn> drawn) const;
    void paintDetails(QPainter &painter, const BrowserLayout &layout, const FamilySummary &summary,
                      std::span<const Drawn> drawn) const;
    void paintButtons(QPainter &painter, const BrowserLayout &layout, const FamilySummary &summary,
                      const Look &look) const;
    void paintIcon(QPainter &painter, const QRect &rect, const char *icon, int size, const QColor &color) const;

    const Theme &m_theme;
    QFont m_nameFont;
    QFont m_detailsFont;
};

} // namespace kerlune
