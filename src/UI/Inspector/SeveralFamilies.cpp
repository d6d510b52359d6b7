#include "UI/Inspector/SeveralFamilies.h"

#include "UI/InterfaceText.h"

#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace kerlune {

namespace {
constexpr std::size_t kMostNamed = 12;
}

SeveralFamilies::SeveralFamilies(Workspace &workspace, QWidget *parent)
    : QWidget(parent)
    , m_workspace(workspace)
    , m_count(new QLabel(this))
    , m_names(new QLabel(this))
{
    auto *const column = new QVBoxLayout(this);
    column->setContentsMargins(kCardPadding, 3 * kGridStep, kCardPadding, kCardPadding);
    column->setSpacing(kGridStep);
    m_count->setObjectName(QStringLiteral("selectionCount"));
    m_count->setFont(Theme::font(TextSize::large, QFont::DemiBold));
    m_count->setWordWrap(true);
    column->addWidget(m_count);
    m_names->setTextFormat(Qt::PlainText);
    m_names->setWordWrap(true);
    m_names->setProperty("secondary", true);
    m_names->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Minimum);
    column->addWidget(m_names);
    column->addSpacing(kGridStep);
    m_activate = addButton("activateAll", "active");
    m_deactivate = addButton("deactivateAll", "inactive");
    m_favorites = addButton("favoriteAll", "star");
    m_tag = addButton("tagAll", "tag");
    m_compare = addButton("compareAll", "compare");
    column->addStretch(1);

    connect(m_activate, &QPushButton::clicked, this,
            [this] { m_workspace.commands().setActive(m_workspace.selectedFamilies.value(), true); });
    connect(m_deactivate, &QPushButton::clicked, this,
            [this] { m_workspace.commands().setActive(m_workspace.selectedFamilies.value(), false); });
    connect(m_favorites, &QPushButton::clicked, this,
            [this] { m_workspace.commands().setFavorites(m_workspace.selectedFamilies.value(), true); });
    connect(m_tag, &QPushButton::clicked, this,
            [this] { m_workspace.state().tagPromptFamilies = m_workspace.selectedFamilies.value(); });
    connect(m_compare, &QPushButton::clicked, this,
            [this] { m_workspace.compare(m_workspace.selectedFamilies.value()); });
    retranslate();
}

QPushButton *SeveralFamilies::addButton(const char *objectName, const char *icon)
{
    auto *const button = new QPushButton(this);
    button->setObjectName(QLatin1String(objectName));
    button->setIcon(m_workspace.theme().icon(icon));
    layout()->addWidget(button);
    return button;
}

void SeveralFamilies::showSelection()
{
    const auto &families = m_workspace.selectedFamilies.value();
    m_count->setText(
        uiCount("%1 famille sélectionnée", "%1 familles sélectionnées", static_cast<std::int64_t>(families.size())));
    QStringList names;
    for (std::size_t i = 0; i < std::min(families.size(), kMostNamed); ++i)
        names.push_back(shown(families[i]));
    QString text = names.join(QStringLiteral(", "));
    if (families.size() > kMostNamed)
        text += QStringLiteral("…");
    m_names->setText(text);
}

void SeveralFamilies::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void SeveralFamilies::retranslate()
{
    m_activate->setText(uiText("Activer"));
    m_deactivate->setText(uiText("Désactiver"));
    m_favorites->setText(uiText("Ajouter aux favoris"));
    m_tag->setText(uiText("Tag…"));
    m_compare->setText(uiText("Comparer"));
    showSelection();
}

} // namespace kerlune
