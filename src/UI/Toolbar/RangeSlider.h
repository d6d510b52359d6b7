#pragma once

#include "State/Filters.h"
#include "UI/Theme.h"

#include <QWidget>

#include <array>

namespace kerlune {

class RangeHandle;

// Two handles on one track, for a range of weights from 100 to 900 in steps of 100. Neither passes the other one. Each
// handle is a tab stop; the arrow keys, Home and End move it.
//
// Thread: main.
class RangeSlider final : public QWidget {
    Q_OBJECT

public:
    explicit RangeSlider(const Theme &theme, QWidget *parent = nullptr);

    const WeightRange &range() const { return m_range; }
    void setRange(const WeightRange &range); // tells nothing

    QSize sizeHint() const override { return {260, 32}; }

Q_SIGNALS:
    void rangeChosen(const kerlune::WeightRange &range);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override; // the nearer handle comes
    void changeEvent(QEvent *event) override;

private:
    friend RangeHandle;

    enum class End { lower, upper };

    void retranslate();
    void place();
    void moveHandle(End end, int weight);
    int weight(End end) const { return end == End::lower ? m_range.lower : m_range.upper; }
    int xOf(int weight) const;
    int weightAt(int x) const;

    const Theme &m_theme;
    WeightRange m_range;
    std::array<RangeHandle *, 2> m_handles;
};

} // namespace kerlune
