#pragma once

#include "UI/Workspace.h"

#include <QSlider>
#include <QWidget>

#include <vector>

class QLabel;
class QSpinBox;

namespace kerlune {

// A slider from 8 to 200 on which equal ways are equal ratios. The arrow keys and the wheel step by at least 1.
//
// Thread: main.
class SizeSlider final : public QSlider {
    Q_OBJECT

public:
    static constexpr double kLeast = 8;
    static constexpr double kMost = 200;

    explicit SizeSlider(QWidget *parent = nullptr);

    void showSize(double size); // a size beyond the ends stands at the end; nothing is told

Q_SIGNALS:
    void sizeChosen(double size);
    void resetWanted();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private:
    void step(double count);

    double m_size = kLeast;
};

// The size of the previews: a slider between a small and a large A, and the number itself.
//
// Thread: main.
class SizeControl final : public QWidget {
    Q_OBJECT

public:
    explicit SizeControl(Workspace &workspace, QWidget *parent = nullptr);

    void setNumberVisible(bool isVisible);

protected:
    void changeEvent(QEvent *event) override;

private:
    void retranslate();
    void showSize();
    void showIcons();

    Workspace &m_workspace;
    QLabel *m_small;
    SizeSlider *m_slider;
    QLabel *m_large;
    QSpinBox *m_number;
    std::vector<QPropertyNotifier> m_observers;
};

} // namespace kerlune
