#include "UI/Panels/AxesPanel.h"

#include "Export/CssText.h"
#include "Support/Localization.h"
#include "UI/InterfaceText.h"
#include "UI/Panels/AxisRow.h"
#include "UI/Panels/FlowLayout.h"

#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace kerlune {

namespace {

// What is set for the axis; nothing when it is not named.
std::optional<double> valueOf(const std::vector<AxisValue> &coordinates, Tag axis)
{
    const auto found = std::find_if(coordinates.begin(), coordinates.end(),
                                    [axis](const AxisValue &coordinate) { return coordinate.axis == axis; });
    return found == coordinates.end() ? std::nullopt : std::optional(found->value);
}

} // namespace

AxesPanel::AxesPanel(Workspace &workspace, QWidget *parent)
    : ControlsPanel(workspace, parent)
{
    setControls(makeContents(), "axesMessage");
    m_observers.push_back(workspace.coordinates.addNotifier([this] { followWorkspace(); }));
    AxesPanel::retranslate();
}

AxesPanel::~AxesPanel() = default;

QWidget *AxesPanel::makeContents()
{
    auto *const contents = new QWidget;
    auto *const column = new QVBoxLayout(contents);
    column->setContentsMargins(kCardPadding, kCardGap, kCardPadding, kCardPadding);
    column->setSpacing(kCardGap);
    column->addWidget(m_instanceLabel = new QLabel(contents));
    column->addWidget(m_instances = new QComboBox(contents));
    m_instanceLabel->setProperty("secondary", true);
    m_instances->setObjectName(QStringLiteral("instances"));
    m_instances->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    connect(m_instances, &QComboBox::activated, this, &AxesPanel::chooseInstance);
    column->addLayout(m_rowColumn = new QVBoxLayout);
    m_rowColumn->setSpacing(kCardGap);

    column->addWidget(m_hiddenToggle = new QToolButton(contents));
    m_hiddenToggle->setCheckable(true);
    m_hiddenToggle->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_hiddenToggle->setIcon(workspace().theme().icon("chevron-down"));
    column->addWidget(m_hiddenPart = new QWidget(contents));
    m_hiddenColumn = new QVBoxLayout(m_hiddenPart);
    m_hiddenColumn->setContentsMargins(0, 0, 0, 0);
    m_hiddenColumn->setSpacing(kCardGap);
    m_hiddenPart->hide();
    connect(m_hiddenToggle, &QToolButton::toggled, m_hiddenPart, &QWidget::setVisible);

    auto *const buttons = new QWidget(contents);
    auto *const flow = new FlowLayout(buttons);
    flow->addWidget(m_reset = new QPushButton(buttons));
    flow->addWidget(m_copy = new QPushButton(buttons));
    m_reset->setObjectName(QStringLiteral("resetAxes"));
    m_copy->setObjectName(QStringLiteral("copyAxes"));
    connect(m_reset, &QPushButton::clicked, this, [this] { workspace().coordinates = std::vector<AxisValue>(); });
    connect(m_copy, &QPushButton::clicked, this, &AxesPanel::copyCss);
    column->addWidget(buttons);
    column->addStretch(1);
    return contents;
}

void AxesPanel::showFace(Change)
{
    m_space.reset();
    m_isUnreadable = false;
    m_rows.clear();
    showSpace();
    if (face() == nullptr || !face()->isVariable)
        return;
    const auto read = [](const std::shared_ptr<const FontFace> &open) {
        Space space{readAxes(*open), open->coordinates()};
        if (space.own.empty()) {
            for (const VariationAxis &axis : space.axes.axes)
                space.own.push_back({axis.tag, axis.standard});
        }
        return space;
    };
    readFace(read, [this](std::optional<Space> space) {
        m_space = std::move(space);
        m_isUnreadable = !m_space;
        makeRows();
        showSpace();
        followWorkspace();
    });
}

void AxesPanel::makeRows()
{
    m_rows.clear();
    if (!m_space)
        return;
    for (const VariationAxis &axis : m_space->axes.axes) {
        auto row = std::make_unique<AxisRow>(axis, axis.isHidden ? m_hiddenPart : controls());
        (axis.isHidden ? m_hiddenColumn : m_rowColumn)->addWidget(row.get());
        connect(row.get(), &AxisRow::valueChanged, this, &AxesPanel::takeValues);
        m_rows.push_back(std::move(row));
    }
}

void AxesPanel::showSpace()
{
    const bool hasAxes = m_space && !m_space->axes.axes.empty();
    if (hasAxes)
        showControls();
    else if (m_isUnreadable)
        showMessage(uiText("Le fichier ne peut pas être lu."));
    else if (!m_space && face() != nullptr && face()->isVariable)
        showMessage(uiText("Lecture…"));
    else
        showMessage(uiText("Cette police n’a pas d’axes de variation."));
    if (!hasAxes)
        return;
    const auto &axes = m_space->axes.axes;
    const bool hasHidden = std::any_of(axes.begin(), axes.end(), [](const auto &axis) { return axis.isHidden; });
    m_hiddenToggle->setVisible(hasHidden);
    m_hiddenPart->setVisible(hasHidden && m_hiddenToggle->isChecked());
    const QSignalBlocker silent(m_instances);
    m_instances->clear();
    m_instances->addItem(uiText("Réglage libre"));
    for (const VariationInstance &instance : m_space->axes.instances)
        m_instances->addItem(instance.name.empty() ? uiText("Sans nom") : shown(instance.name));
    m_instances->setVisible(!m_space->axes.instances.empty());
    m_instanceLabel->setVisible(m_instances->isVisibleTo(controls()));
    showInstance();
}

void AxesPanel::chooseInstance(int index)
{
    if (m_space && index > 0 && static_cast<std::size_t>(index) <= m_space->axes.instances.size())
        place(m_space->axes.instances[static_cast<std::size_t>(index) - 1].coordinates);
}

std::vector<AxisValue> AxesPanel::values() const
{
    std::vector<AxisValue> values;
    for (std::size_t i = 0; i < m_rows.size(); ++i)
        values.push_back({m_space->axes.axes[i].tag, m_rows[i]->value()});
    return values;
}

// At the face's own place nothing is set: its previews stay those that there are.
void AxesPanel::place(const std::vector<AxisValue> &coordinates)
{
    workspace().coordinates = coordinates == m_space->own ? std::vector<AxisValue>() : coordinates;
}

void AxesPanel::takeValues()
{
    const QScopedValueRollback following(m_isFollowing, true);
    place(values());
    showInstance();
}

void AxesPanel::followWorkspace()
{
    if (m_isFollowing || !m_space)
        return;
    const auto &coordinates = workspace().coordinates.value();
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        const VariationAxis &axis = m_space->axes.axes[i];
        const double own = valueOf(m_space->own, axis.tag).value_or(axis.standard);
        m_rows[i]->setValue(valueOf(coordinates, axis.tag).value_or(own));
    }
    showInstance();
}

void AxesPanel::showInstance()
{
    const auto &instances = m_space->axes.instances;
    const auto current = values();
    const auto found = std::find_if(instances.begin(), instances.end(),
                                    [&](const auto &instance) { return instance.coordinates == current; });
    m_instances->setCurrentIndex(found == instances.end() ? 0 : static_cast<int>(found - instances.begin()) + 1);
}

void AxesPanel::copyCss()
{
    QGuiApplication::clipboard()->setText(QString::fromStdString(cssVariationSettings(values())));
    workspace().state().setNotice({localized("CSS copié.")});
}

void AxesPanel::retranslate()
{
    m_instanceLabel->setText(uiText("Instance"));
    m_instances->setAccessibleName(uiText("Instance"));
    m_hiddenToggle->setText(uiText("Axes masqués"));
    m_reset->setText(uiText("Réinitialiser"));
    m_copy->setText(uiText("Copier le CSS"));
    for (const auto &row : m_rows)
        row->retranslate();
    showSpace();
}

} // namespace kerlune
