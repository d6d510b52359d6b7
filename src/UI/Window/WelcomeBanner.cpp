#include "UI/Window/WelcomeBanner.h"

#include "UI/InterfaceText.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

namespace kerlune {

namespace {

QString dismissedKey()
{
    return QStringLiteral("window/welcomeDismissed");
}

} // namespace

WelcomeBanner::WelcomeBanner(Workspace &workspace, QWidget *parent)
    : QFrame(parent)
    , m_workspace(workspace)
    , m_title(new QLabel)
    , m_text(new QLabel)
    , m_add(new QPushButton)
    , m_close(new QToolButton)
{
    setObjectName(QStringLiteral("welcomeBanner"));
    m_title->setFont(Theme::font(TextSize::title, QFont::DemiBold));
    m_text->setProperty("secondary", true);
    m_text->setWordWrap(true);
    m_add->setObjectName(QStringLiteral("welcomeAdd"));
    m_add->setProperty("prominent", true);
    m_close->setObjectName(QStringLiteral("welcomeClose"));
    m_close->setIcon(m_workspace.theme().icon("close"));
    m_close->setIconSize({16, 16});

    auto *words = new QVBoxLayout;
    words->setSpacing(4);
    words->addWidget(m_title);
    words->addWidget(m_text);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(kCardPadding, 12, 12, 12);
    layout->setSpacing(kCardPadding);
    layout->addLayout(words, 1);
    layout->addWidget(m_add, 0, Qt::AlignVCenter);
    layout->addWidget(m_close, 0, Qt::AlignTop);

    connect(m_add, &QPushButton::clicked, &m_workspace, &Workspace::addFolderWanted);
    connect(m_close, &QToolButton::clicked, this, &WelcomeBanner::dismiss);
    m_observers.push_back(m_workspace.state().folderLibrary().bindableFolders().addNotifier([this] { refresh(); }));
    retranslate();
    refresh();
}

void WelcomeBanner::retranslate()
{
    m_title->setText(uiText("Bienvenue dans Kerlune"));
    m_text->setText(
        uiText("Voici déjà les polices de cet ordinateur. Ajoutez les dossiers où sont les vôtres : elles se "
               "voient et s’activent sans être installées. Aucun fichier n’est déplacé ni modifié."));
    m_add->setText(uiText("Ajouter un dossier…"));
    m_close->setAccessibleName(uiText("Ne plus afficher ce message"));
    m_close->setToolTip(uiText("Ne plus afficher ce message"));
}

void WelcomeBanner::setWanted(bool isWanted)
{
    m_isWanted = isWanted;
    refresh();
}

void WelcomeBanner::refresh()
{
    const AppState &state = m_workspace.state();
    setVisible(m_isWanted && state.folderLibrary().folders().empty() &&
               !m_workspace.preferences().layout(dismissedKey(), false).toBool());
}

void WelcomeBanner::dismiss()
{
    m_workspace.preferences().setLayout(dismissedKey(), true);
    refresh();
    Q_EMIT m_workspace.browserWanted();
}

void WelcomeBanner::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QFrame::changeEvent(event);
}

} // namespace kerlune
