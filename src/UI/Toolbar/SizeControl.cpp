#include "UI/Toolbar/SizeControl.h"

#include "UI/InterfaceText.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QStyle>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace kerlune {

namespace {

constexpr int kPositions = 1'000;

double sizeAt(int position)
{
    const double ratio = SizeSlider::kMost / SizeSlider::kLeast;
    return std::round(SizeSlider::kLeast * std::pow(ratio, static_cast<double>(position) / kPositions));
}

int positionOf(double size)
{
    const double ratio = SizeSlider::kMost / SizeSlider::kLeast;
    const double clamped = std::clamp(size, SizeSlider::kLeast, SizeSlider::kMost);
    return static_cast<int>(std::lround(std::log(clamped / SizeSlider::kLeast) / std::log(ratio) * kPositions));
}

} // namespace

SizeSlider::SizeSlider(QWidget *parent)
    : QSlider(Qt::Horizontal, parent)
{
    setRange(0, kPositions);
    setFocusPolicy(Qt::StrongFocus);
    connect(this, &QSlider::valueChanged, this, [this](int position) {
        m_size = sizeAt(position);
        Q_EMIT sizeChosen(m_size);
    });
}

void SizeSlider::showSize(double size)
{
    const QSignalBlocker blocker(this);
    m_size = size;
    setValue(positionOf(size));
}

void SizeSlider::step(double count)
{
    const double stride = std::max(1.0, std::round(m_size / 20));
    const double size = std::clamp(m_size + count * stride, kLeast, kMost);
    showSize(size);
    Q_EMIT sizeChosen(size);
}

void SizeSlider::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Down:
    case Qt::Key_Minus:
        return step(-1);
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Plus:
        return step(1);
    case Qt::Key_PageDown:
        return step(-5);
    case Qt::Key_PageUp:
        return step(5);
    default:
        QSlider::keyPressEvent(event);
    }
}

void SizeSlider::wheelEvent(QWheelEvent *event)
{
    if (event->angleDelta().y() != 0)
        step(event->angleDelta().y() > 0 ? 1 : -1);
    event->accept();
}

// The handle comes to where the slider is pressed, and can be dragged on from there.
void SizeSlider::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton) {
        const int handle = style()->pixelMetric(QStyle::PM_SliderLength, nullptr, this);
        setValue(QStyle::sliderValueFromPosition(minimum(), maximum(), event->position().toPoint().x() - handle / 2,
                                                 width() - handle));
    }
    QSlider::mousePressEvent(event);
}

void SizeSlider::mouseDoubleClickEvent(QMouseEvent *)
{
    setSliderDown(false);
    Q_EMIT resetWanted();
}

SizeControl::SizeControl(Workspace &workspace, QWidget *parent)
    : QWidget(parent)
    , m_workspace(workspace)
    , m_small(new QLabel(this))
    , m_slider(new SizeSlider(this))
    , m_large(new QLabel(this))
    , m_number(new QSpinBox(this))
{
    m_slider->setObjectName(QStringLiteral("previewSizeSlider"));
    m_slider->setMinimumHeight(24); // the whole handle, which the groove alone does not ask for
    m_slider->setMinimumWidth(72);
    m_slider->setMaximumWidth(160);
    m_number->setObjectName(QStringLiteral("previewSize"));
    m_number->setRange(static_cast<int>(AppState::kLeastPreviewSize), static_cast<int>(AppState::kMostPreviewSize));
    m_number->setButtonSymbols(QAbstractSpinBox::NoButtons);
    m_number->setKeyboardTracking(false);
    m_number->setAlignment(Qt::AlignRight);
    m_number->setFixedWidth(52);

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    layout->addWidget(m_small);
    layout->addWidget(m_slider, 1);
    layout->addWidget(m_large);
    layout->addWidget(m_number);

    AppState &state = workspace.state();
    connect(m_slider, &SizeSlider::sizeChosen, this, [&state](double size) { state.previewSize = size; });
    connect(m_slider, &SizeSlider::resetWanted, this, [&state] { state.previewSize = AppState::kDefaultPreviewSize; });
    connect(m_number, &QSpinBox::valueChanged, this, [&state](int size) { state.previewSize = size; });
    connect(&workspace.theme(), &Theme::changed, this, &SizeControl::showIcons);
    m_observers.push_back(state.previewSize.addNotifier([this] { showSize(); }));
    retranslate();
    showIcons();
    showSize();
}

void SizeControl::setNumberVisible(bool isVisible)
{
    m_number->setVisible(isVisible);
}

void SizeControl::showSize()
{
    const double size = m_workspace.state().previewSize.value();
    m_slider->showSize(size);
    const QSignalBlocker blocker(m_number);
    m_number->setValue(static_cast<int>(std::lround(size)));
}

void SizeControl::showIcons()
{
    const Theme &theme = m_workspace.theme();
    const QColor &color = theme.colors().secondaryText;
    m_small->setPixmap(theme.iconPixmap("text-small", 16, color, devicePixelRatioF()));
    m_large->setPixmap(theme.iconPixmap("text-large", 16, color, devicePixelRatioF()));
}

void SizeControl::retranslate()
{
    m_slider->setAccessibleName(uiText("Taille de l’aperçu"));
    m_slider->setToolTip(uiText("Taille de l’aperçu. Double clic : 34."));
    m_number->setAccessibleName(uiText("Taille de l’aperçu en pixels"));
    m_number->setToolTip(uiText("Taille de l’aperçu en pixels"));
}

void SizeControl::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

} // namespace kerlune
