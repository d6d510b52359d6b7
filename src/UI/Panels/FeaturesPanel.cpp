#include "UI/Panels/FeaturesPanel.h"

#include "Export/CssText.h"
#include "Support/Localization.h"
#include "UI/InterfaceText.h"
#include "UI/Panels/FeatureRow.h"
#include "UI/Panels/FlowLayout.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace kerlune {

FeaturesPanel::FeaturesPanel(Workspace &workspace, QWidget *parent)
    : ControlsPanel(workspace, parent)
{
    setControls(makeContents(), "featuresMessage");
    m_observers.push_back(workspace.features.addNotifier([this] { followWorkspace(); }));
    FeaturesPanel::retranslate();
}

FeaturesPanel::~FeaturesPanel() = default;

QWidget *FeaturesPanel::makeContents()
{
    auto *const contents = new QWidget;
    auto *const column = new QVBoxLayout(contents);
    column->setContentsMargins(kCardPadding, kCardGap, kCardPadding, kCardPadding);
    column->setSpacing(2);
    const auto addGroup = [&](QLabel *&title, QVBoxLayout *&rows) {
        column->addWidget(title = new QLabel(contents));
        title->setFont(Theme::font(TextSize::body, QFont::DemiBold));
        column->addLayout(rows = new QVBoxLayout);
        rows->setSpacing(2);
        column->addSpacing(kCardGap);
    };
    addGroup(m_optionalTitle, m_optionalColumn);
    addGroup(m_defaultTitle, m_defaultColumn);
    auto *const buttons = new QWidget(contents);
    auto *const flow = new FlowLayout(buttons);
    flow->addWidget(m_reset = new QPushButton(buttons));
    flow->addWidget(m_copy = new QPushButton(buttons));
    m_reset->setObjectName(QStringLiteral("resetFeatures"));
    m_copy->setObjectName(QStringLiteral("copyFeatures"));
    connect(m_reset, &QPushButton::clicked, this, [this] { workspace().features = std::vector<FeatureValue>(); });
    connect(m_copy, &QPushButton::clicked, this, &FeaturesPanel::copyCss);
    column->addWidget(buttons);
    column->addStretch(1);
    return contents;
}

void FeaturesPanel::showFace(Change)
{
    m_features.reset();
    m_isUnreadable = false;
    m_rows.clear();
    showWhatIsThere();
    if (face() == nullptr)
        return;
    const auto read = [](const std::shared_ptr<const FontFace> &open) { return readFeatures(*open); };
    readFace(read, [this](std::optional<std::vector<FaceFeature>> features) {
        m_features = std::move(features);
        m_isUnreadable = !m_features;
        makeRows();
        showWhatIsThere();
        followWorkspace();
    });
}

void FeaturesPanel::makeRows()
{
    m_rows.clear();
    if (!m_features)
        return;
    bool hasDefault = false;
    bool hasOptional = false;
    for (const FaceFeature &feature : *m_features) {
        auto row = std::make_unique<FeatureRow>(feature, controls());
        (feature.isOnByDefault ? m_defaultColumn : m_optionalColumn)->addWidget(row.get());
        (feature.isOnByDefault ? hasDefault : hasOptional) = true;
        connect(row.get(), &FeatureRow::valueChanged, this, &FeaturesPanel::takeValues);
        m_rows.push_back(std::move(row));
    }
    m_defaultTitle->setVisible(hasDefault);
    m_optionalTitle->setVisible(hasOptional);
}

void FeaturesPanel::showWhatIsThere()
{
    if (m_features && !m_features->empty())
        showControls();
    else if (m_isUnreadable)
        showMessage(uiText("Le fichier ne peut pas être lu."));
    else
        showMessage(m_features ? uiText("Cette police n’a pas de fonctions OpenType.") : uiText("Lecture…"));
}

std::vector<FeatureValue> FeaturesPanel::values() const
{
    std::vector<FeatureValue> values;
    for (const auto &row : m_rows) {
        const std::uint32_t standard = row->feature().isOnByDefault ? 1 : 0;
        if (row->value() != standard)
            values.push_back({row->feature().tag, row->value()});
    }
    return values;
}

void FeaturesPanel::takeValues()
{
    const QScopedValueRollback following(m_isFollowing, true);
    workspace().features = values();
    m_copy->setEnabled(!workspace().features.value().empty());
}

void FeaturesPanel::followWorkspace()
{
    if (m_isFollowing)
        return;
    const auto &features = workspace().features.value();
    for (const auto &row : m_rows) {
        const auto found = std::find_if(features.begin(), features.end(),
                                        [&](const FeatureValue &value) { return value.feature == row->feature().tag; });
        const std::uint32_t standard = row->feature().isOnByDefault ? 1 : 0;
        row->setValue(found == features.end() ? standard : found->value);
    }
    m_copy->setEnabled(!features.empty());
}

void FeaturesPanel::copyCss()
{
    QGuiApplication::clipboard()->setText(QString::fromStdString(cssFeatureSettings(values())));
    workspace().state().setNotice({localized("CSS copié.")});
}

void FeaturesPanel::retranslate()
{
    m_optionalTitle->setText(uiText("Au choix"));
    m_defaultTitle->setText(uiText("Actives d’office"));
    m_reset->setText(uiText("Réinitialiser"));
    m_copy->setText(uiText("Copier le CSS"));
    for (const auto &row : m_rows)
        row->retranslate();
    showWhatIsThere();
}

} // namespace kerlune
