#include "UI/Panels/AxisRow.h"

#include "UI/InterfaceText.h"
#include "UI/Theme.h"

#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QSlider>

#include <algorithm>
#include <cmath>

namespace kerlune {

namespace {

constexpr int kSteps = 1000;

int decimalsFor(const VariationAxis &axis)
{
    const double range = axis.maximum - axis.minimum;
    if (range >= 50)
        return 0;
    return range >= 5 ? 1 : 2;
}

} // namespace

AxisRow::AxisRow(const VariationAxis &axis, QWidget *parent)
    : QWidget(parent)
    , m_axis(axis)
    , m_value(axis.standard)
    , m_label(new QLabel(this))
    , m_slider(new QSlider(Qt::Horizontal, this))
    , m_field(new QDoubleSpinBox(this))
{
    const QString tag = QString::fromStdString(tagText(axis.tag));
    m_label->setTextFormat(Qt::PlainText);
    m_label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_slider->setObjectName(QStringLiteral("slider-") + tag);
    m_slider->setRange(0, kSteps);
    m_slider->setSingleStep(kSteps / 100);
    m_slider->setPageStep(kSteps / 10);
    m_field->setObjectName(QStringLiteral("field-") + tag);
    m_field->setDecimals(2);
    m_field->setRange(axis.minimum, axis.maximum);
    m_field->setSingleStep(std::pow(10, -decimalsFor(axis)));
    m_field->setButtonSymbols(QAbstractSpinBox::NoButtons);
    m_field->setFixedWidth(76);
    m_field->setKeyboardTracking(false); // half a number is no place
    auto *const grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setVerticalSpacing(2);
    grid->addWidget(m_label, 0, 0, 1, 2);
    grid->addWidget(m_slider, 1, 0);
    grid->addWidget(m_field, 1, 1);
    connect(m_slider, &QSlider::valueChanged, this, &AxisRow::takeSlider);
    connect(m_field, &QDoubleSpinBox::valueChanged, this, &AxisRow::takeField);
    setValue(axis.standard);
    retranslate();
}

double AxisRow::value() const
{
    return m_value;
}

void AxisRow::setValue(double value)
{
    m_value = std::clamp(value, m_axis.minimum, m_axis.maximum);
    const QSignalBlocker silentSlider(m_slider);
    const QSignalBlocker silentField(m_field);
    m_slider->setValue(stepOf(m_value));
    m_field->setValue(m_value);
}

int AxisRow::stepOf(double value) const
{
    const double range = m_axis.maximum - m_axis.minimum;
    return range > 0 ? static_cast<int>(std::lround((value - m_axis.minimum) / range * kSteps)) : 0;
}

double AxisRow::valueOf(int step) const
{
    const double exact = m_axis.minimum + (m_axis.maximum - m_axis.minimum) * step / kSteps;
    const double scale = std::pow(10, decimalsFor(m_axis));
    return std::clamp(std::round(exact * scale) / scale, m_axis.minimum, m_axis.maximum);
}

void AxisRow::takeSlider(int step)
{
    m_value = valueOf(step);
    const QSignalBlocker silent(m_field);
    m_field->setValue(m_value);
    Q_EMIT valueChanged();
}

void AxisRow::takeField(double value)
{
    m_value = value;
    const QSignalBlocker silent(m_slider);
    m_slider->setValue(stepOf(value));
    Q_EMIT valueChanged();
}

void AxisRow::retranslate()
{
    const QString name = shown(axisLabel(m_axis));
    m_label->setText(name + QStringLiteral("  ") + QString::fromStdString(tagText(m_axis.tag)));
    m_label->setToolTip(m_label->text().toHtmlEscaped());
    m_slider->setAccessibleName(name);
    m_field->setAccessibleName(uiText("%1, valeur exacte", {name}));
}

} // namespace kerlune
