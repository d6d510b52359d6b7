#pragma once

#include "UI/Theme.h"
#include "UI/Toolbar/FilterKind.h"

#include <QAbstractButton>

class QToolButton;

namespace kerlune {

// A filter as a pill: its name, and while it is set its value, an outline in the accent and a small × that unsets it.
//
// Thread: main.
class FilterChip final : public QAbstractButton {
    Q_OBJECT

public:
    FilterChip(FilterKind kind, const Theme &theme, QWidget *parent);

    FilterKind kind() const { return m_kind; }
    void showFilters(const Filters &filters);
    QSize sizeHint() const override;

Q_SIGNALS:
    void unsetWanted();

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    FilterKind m_kind;
    const Theme &m_theme;
    bool m_isSet = false;
    QToolButton *m_unset;
};

} // namespace kerlune
