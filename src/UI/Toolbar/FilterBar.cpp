#include "UI/Toolbar/FilterBar.h"

#include "UI/InterfaceText.h"
#include "UI/Toolbar/FilterChip.h"
#include "UI/Toolbar/FilterPopup.h"
#include "UI/Toolbar/SmartNamePrompt.h"

#include <QEvent>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>

#include <algorithm>

namespace kerlune {

namespace {

constexpr int kGap = 6;
constexpr int kMoreWidth = 28;

} // namespace

FilterBar::FilterBar(Workspace &workspace, QWidget *parent)
    : QWidget(parent)
    , m_workspace(workspace)
{
    setObjectName(QStringLiteral("filterBar"));
    setFixedHeight(kFilterBarHeight);
    addChips();
    addButtons();
    m_observers.push_back(workspace.state().filters.addNotifier([this] { showFilters(); }));
    m_observers.push_back(workspace.state().sidebarSelection.addNotifier([this] { showFilters(); }));
    m_observers.push_back(workspace.state().smartPromptVisible.addNotifier([this] { promptForName(); }));
    retranslate();
}

void FilterBar::addChips()
{
    for (const FilterKind kind : kAllFilterKinds) {
        auto *chip = new FilterChip(kind, m_workspace.theme(), this);
        connect(chip, &FilterChip::clicked, this, [this, kind, chip] { use(kind, *chip); });
        connect(chip, &FilterChip::unsetWanted, this, [this, kind] { unsetFilter(kind); });
        m_chips.push_back(chip);
    }
}

void FilterBar::addButtons()
{
    m_more = new QToolButton(this);
    m_more->setObjectName(QStringLiteral("moreFilters"));
    m_more->setIcon(m_workspace.theme().icon("plus"));
    m_more->setIconSize({16, 16});
    m_more->setFocusPolicy(Qt::StrongFocus);
    connect(m_more, &QToolButton::clicked, this, &FilterBar::showMore);
    const auto add = [this](const char *name, auto act) {
        auto *button = new QPushButton(this);
        button->setObjectName(QLatin1String(name));
        button->setProperty("link", true);
        connect(button, &QPushButton::clicked, this, act);
        return button;
    };
    m_update = add("updateSmart", [this] { updateSmartCollection(); });
    m_save = add("saveSmart", [this] { saveAsSmartCollection(); });
    m_clear = add("clearFilters", [this] { m_workspace.state().filters = Filters(); });
}

void FilterBar::retranslate()
{
    setAccessibleName(uiText("Filtres"));
    m_more->setAccessibleName(uiText("Autres filtres"));
    m_more->setToolTip(uiText("Autres filtres"));
    m_update->setText(uiText("Mettre à jour"));
    m_update->setToolTip(uiText("Remplacer les filtres de la collection intelligente par ceux-ci"));
    m_save->setText(uiText("Enregistrer…"));
    m_save->setToolTip(uiText("Enregistrer comme collection intelligente"));
    m_clear->setText(uiText("Effacer"));
    m_clear->setToolTip(uiText("Retirer tous les filtres"));
    showFilters();
}

void FilterBar::showFilters()
{
    for (FilterChip *chip : m_chips)
        chip->showFilters(m_workspace.state().filters.value());
    arrange();
}

void FilterBar::arrange()
{
    const int end = arrangeButtons();
    const std::vector<FilterChip *> shownChips = fitting(end - kCardGap - kMoreWidth - kGap);
    m_hidden.clear();
    int x = kCardGap;
    for (FilterChip *chip : m_chips) {
        const bool isShown = std::find(shownChips.begin(), shownChips.end(), chip) != shownChips.end();
        chip->setVisible(isShown);
        if (!isShown) {
            m_hidden.push_back(chip->kind());
            continue;
        }
        const QSize size = chip->sizeHint();
        chip->setGeometry(x, (height() - size.height()) / 2, size.width(), size.height());
        x += size.width() + kGap;
    }
    m_more->setGeometry(x, (height() - kMoreWidth) / 2, kMoreWidth, kMoreWidth);
    m_more->setVisible(!m_hidden.empty());
}

// From the right; a button that has nothing to do leaves its room to the chips.
int FilterBar::arrangeButtons()
{
    const AppState &state = m_workspace.state();
    const bool isActive = state.filters.value().isActive();
    const bool isSmart = state.sidebarSelection.value().kind == SidebarSelection::Kind::smart;
    m_clear->setVisible(isActive);
    m_save->setVisible(isActive);
    m_update->setVisible(isActive && isSmart);
    int x = width() - kCardGap;
    for (QPushButton *button : {m_clear, m_save, m_update}) {
        if (button->isHidden())
            continue;
        const QSize size = button->sizeHint();
        x -= size.width();
        button->setGeometry(x, (height() - size.height()) / 2, size.width(), size.height());
    }
    return x - kGap;
}

std::vector<FilterChip *> FilterBar::fitting(int width) const
{
    const Filters &filters = m_workspace.state().filters.value();
    std::vector<FilterChip *> fitting;
    bool hasRoom = true;
    const auto take = [&](bool thoseSet) {
        for (FilterChip *chip : m_chips) {
            if (isSet(chip->kind(), filters) != thoseSet || (!thoseSet && !hasOwnChip(chip->kind())))
                continue;
            const int needed = chip->sizeHint().width() + kGap;
            if (needed > width) {
                hasRoom = false;
                continue;
            }
            width -= needed;
            fitting.push_back(chip);
        }
    };
    take(true);
    if (hasRoom)
        take(false); // none takes the place of one that is set
    return fitting;
}

void FilterBar::resizeEvent(QResizeEvent *event)
{
    arrange();
    QWidget::resizeEvent(event);
}

void FilterBar::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

// Use.

void FilterBar::use(FilterKind kind, QWidget &anchor)
{
    if (!isSwitch(kind)) {
        (new FilterPopup(kind, m_workspace, this))->openBelow(anchor);
        return;
    }
    Filters filters = m_workspace.state().filters.value();
    if (isSet(kind, filters))
        unset(kind, filters);
    else
        switchOn(kind, filters);
    m_workspace.state().filters = std::move(filters);
}

void FilterBar::unsetFilter(FilterKind kind)
{
    Filters filters = m_workspace.state().filters.value();
    unset(kind, filters);
    m_workspace.state().filters = std::move(filters);
}

void FilterBar::showMore()
{
    auto *menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("moreFiltersMenu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const Filters &filters = m_workspace.state().filters.value();
    for (const FilterKind kind : m_hidden) {
        QString text = filterText(kind, filters).replace(u'&', QStringLiteral("&&"));
        if (!isSwitch(kind))
            text += QChar(u'…');
        QAction *action = menu->addAction(text, this, [this, kind] { use(kind, *m_more); });
        action->setCheckable(isSwitch(kind) || isSet(kind, filters));
        action->setChecked(isSet(kind, filters));
    }
    menu->popup(m_more->mapToGlobal(QPoint(0, m_more->height() + 4)));
}

// Smart collections.

void FilterBar::updateSmartCollection()
{
    const SidebarSelection selection = m_workspace.state().sidebarSelection.value();
    if (selection.kind == SidebarSelection::Kind::smart)
        m_workspace.commands().updateSmartCollection(selection.key);
}

void FilterBar::saveAsSmartCollection()
{
    if (m_workspace.state().filters.value().isActive())
        m_workspace.state().smartPromptVisible = true;
}

void FilterBar::promptForName()
{
    if (!m_workspace.state().smartPromptVisible.value())
        return;
    auto *prompt = new SmartNamePrompt(m_workspace, this);
    connect(prompt, &QDialog::finished, this, [this] { m_workspace.state().smartPromptVisible = false; });
    prompt->open();
}

} // namespace kerlune
