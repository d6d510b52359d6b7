#include "UI/Window/ShuffleBar.h"

#include "UI/InterfaceText.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

namespace kerlune {

namespace {

void name(QToolButton &button, const QString &text)
{
    button.setToolTip(text);
    button.setAccessibleName(text);
}

} // namespace

ShuffleBar::ShuffleBar(Workspace &workspace, QWidget *parent)
    : QWidget(parent)
    , m_workspace(workspace)
    , m_text(new QLabel)
    , m_previous(addButton("shufflePrevious", "chevron-left"))
    , m_next(addButton("shuffleNext", "chevron-right"))
    , m_random(addButton("shuffleRandom", "shuffle"))
    , m_stop(addButton("shuffleStop", "close"))
{
    setObjectName(QStringLiteral("shuffleBar"));
    m_text->setObjectName(QStringLiteral("shuffleText"));
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(kCardGap, kGridStep / 2, kCardGap, kGridStep / 2);
    layout->setSpacing(kGridStep / 2);
    layout->addWidget(m_text, 1);
    for (QToolButton *button : {m_previous, m_next, m_random, m_stop})
        layout->addWidget(button);
    AppState &state = m_workspace.state();
    connect(m_previous, &QToolButton::clicked, this, [&state] { state.stepShuffle(-1); });
    connect(m_next, &QToolButton::clicked, this, [&state] { state.stepShuffle(1); });
    connect(m_random, &QToolButton::clicked, this, [&state] { state.stepShuffleAtRandom(); });
    connect(m_stop, &QToolButton::clicked, this, [&state] { state.stopShuffle(); });
    m_observers.push_back(state.shuffleActive.observe([this] { refresh(); }));
    m_observers.push_back(state.shuffleTarget.observe([this] { refresh(); }));
    refresh();
}

QToolButton *ShuffleBar::addButton(const char *name, const char *icon)
{
    auto *button = new QToolButton(this);
    button->setObjectName(QLatin1String(name));
    button->setIcon(m_workspace.theme().icon(icon));
    return button;
}

void ShuffleBar::refresh()
{
    const AppState &state = m_workspace.state();
    setVisible(state.shuffleActive());
    if (const auto target = state.shuffleTarget())
        m_text->setText(
            uiText("Essai en direct : chaque police choisie est appliquée dans %1.", {shown(displayName(*target))}));
    name(*m_previous, uiText("Police précédente"));
    name(*m_next, uiText("Police suivante"));
    name(*m_random, uiText("Police au hasard"));
    name(*m_stop, uiText("Arrêter l’essai en direct"));
}

void ShuffleBar::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        refresh();
    QWidget::changeEvent(event);
}

} // namespace kerlune
