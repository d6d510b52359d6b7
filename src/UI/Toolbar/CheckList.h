#pragma once

#include "UI/Theme.h"

#include <QTreeWidget>

#include <cstdint>

namespace kerlune {

// Lines to be ticked, each with a number at its right, below heads where there are any. A click anywhere on a line
// ticks it, and so do Space and Enter.
//
// Thread: main.
class CheckList final : public QTreeWidget {
    Q_OBJECT

public:
    explicit CheckList(const Theme &theme, QWidget *parent = nullptr);

    QTreeWidgetItem *addHead(const QString &text);
    QTreeWidgetItem *addLine(const QString &text, std::int64_t count, bool isChecked, QTreeWidgetItem *head = nullptr);
    void fitHeight(int most); // as high as its lines

Q_SIGNALS:
    void ticked(QTreeWidgetItem *item, bool on);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void toggle(QTreeWidgetItem *item);

    QTreeWidgetItem *m_pressed = nullptr;
    Qt::CheckState m_stateWhenPressed = Qt::Unchecked;
};

} // namespace kerlune
