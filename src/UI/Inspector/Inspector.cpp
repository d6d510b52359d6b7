#include "UI/Inspector/Inspector.h"

#include "UI/Catalog/CatalogDetails.h"
#include "UI/Inspector/FaceHeader.h"
#include "UI/Inspector/PanelTabs.h"
#include "UI/Inspector/SeveralFamilies.h"
#include "UI/InterfaceText.h"
#include "UI/Panels/AxesPanel.h"
#include "UI/Panels/FeaturesPanel.h"
#include "UI/Panels/GlyphPanel.h"
#include "UI/Panels/InformationPanel.h"
#include "UI/Panels/SimilarPanel.h"
#include "UI/Panels/StylesPanel.h"

#include <QEvent>
#include <QFrame>
#include <QLabel>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace kerlune {

namespace {

QFrame *makeHairline(QWidget *parent)
{
    auto *const line = new QFrame(parent);
    line->setProperty("hairline", true);
    return line;
}

// The selected face where it is one of the family's, else the one that stands for the family.
FontRecordPointer activeFace(const AppState &state, const FontFamily &family)
{
    const auto &selected = state.selectedFace.value();
    const auto found = std::find_if(family.faces.begin(), family.faces.end(), [&](const FontRecordPointer &face) {
        return selected && face->postScriptName == *selected;
    });
    return found == family.faces.end() ? family.representative() : *found;
}

} // namespace

Inspector::Inspector(Workspace &workspace, QWidget *parent)
    : QWidget(parent)
    , m_workspace(workspace)
    , m_pages(new QStackedWidget(this))
    , m_hint(new QLabel(this))
    , m_several(new SeveralFamilies(workspace, this))
    , m_catalog(new CatalogDetails(workspace, this))
    , m_familyPage(makeFamilyPage())
{
    setMinimumWidth(kLeastWidth);
    setMaximumWidth(kMostWidth);
    m_hint->setProperty("secondary", true);
    m_hint->setAlignment(Qt::AlignCenter);
    m_hint->setWordWrap(true);
    m_hint->setContentsMargins(kCardPadding, kCardPadding, kCardPadding, kCardPadding);
    for (QWidget *page : {static_cast<QWidget *>(m_hint), static_cast<QWidget *>(m_several),
                          static_cast<QWidget *>(m_catalog), m_familyPage})
        m_pages->addWidget(page);
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_pages);
    follow();
    retranslate();
    showSelection();
}

QWidget *Inspector::makeFamilyPage()
{
    auto *const page = new QWidget(this);
    auto *const column = new QVBoxLayout(page);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_header = new FaceHeader(m_workspace, page));
    column->addWidget(makeHairline(page));
    column->addWidget(m_tabs = new PanelTabs(m_workspace.theme(), page));
    column->addWidget(makeHairline(page));
    column->addWidget(m_panelStack = new QStackedWidget(page), 1);
    m_panels = {new InformationPanel(m_workspace, page), new StylesPanel(m_workspace, page),
                new AxesPanel(m_workspace, page),        new FeaturesPanel(m_workspace, page),
                new GlyphPanel(m_workspace, page),       new SimilarPanel(m_workspace, page)};
    for (FacePanel *panel : m_panels)
        m_panelStack->addWidget(panel);
    connect(m_tabs, &PanelTabs::panelChanged, this,
            [this](Workspace::Panel panel) { m_panelStack->setCurrentIndex(static_cast<int>(panel)); });
    return page;
}

void Inspector::follow()
{
    m_update.setSingleShot(true);
    connect(&m_update, &QTimer::timeout, this, &Inspector::showSelection);
    const auto updateSoon = [this] {
        if (!m_update.isActive())
            m_update.start(0);
    };
    AppState &state = m_workspace.state();
    m_observers.push_back(state.selectedFamily.addNotifier(updateSoon));
    m_observers.push_back(state.selectedFace.addNotifier(updateSoon));
    m_observers.push_back(m_workspace.selectedFamilies.addNotifier(updateSoon));
    m_observers.push_back(state.library.observe(updateSoon));
    m_observers.push_back(state.sidebarSelection.addNotifier(updateSoon));
    m_observers.push_back(state.viewMode.addNotifier(updateSoon));
    m_observers.push_back(state.favorites.observe(updateSoon));
    m_observers.push_back(state.activation().bindableActivePaths().addNotifier(updateSoon));
    connect(&state, &AppState::visibleFamiliesChanged, this, updateSoon); // folders too change what can be activated
}

void Inspector::showSelection()
{
    const AppState &state = m_workspace.state();
    if (state.sidebarSelection.value().kind == SidebarSelection::Kind::googleFonts &&
        state.viewMode.value() != ViewMode::compare) {
        m_pages->setCurrentWidget(m_catalog);
        return;
    }
    if (m_workspace.selectedFamilies.value().size() > 1) {
        m_several->showSelection();
        m_pages->setCurrentWidget(m_several);
        return;
    }
    const auto &name = state.selectedFamily.value();
    const FontFamilyPointer family = name ? state.family(*name) : nullptr;
    const FontRecordPointer face = family == nullptr ? nullptr : activeFace(state, *family);
    m_header->setFace(family, face);
    m_header->showState();
    for (FacePanel *panel : m_panels)
        panel->setFace(family, face);
    if (family == nullptr)
        m_pages->setCurrentWidget(m_hint);
    else
        m_pages->setCurrentWidget(m_familyPage);
}

void Inspector::showPanel(Workspace::Panel panel)
{
    m_tabs->setPanel(panel);
}

bool Inspector::isSettled() const
{
    const FacePanel *const panel = m_panels.at(static_cast<std::size_t>(m_panelStack->currentIndex()));
    return !m_update.isActive() && (!panel->isVisible() || panel->isSettled());
}

Workspace::Panel Inspector::panel() const
{
    return m_tabs->panel();
}

QSize Inspector::sizeHint() const
{
    return {300, 640};
}

void Inspector::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void Inspector::retranslate()
{
    setAccessibleName(uiText("Inspecteur"));
    m_hint->setText(uiText("Choisissez une famille pour la voir ici."));
}

} // namespace kerlune
