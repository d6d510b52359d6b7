#include "UI/Inspector/PanelTabs.h"

#include "Support/Localization.h"
#include "UI/InterfaceText.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QToolButton>

#include <array>

namespace kerlune {

namespace {

struct Tab {
    const char *icon;
    const char *name;
    const char *objectName;
};

// In the order of Workspace::Panel.
constexpr std::array<Tab, 6> kTabs{{{"info", marked("Informations"), "informationTab"},
                                    {"styles", marked("Styles"), "stylesTab"},
                                    {"axes", marked("Axes"), "axesTab"},
                                    {"features", marked("OpenType"), "featuresTab"},
                                    {"glyphs", marked("Glyphes"), "glyphsTab"},
                                    {"similar", marked("Similaires"), "similarTab"}}};

} // namespace

PanelTabs::PanelTabs(const Theme &theme, QWidget *parent)
    : QWidget(parent)
    , m_group(new QButtonGroup(this))
{
    auto *const row = new QHBoxLayout(this);
    row->setContentsMargins(kCardGap, 6, kCardGap, 6);
    row->setSpacing(2);
    for (std::size_t i = 0; i < kTabs.size(); ++i) {
        auto *const button = new QToolButton(this);
        button->setObjectName(QLatin1String(kTabs.at(i).objectName));
        button->setCheckable(true);
        button->setIcon(theme.icon(kTabs.at(i).icon));
        button->setIconSize({18, 18});
        row->addWidget(button);
        m_group->addButton(button, static_cast<int>(i));
        m_buttons.push_back(button);
    }
    row->addStretch(1);
    connect(m_group, &QButtonGroup::idClicked, this, [this](int id) { setPanel(static_cast<Workspace::Panel>(id)); });
    retranslate();
    showChosen();
}

void PanelTabs::setPanel(Workspace::Panel panel)
{
    if (panel == m_panel)
        return;
    m_panel = panel;
    showChosen();
    Q_EMIT panelChanged(panel);
}

// One tab stop: the chosen button.
void PanelTabs::showChosen()
{
    for (std::size_t i = 0; i < m_buttons.size(); ++i) {
        const bool isChosen = i == static_cast<std::size_t>(m_panel);
        QToolButton &button = *m_buttons[i];
        button.setChecked(isChosen);
        button.setToolButtonStyle(isChosen ? Qt::ToolButtonTextBesideIcon : Qt::ToolButtonIconOnly);
        button.setFocusPolicy(isChosen ? Qt::StrongFocus : Qt::NoFocus);
    }
}

void PanelTabs::keyPressEvent(QKeyEvent *event)
{
    const int last = static_cast<int>(m_buttons.size()) - 1;
    int wanted = static_cast<int>(m_panel);
    switch (event->key()) {
    case Qt::Key_Left:
        --wanted;
        break;
    case Qt::Key_Right:
        ++wanted;
        break;
    case Qt::Key_Home:
        wanted = 0;
        break;
    case Qt::Key_End:
        wanted = last;
        break;
    default:
        QWidget::keyPressEvent(event);
        return;
    }
    setPanel(static_cast<Workspace::Panel>(std::clamp(wanted, 0, last)));
    m_buttons[static_cast<std::size_t>(m_panel)]->setFocus(Qt::TabFocusReason);
}

void PanelTabs::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void PanelTabs::retranslate()
{
    for (std::size_t i = 0; i < m_buttons.size(); ++i) {
        const QString name = uiText(kTabs.at(i).name);
        m_buttons[i]->setText(name);
        m_buttons[i]->setToolTip(name);
        m_buttons[i]->setAccessibleName(name);
    }
}

} // namespace kerlune
