#pragma once

#include "UI/Workspace.h"

#include <QWidget>

#include <vector>

namespace kerlune {

// The lines of the comparison over each other on one baseline: the current one in full, the others paler and paler.
//
// Thread: main.
class ComparisonOverlay final : public QWidget {
    Q_OBJECT

public:
    explicit ComparisonOverlay(const Theme &theme, QWidget *parent = nullptr);

    void setLines(std::vector<PreviewPointer> lines, std::size_t current, int left); // null while they are drawn

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void paintLine(QPainter &painter, const Preview &line, double baseline, double opacity) const;

    const Theme &m_theme;
    std::vector<PreviewPointer> m_lines;
    std::size_t m_current = 0;
    int m_left = 0;
};

} // namespace kerlune
