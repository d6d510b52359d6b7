#pragma once

#include "Platform/FaceAxes.h"

#include <QWidget>

class QDoubleSpinBox;
class QLabel;
class QSlider;

namespace kerlune {

// One axis: a slider, and a field for the exact value.
//
// Thread: main.
class AxisRow final : public QWidget {
    Q_OBJECT

public:
    explicit AxisRow(const VariationAxis &axis, QWidget *parent = nullptr);

    double value() const;        // exact: what was set, even where the field shows fewer digits
    void setValue(double value); // without valueChanged()
    void retranslate();

Q_SIGNALS:
    void valueChanged(); // by the user

private:
    int stepOf(double value) const;
    double valueOf(int step) const;
    void takeSlider(int step);
    void takeField(double value);

    VariationAxis m_axis;
    double m_value;
    QLabel *m_label;
    QSlider *m_slider;
    QDoubleSpinBox *m_field;
};

} // namespace kerlune
