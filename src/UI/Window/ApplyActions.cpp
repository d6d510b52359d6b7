#include "UI/Window/ApplyActions.h"

#include "UI/InterfaceText.h"

#include <QAction>
#include <QEvent>
#include <QMenu>
#include <QWidget>

namespace kerlune {

ApplyActions::ApplyActions(Workspace &workspace, QWidget &window)
    : QObject(&window)
    , m_workspace(workspace)
    , m_menu(new QMenu(&window))
    , m_shuffleMenu(new QMenu(m_menu))
    , m_toFrontmost(new QAction(this))
    , m_shuffle(new QAction(this))
    , m_next(new QAction(this))
    , m_previous(new QAction(this))
    , m_random(new QAction(this))
{
    m_menu->setObjectName(QStringLiteral("applyMenu"));
    m_menu->setToolTipsVisible(true);
    makeActions();
    AppState &state = m_workspace.state();
    m_observers.push_back(state.selectedFamily.addNotifier([this] { update(); }));
    m_observers.push_back(state.library.observe([this] { update(); }));
    m_observers.push_back(state.shuffleActive.observe([this] { update(); }));
    window.installEventFilter(this);
    retranslate();
    update();
}

void ApplyActions::makeActions()
{
    AppState &state = m_workspace.state();
    m_toFrontmost->setObjectName(QStringLiteral("apply"));
    m_toFrontmost->setShortcuts({Qt::CTRL | Qt::Key_Return, Qt::CTRL | Qt::Key_Enter});
    connect(m_toFrontmost, &QAction::triggered, this, [&state] { state.applyCurrentToFrontmost(); });
    m_menu->addAction(m_toFrontmost);
    m_menu->addSeparator();
    for (const HostApp host : kHostApps) {
        QAction *action = m_menu->addAction(QString());
        connect(action, &QAction::triggered, this, [&state, host] { state.applyCurrent(host); });
        m_toHosts.emplace_back(host, action);
    }
    m_menu->addSeparator();
    m_menu->addMenu(m_shuffleMenu);

    m_shuffle->setObjectName(QStringLiteral("shuffle"));
    m_shuffle->setCheckable(true);
    m_shuffle->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_Return);
    m_next->setShortcut(Qt::ALT | Qt::Key_Down);
    m_previous->setShortcut(Qt::ALT | Qt::Key_Up);
    m_random->setShortcut(Qt::CTRL | Qt::Key_R);
    connect(m_shuffle, &QAction::triggered, this, &ApplyActions::toggleShuffle);
    connect(m_next, &QAction::triggered, this, [&state] { state.stepShuffle(1); });
    connect(m_previous, &QAction::triggered, this, [&state] { state.stepShuffle(-1); });
    connect(m_random, &QAction::triggered, this, [&state] { state.stepShuffleAtRandom(); });
    m_shuffleMenu->addActions({m_shuffle, m_next, m_previous, m_random});
}

void ApplyActions::retranslate()
{
    m_menu->setTitle(uiText("Appliquer"));
    m_toFrontmost->setText(uiText("Appliquer à la sélection"));
    m_toFrontmost->setToolTip(
        uiText("Donne la police choisie au texte sélectionné dans le logiciel utilisé avant Kerlune"));
    for (const auto &[host, action] : m_toHosts) {
        action->setText(uiText("Appliquer dans %1", {shown(displayName(host))}));
        action->setToolTip(uiText("Change : %1", {shown(selectionDescription(host))}));
    }
    m_shuffleMenu->setTitle(uiText("Essai en direct"));
    m_shuffle->setText(uiText("Appliquer chaque police choisie"));
    m_next->setText(uiText("Police suivante"));
    m_previous->setText(uiText("Police précédente"));
    m_random->setText(uiText("Police au hasard"));
}

void ApplyActions::update()
{
    const AppState &state = m_workspace.state();
    const bool hasFont = state.activeRecord() != nullptr;
    m_toFrontmost->setEnabled(hasFont);
    for (const auto &[host, action] : m_toHosts)
        action->setEnabled(hasFont);
    m_shuffle->setChecked(state.shuffleActive());
    for (QAction *action : {m_next, m_previous, m_random})
        action->setEnabled(state.shuffleActive());
}

void ApplyActions::toggleShuffle()
{
    AppState &state = m_workspace.state();
    if (state.shuffleActive())
        state.stopShuffle();
    else
        state.startShuffle();
    update(); // where it could not start, it is not checked
}

bool ApplyActions::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    return QObject::eventFilter(watched, event);
}

} // namespace kerlune
