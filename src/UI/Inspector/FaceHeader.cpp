#include "UI/Inspector/FaceHeader.h"

#include "UI/ActivationSign.h"
#include "UI/Inspector/ElidedName.h"
#include "UI/InterfaceText.h"
#include "UI/Preview/PreviewLabel.h"

#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace kerlune {

namespace {

constexpr int kPreviewHeight = 112;
constexpr double kPreviewSize = 40;
constexpr int kSignSize = 16;

} // namespace

FaceHeader::FaceHeader(Workspace &workspace, QWidget *parent)
    : QWidget(parent)
    , m_workspace(workspace)
    , m_preview(new PreviewLabel(workspace, this))
    , m_name(new ElidedName(this))
    , m_star(new QToolButton(this))
    , m_styles(new QComboBox(this))
    , m_sign(new QLabel(this))
    , m_state(new QLabel(this))
    , m_toggle(new QPushButton(this))
    , m_styleCount(new QLabel(this))
    , m_variableBadge(new QLabel(this))
    , m_colorBadge(new QLabel(this))
{
    m_preview->setObjectName(QStringLiteral("inspectorPreview"));
    m_preview->setFixedHeight(kPreviewHeight);
    m_name->setObjectName(QStringLiteral("familyName"));
    m_name->setFont(Theme::font(TextSize::large, QFont::DemiBold));
    m_star->setObjectName(QStringLiteral("favorite"));
    m_star->setCheckable(true);
    m_star->setIconSize({18, 18});
    m_styles->setObjectName(QStringLiteral("styleChooser"));
    m_styles->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_styles->setMinimumContentsLength(8);
    m_state->setObjectName(QStringLiteral("activationState"));
    m_toggle->setObjectName(QStringLiteral("toggleActivation"));
    m_styleCount->setProperty("secondary", true);
    m_variableBadge->setProperty("badge", true);
    layOut();
    follow();
    retranslate();
}

void FaceHeader::layOut()
{
    auto *const column = new QVBoxLayout(this);
    column->setContentsMargins(kCardPadding, kCardGap, kCardPadding, kCardGap);
    column->setSpacing(kGridStep);
    column->addWidget(m_preview);
    auto *const nameRow = new QHBoxLayout;
    nameRow->setSpacing(kGridStep);
    nameRow->addWidget(m_name, 1);
    nameRow->addWidget(m_star, 0, Qt::AlignTop);
    column->addLayout(nameRow);
    auto *const badges = new QHBoxLayout;
    badges->setSpacing(kGridStep);
    badges->addWidget(m_styleCount);
    badges->addWidget(m_variableBadge);
    badges->addWidget(m_colorBadge);
    badges->addStretch(1);
    column->addLayout(badges);
    column->addWidget(m_styles);
    auto *const activation = new QHBoxLayout;
    activation->setSpacing(6);
    activation->addWidget(m_sign);
    activation->addWidget(m_state);
    activation->addStretch(1);
    activation->addWidget(m_toggle);
    column->addLayout(activation);
}

void FaceHeader::follow()
{
    AppState &state = m_workspace.state();
    const auto drawAgain = [this] { showPreview(); };
    m_observers.push_back(state.previewText.addNotifier(drawAgain));
    m_observers.push_back(m_workspace.features.addNotifier(drawAgain));
    m_observers.push_back(m_workspace.coordinates.addNotifier(drawAgain));
    connect(&m_workspace.theme(), &Theme::changed, this, [this] {
        showActivation();
        showFavorite();
        showBadges();
    });
    connect(m_star, &QToolButton::clicked, this, [this](bool isChecked) {
        if (m_family != nullptr)
            m_workspace.commands().setFavorites({m_family->name}, isChecked);
    });
    connect(m_toggle, &QPushButton::clicked, this, &FaceHeader::toggleActivation);
    connect(m_styles, &QComboBox::activated, this, [this](int index) {
        if (index >= 0 && static_cast<std::size_t>(index) < m_listed.size())
            m_workspace.state().selectedFace = m_listed[static_cast<std::size_t>(index)]->postScriptName;
    });
}

void FaceHeader::setFace(FontFamilyPointer family, FontRecordPointer face)
{
    const bool isOtherFamily = family != m_family;
    if (!isOtherFamily && face == m_face)
        return;
    m_family = std::move(family);
    m_face = std::move(face);
    if (isOtherFamily)
        listStyles();
    const auto listed = std::find(m_listed.begin(), m_listed.end(), m_face);
    m_styles->setCurrentIndex(listed == m_listed.end() ? -1 : static_cast<int>(listed - m_listed.begin()));
    m_name->setName(m_family == nullptr ? QString() : shown(m_family->name));
    showBadges();
    showState();
    showPreview();
}

void FaceHeader::listStyles()
{
    m_listed = m_family == nullptr ? std::vector<FontRecordPointer>() : m_family->sortedFaces();
    const QSignalBlocker silent(m_styles);
    m_styles->clear();
    QStringList names;
    names.reserve(static_cast<qsizetype>(m_listed.size()));
    for (const FontRecordPointer &face : m_listed)
        names.push_back(shown(face->style));
    m_styles->addItems(names);
    m_styles->setEnabled(m_listed.size() > 1);
}

void FaceHeader::showPreview()
{
    m_preview->setContent({.face = m_face,
                           .text = m_workspace.previewText(),
                           .emSize = kPreviewSize,
                           .lines = PreviewRequest::Lines::Many,
                           .features = m_workspace.features.value(),
                           .coordinates = m_workspace.coordinates.value()});
}

void FaceHeader::showState()
{
    showActivation();
    showFavorite();
}

void FaceHeader::showActivation()
{
    if (m_family == nullptr)
        return;
    const ActivationState state = m_workspace.state().activationState(*m_family);
    const ThemeColors &colors = m_workspace.theme().colors();
    const ActivationSign sign = activationSign(state);
    m_sign->setPixmap(m_workspace.theme().iconPixmap(
        sign.icon, kSignSize, sign.isAccented ? colors.accent : colors.secondaryText, devicePixelRatioF()));
    const bool isSystem = state == ActivationState::system;
    m_state->setText(isSystem ? uiText("Active") : activationWord(state)); // whose font it is stands on the button
    m_toggle->setEnabled(!isSystem);
    if (isSystem)
        m_toggle->setText(uiText("Police système"));
    else
        m_toggle->setText(state == ActivationState::active ? uiText("Désactiver") : uiText("Activer"));
}

void FaceHeader::showFavorite()
{
    const bool isFavorite = m_family != nullptr && m_workspace.state().favorites().contains(m_family->name);
    m_star->setChecked(isFavorite);
    m_star->setIcon(m_workspace.theme().icon(isFavorite ? "star-filled" : "star"));
    const QString text = isFavorite ? uiText("Retirer des favoris") : uiText("Ajouter aux favoris");
    m_star->setToolTip(text);
    m_star->setAccessibleName(text);
}

void FaceHeader::showBadges()
{
    if (m_family == nullptr)
        return;
    m_styleCount->setText(uiCount("%1 style", "%1 styles", static_cast<std::int64_t>(m_family->faces.size())));
    m_variableBadge->setVisible(m_family->isVariable());
    m_colorBadge->setVisible(m_family->isColor());
    m_colorBadge->setPixmap(m_workspace.theme().iconPixmap(
        "color", kSignSize, m_workspace.theme().colors().secondaryText, devicePixelRatioF()));
}

void FaceHeader::toggleActivation()
{
    if (m_family == nullptr)
        return;
    const bool isActive = m_workspace.state().activationState(*m_family) == ActivationState::active;
    m_workspace.commands().setActive({m_family->name}, !isActive);
}

void FaceHeader::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void FaceHeader::retranslate()
{
    m_styles->setAccessibleName(uiText("Style"));
    m_variableBadge->setText(uiText("VAR"));
    m_variableBadge->setToolTip(uiText("Police variable"));
    m_variableBadge->setAccessibleName(uiText("Police variable"));
    m_colorBadge->setToolTip(uiText("Police en couleurs"));
    m_colorBadge->setAccessibleName(uiText("Police en couleurs"));
    showBadges();
    showState();
}

} // namespace kerlune
