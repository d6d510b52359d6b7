#include "UI/Window/FontCommands.h"

#include "Export/CssText.h"
#include "UI/InterfaceText.h"
#include "UI/Window/ApplyActions.h"

#include <QAction>
#include <QClipboard>
#include <QDesktopServices>
#include <QEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMenu>
#include <QUrl>
#include <QWidget>

#include <algorithm>

namespace kerlune {

namespace {

QString menuText(const std::string &name)
{
    return shown(name).replace(u'&', QStringLiteral("&&"));
}

std::vector<std::string> namesOf(const AppState::Families &families)
{
    std::vector<std::string> names;
    names.reserve(families.size());
    for (const FontFamilyPointer &family : families)
        names.push_back(family->name);
    return names;
}

} // namespace

FontCommands::FontCommands(Workspace &workspace, QWidget &window)
    : QObject(&window)
    , m_workspace(workspace)
    , m_menu(new QMenu(&window))
    , m_apply(new ApplyActions(workspace, window))
    , m_collections(new QMenu(m_menu))
    , m_active(add(QKeySequence(Qt::CTRL | Qt::Key_E), &FontCommands::toggleActive))
    , m_favorite(add(QKeySequence(Qt::CTRL | Qt::Key_B), &FontCommands::toggleFavorite))
    , m_tag(add(QKeySequence(Qt::CTRL | Qt::Key_T), &FontCommands::addTag))
    , m_remove(add({}, &FontCommands::removeFromCollection))
    , m_compare(add(QKeySequence(Qt::CTRL | Qt::Key_D), &FontCommands::compare))
    , m_copyName(add(QKeySequence::Copy, &FontCommands::copyNames))
    , m_copyPostScript(add(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C), &FontCommands::copyPostScriptNames))
    , m_copyCss(add(QKeySequence(Qt::CTRL | Qt::ALT | Qt::Key_C), &FontCommands::copyCss))
    , m_openFolder(add(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_O), &FontCommands::openFolder))
    , m_copyPath(add({}, &FontCommands::copyPath))
{
    m_menu->setObjectName(QStringLiteral("fontMenu"));
    m_active->setObjectName(QStringLiteral("activate"));
    m_favorite->setObjectName(QStringLiteral("favorite"));
    m_menu->addMenu(m_apply->menu());
    m_menu->addSeparator();
    m_menu->addActions({m_active, m_favorite, m_tag});
    m_menu->addMenu(m_collections);
    m_menu->addAction(m_remove);
    m_menu->addSeparator();
    m_menu->addAction(m_compare);
    m_menu->addSeparator();
    addCopyActions(*m_menu);
    m_menu->addSeparator();
    m_menu->addActions({m_openFolder, m_copyPath});
    connect(m_menu, &QMenu::aboutToShow, this, &FontCommands::update);
    connect(m_collections, &QMenu::aboutToShow, this, &FontCommands::fillCollections);

    // A long selection changes step by step: the actions follow once for each turn of the event loop.
    m_updating.setSingleShot(true);
    connect(&m_updating, &QTimer::timeout, this, &FontCommands::update);
    const auto later = [this] { m_updating.start(0); };
    m_observers.push_back(m_workspace.selectedFamilies.addNotifier(later));
    m_observers.push_back(m_workspace.state().sidebarSelection.addNotifier(later));
    m_observers.push_back(m_workspace.state().favorites.observe(later));
    m_observers.push_back(m_workspace.state().library.observe(later));
    m_observers.push_back(m_workspace.state().activation().bindableActivePaths().addNotifier(later));
    window.installEventFilter(this);
    update();
}

QAction *FontCommands::add(const QKeySequence &keys, void (FontCommands::*does)())
{
    auto *action = new QAction(this);
    action->setShortcut(keys);
    connect(action, &QAction::triggered, this, does);
    return action;
}

void FontCommands::addCopyActions(QMenu &menu) const
{
    menu.addActions({m_copyName, m_copyPostScript, m_copyCss});
}

bool FontCommands::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        update();
    return QObject::eventFilter(watched, event);
}

// Texts and what is possible, for what is selected now.
void FontCommands::update()
{
    const AppState &state = m_workspace.state();
    const AppState::Families families = m_workspace.selection();
    const bool hasSome = !families.empty();
    const auto isManaged = [&](const FontFamilyPointer &family) {
        return state.activationState(*family) != ActivationState::system;
    };
    const auto isInactive = [&](const FontFamilyPointer &family) {
        const ActivationState activation = state.activationState(*family);
        return activation == ActivationState::inactive || activation == ActivationState::partial;
    };
    const bool activates = std::any_of(families.begin(), families.end(), isInactive);
    const bool favors = !hasSome || std::any_of(families.begin(), families.end(), [&](const FontFamilyPointer &family) {
        return !state.favorites().contains(family->name);
    });
    const bool isInCollection = state.sidebarSelection.value().kind == SidebarSelection::Kind::collection;

    m_active->setText(activates || !hasSome ? uiText("Activer") : uiText("Désactiver"));
    m_active->setData(activates);
    m_active->setEnabled(std::any_of(families.begin(), families.end(), isManaged));
    m_favorite->setText(favors ? uiText("Ajouter aux favoris") : uiText("Retirer des favoris"));
    m_favorite->setData(favors);
    m_menu->setTitle(uiText("&Police"));
    m_tag->setText(uiText("Tag…"));
    m_collections->setTitle(uiText("Ajouter à la collection"));
    m_remove->setText(uiText("Retirer de la collection"));
    m_remove->setVisible(isInCollection);
    m_compare->setText(uiText("Comparer"));
    m_copyName->setText(uiText("Copier le nom"));
    m_copyPostScript->setText(uiText("Copier le nom PostScript"));
    m_copyCss->setText(uiText("Copier le CSS"));
    m_openFolder->setText(uiText("Ouvrir le dossier du fichier"));
    m_copyPath->setText(uiText("Copier le chemin"));
    for (QAction *action : {m_favorite, m_tag, m_collections->menuAction(), m_remove, m_compare, m_copyName,
                            m_copyPostScript, m_copyCss, m_openFolder, m_copyPath})
        action->setEnabled(hasSome);
}

void FontCommands::fillCollections()
{
    m_collections->clear();
    LibraryCommands &commands = m_workspace.commands();
    for (const FontIndexStore::Collection &collection : m_workspace.state().collections()) {
        m_collections->addAction(menuText(collection.name), this, [this, &commands, id = collection.id] {
            commands.addToCollection(id, m_workspace.selectedFamilies.value());
        });
    }
    m_collections->addSeparator();
    m_collections->addAction(uiText("Nouvelle collection"), this, [this, &commands] {
        const auto id = commands.createCollection(uiText("Nouvelle collection").toStdString(),
                                                  m_workspace.selectedFamilies.value());
        if (id)
            Q_EMIT m_workspace.collectionNameWanted(QString::fromStdString(*id));
    });
}

// The actions.

void FontCommands::toggleActive()
{
    update();
    if (m_active->isEnabled())
        m_workspace.commands().setActive(namesOf(m_workspace.selection()), m_active->data().toBool());
}

void FontCommands::toggleFavorite()
{
    update();
    m_workspace.commands().setFavorites(m_workspace.selectedFamilies.value(), m_favorite->data().toBool());
}

void FontCommands::addTag()
{
    m_workspace.state().tagPromptFamilies = m_workspace.selectedFamilies.value();
}

void FontCommands::removeFromCollection()
{
    const SidebarSelection selection = m_workspace.state().sidebarSelection.value();
    if (selection.kind == SidebarSelection::Kind::collection)
        m_workspace.commands().removeFromCollection(selection.key, m_workspace.selectedFamilies.value());
}

void FontCommands::compare()
{
    m_workspace.compare(m_workspace.selectedFamilies.value());
}

// The current family stands for its selected face, the others for their representatives.
void FontCommands::copyPostScriptNames()
{
    const FontRecordPointer active = m_workspace.state().activeRecord();
    QStringList names;
    for (const FontFamilyPointer &family : m_workspace.selection()) {
        const bool isCurrent = active != nullptr && active->family == family->name;
        names.push_back(shown((isCurrent ? active : family->representative())->postScriptName));
    }
    copy(names.join(u'\n'), uiCount("Nom PostScript copié.", "%1 noms PostScript copiés.", names.size()));
}

void FontCommands::copyNames()
{
    QStringList names;
    for (const FontFamilyPointer &family : m_workspace.selection())
        names.push_back(shown(family->name));
    copy(names.join(u'\n'), uiCount("Nom copié.", "%1 noms copiés.", names.size()));
}

void FontCommands::copyCss()
{
    const FontRecordPointer active = m_workspace.state().activeRecord();
    QStringList rules;
    for (const FontFamilyPointer &family : m_workspace.selection()) {
        const bool isCurrent = active != nullptr && active->family == family->name;
        const FontRecord &face = isCurrent ? *active : *family->representative();
        rules.push_back(QString::fromStdString(cssDeclarations(cssFace(face))).trimmed());
    }
    copy(rules.join(QStringLiteral("\n\n")), uiText("CSS copié."));
}

void FontCommands::copyPath()
{
    if (const FontRecordPointer face = m_workspace.state().activeRecord())
        copy(QFile::decodeName(face->filePath.c_str()), uiText("Chemin copié."));
}

void FontCommands::openFolder()
{
    const FontRecordPointer face = m_workspace.state().activeRecord();
    if (face == nullptr)
        return;
    const QFileInfo file(QFile::decodeName(face->filePath.c_str()));
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(file.absolutePath()))) {
        m_workspace.state().setNotice(
            {uiText("Le dossier « %1 » n’a pas pu être ouvert.", {shown(file.absolutePath().toStdString())})
                 .toStdString(),
             true});
    }
}

// A font whose name is copied is used somewhere next.
void FontCommands::copy(const QString &text, const QString &what)
{
    if (text.isEmpty())
        return;
    QGuiApplication::clipboard()->setText(text);
    if (const auto &current = m_workspace.state().selectedFamily.value())
        m_workspace.state().noteUsed(*current);
    m_workspace.state().setNotice({what.toStdString()});
}

} // namespace kerlune
