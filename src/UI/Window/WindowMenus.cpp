#include "UI/Window/WindowMenus.h"

#include "Support/Localization.h"
#include "UI/Browser/BrowserPane.h"
#include "UI/Inspector/Inspector.h"
#include "UI/InterfaceText.h"
#include "UI/Sidebar/Sidebar.h"
#include "UI/Toolbar/FilterBar.h"
#include "UI/Window/AboutDialog.h"
#include "UI/Window/BackupActions.h"
#include "UI/Window/FontCommands.h"
#include "UI/Window/MainWindow.h"
#include "UI/Window/ShortcutSheet.h"

#include <QActionGroup>
#include <QEvent>
#include <QMenuBar>

#include <algorithm>
#include <array>
#include <utility>

namespace kerlune {

namespace {

constexpr double kPreviewStep = 1.15;
constexpr double kLeastShownSize = 8; // points
constexpr double kMostShownSize = 400;

QKeySequence control(int key, Qt::KeyboardModifiers more = {})
{
    return {QKeyCombination(Qt::ControlModifier | more, static_cast<Qt::Key>(key))};
}

// Of the digits from 1 on. On French keyboards these need Shift: there the keys themselves serve.
QList<QKeySequence> digitKeys(Qt::KeyboardModifier modifier, std::size_t position)
{
    static constexpr std::array<std::pair<Qt::Key, Qt::Key>, 6> kKeys{{{Qt::Key_1, Qt::Key_Ampersand},
                                                                       {Qt::Key_2, Qt::Key_Eacute},
                                                                       {Qt::Key_3, Qt::Key_QuoteDbl},
                                                                       {Qt::Key_4, Qt::Key_Apostrophe},
                                                                       {Qt::Key_5, Qt::Key_ParenLeft},
                                                                       {Qt::Key_6, Qt::Key_Minus}}};
    const auto &[digit, frenchKey] = kKeys.at(position);
    return {QKeyCombination(modifier, digit), QKeyCombination(modifier, frenchKey)};
}

} // namespace

WindowMenus::WindowMenus(Workspace &workspace, MainWindow &window, Parts parts)
    : QObject(&window)
    , m_workspace(workspace)
    , m_window(window)
    , m_parts(parts)
    , m_fontCommands(new FontCommands(workspace, window))
    , m_backups(new BackupActions(workspace, window))
{
    makeFileMenu();
    makeEditMenu();
    m_menus.push_back(m_fontCommands->menu());
    m_window.menuBar()->addMenu(m_fontCommands->menu());
    makeViewMenu();
    makeLibraryMenu();
    makeHelpMenu();
    m_window.installEventFilter(this);
    retranslate();
}

ApplyActions *WindowMenus::applyActions() const
{
    return m_fontCommands->applyActions();
}

QMenu *WindowMenus::fontMenu() const
{
    return m_fontCommands->menu();
}

QMenu *WindowMenus::addMenu(Text text)
{
    QMenu *menu = m_window.menuBar()->addMenu(QString());
    m_menus.push_back(menu);
    m_menuTexts.emplace_back(menu, text);
    return menu;
}

QAction *WindowMenus::add(QMenu *menu, Text text, const Keys &keys, std::function<void()> does)
{
    QAction *action = menu->addAction(QString());
    action->setShortcuts(keys);
    connect(action, &QAction::triggered, this, std::move(does));
    m_actionTexts.emplace_back(action, text);
    return action;
}

void WindowMenus::makeFileMenu()
{
    QMenu *menu = addMenu(marked("&Fichier"));
    add(menu, marked("Ajouter un dossier…"), {control(Qt::Key_O)}, [this] { Q_EMIT m_workspace.addFolderWanted(); });
    add(menu, marked("Nouvelle collection"), {control(Qt::Key_N)}, [this] { m_parts.sidebar.addCollection(); });
    add(menu, marked("Nouveau tag…"), {control(Qt::Key_N, Qt::ShiftModifier)}, [this] { m_parts.sidebar.addTag(); });
    add(menu, marked("Enregistrer les filtres…"), {control(Qt::Key_S)},
        [this] { m_parts.filterBar.saveAsSmartCollection(); });
    menu->addSeparator();
    add(menu, marked("Sauvegarder mes données…"), {}, [this] { m_backups->save(); });
    add(menu, marked("Restaurer des données…"), {}, [this] { m_backups->restore(); });
    menu->addSeparator();
    add(menu, marked("Quitter"), {control(Qt::Key_Q)}, [this] {
        Q_EMIT m_window.quitWanted();
    })->setMenuRole(QAction::QuitRole);
}

void WindowMenus::makeEditMenu()
{
    QUndoStack &stack = m_workspace.undoStack();
    QMenu *menu = addMenu(marked("É&dition"));
    m_undo = menu->addAction(QString());
    m_undo->setObjectName(QStringLiteral("undo"));
    m_undo->setShortcut(QKeySequence::Undo);
    m_redo = menu->addAction(QString());
    m_redo->setShortcuts({control(Qt::Key_Z, Qt::ShiftModifier), control(Qt::Key_Y)});
    connect(m_undo, &QAction::triggered, &stack, &QUndoStack::undo);
    connect(m_redo, &QAction::triggered, &stack, &QUndoStack::redo);
    connect(&stack, &QUndoStack::indexChanged, this, &WindowMenus::showUndo);
    connect(&stack, &QUndoStack::cleanChanged, this, &WindowMenus::showUndo);
    menu->addSeparator();
    m_fontCommands->addCopyActions(*menu);
    menu->addSeparator();
    add(menu, marked("Tout sélectionner"), {control(Qt::Key_A)}, [this] { selectAll(); });
    add(menu, marked("Rechercher"), {control(Qt::Key_F)}, [this] { Q_EMIT m_workspace.searchWanted(); });
    menu->addSeparator();
    add(menu, marked("Réglages…"), {control(Qt::Key_Comma)}, [this] {
        m_window.showSettings();
    })->setMenuRole(QAction::PreferencesRole);
}

void WindowMenus::makeViewMenu()
{
    QMenu *menu = addMenu(marked("&Affichage"));
    addViewModes(menu);
    menu->addSeparator();
    add(menu, marked("Agrandir l’aperçu"), {control(Qt::Key_Plus), control(Qt::Key_Equal)},
        [this] { scalePreview(kPreviewStep); });
    add(menu, marked("Réduire l’aperçu"), {control(Qt::Key_Minus)}, [this] { scalePreview(1 / kPreviewStep); });
    add(menu, marked("Taille d’aperçu normale"), {control(Qt::Key_0), control(Qt::Key_Agrave)},
        [this] { m_workspace.state().previewSize = AppState::kDefaultPreviewSize; });
    // Its key is the browser's: as a shortcut of the window it would be taken from buttons.
    add(menu, marked("Grand aperçu\tEspace"), {}, [this] { Q_EMIT m_workspace.largePreviewWanted(); });
    menu->addSeparator();
    m_sidebarShown = add(menu, marked("Barre latérale"), {control(Qt::Key_B, Qt::ShiftModifier)},
                         [this] { m_parts.sidebar.setVisible(m_sidebarShown->isChecked()); });
    m_inspectorShown = add(menu, marked("Inspecteur"), {control(Qt::Key_I)},
                           [this] { m_parts.inspector.setVisible(m_inspectorShown->isChecked()); });
    for (QAction *action : {m_sidebarShown, m_inspectorShown})
        action->setCheckable(true);
    m_parts.sidebar.installEventFilter(this);
    m_parts.inspector.installEventFilter(this);
    addPanels(menu);
    menu->addSeparator();
    add(menu, marked("Plein écran"), {Qt::Key_F11},
        [this] { m_window.setWindowState(m_window.windowState() ^ Qt::WindowFullScreen); });
}

void WindowMenus::addViewModes(QMenu *menu)
{
    static constexpr std::array<std::pair<ViewMode, Text>, 4> kModes{{{ViewMode::grid, marked("Grille")},
                                                                      {ViewMode::list, marked("Liste")},
                                                                      {ViewMode::waterfall, marked("Cascade")},
                                                                      {ViewMode::compare, marked("Comparer")}}};
    auto *group = new QActionGroup(this);
    for (std::size_t i = 0; i < kModes.size(); ++i) {
        QAction *action = add(menu, kModes[i].second, digitKeys(Qt::ControlModifier, i),
                              [this, mode = kModes[i].first] { m_workspace.state().viewMode = mode; });
        action->setCheckable(true);
        group->addAction(action);
        m_viewModes.push_back(action);
    }
    const auto showMode = [this] {
        m_viewModes[static_cast<std::size_t>(m_workspace.state().viewMode.value())]->setChecked(true);
    };
    m_observers.push_back(m_workspace.state().viewMode.addNotifier(showMode));
    showMode();
}

void WindowMenus::addPanels(QMenu *menu)
{
    using Panel = Workspace::Panel;
    static constexpr std::array<std::pair<Panel, Text>, 6> kPanels{{{Panel::information, marked("Informations")},
                                                                    {Panel::styles, marked("Styles")},
                                                                    {Panel::axes, marked("Axes")},
                                                                    {Panel::features, marked("OpenType")},
                                                                    {Panel::glyphs, marked("Glyphes")},
                                                                    {Panel::similar, marked("Similaires")}}};
    QMenu *panels = menu->addMenu(QString());
    m_menuTexts.emplace_back(panels, marked("Panneaux"));
    for (std::size_t i = 0; i < kPanels.size(); ++i)
        add(panels, kPanels[i].second, digitKeys(Qt::AltModifier, i),
            [this, wanted = kPanels[i].first] { Q_EMIT m_workspace.panelWanted(wanted); });
}

void WindowMenus::makeLibraryMenu()
{
    QMenu *menu = addMenu(marked("&Bibliothèque"));
    add(menu, marked("Analyser à nouveau"), {Qt::Key_F5}, [this] { analyse(); });
    add(menu, marked("Reconstruire l’index"), {}, [this] { m_workspace.state().rebuildIndex(); });
}

void WindowMenus::makeHelpMenu()
{
    QMenu *menu = addMenu(marked("Aid&e"));
    add(menu, marked("Raccourcis clavier"), {control(Qt::Key_Question), Qt::Key_F1},
        [this] { ShortcutSheet::open(*this, &m_window); });
    add(menu, marked("À propos de Kerlune"), {}, [this] {
        AboutDialog::open(m_workspace, &m_window);
    })->setMenuRole(QAction::AboutRole);
}

void WindowMenus::scalePreview(double factor)
{
    AppState &state = m_workspace.state();
    state.previewSize = std::clamp(std::round(state.previewSize.value() * factor), kLeastShownSize, kMostShownSize);
}

void WindowMenus::selectAll()
{
    std::vector<std::string> names;
    const AppState::Families &families = m_workspace.state().visibleFamilies();
    names.reserve(families.size());
    for (const FontFamilyPointer &family : families)
        names.push_back(family->name);
    m_workspace.select(names);
}

// What the folders hold and what the system offers.
void WindowMenus::analyse()
{
    m_workspace.state().folderLibrary().rescanAll();
    m_workspace.state().refreshRegisteredFonts();
}

void WindowMenus::showUndo()
{
    const QUndoStack &stack = m_workspace.undoStack();
    const auto doubled = [](QString text) { return text.replace(u'&', QStringLiteral("&&")); };
    m_undo->setEnabled(stack.canUndo());
    m_redo->setEnabled(stack.canRedo());
    m_undo->setText(stack.canUndo() ? uiText("Annuler : %1", {doubled(stack.undoText())}) : uiText("Annuler"));
    m_redo->setText(stack.canRedo() ? uiText("Rétablir : %1", {doubled(stack.redoText())}) : uiText("Rétablir"));
}

void WindowMenus::retranslate()
{
    for (const auto &[menu, text] : m_menuTexts)
        menu->setTitle(uiText(text));
    for (const auto &[action, text] : m_actionTexts)
        action->setText(uiText(text));
    showUndo();
}

bool WindowMenus::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == &m_window && event->type() == QEvent::LanguageChange)
        retranslate();
    const bool isShownOrHidden =
        event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent || event->type() == QEvent::Show;
    if (isShownOrHidden && watched != &m_window) {
        m_sidebarShown->setChecked(m_parts.sidebar.isVisibleTo(&m_window));
        m_inspectorShown->setChecked(m_parts.inspector.isVisibleTo(&m_window));
    }
    return QObject::eventFilter(watched, event);
}

std::vector<WindowMenus::Section> WindowMenus::sections() const
{
    std::vector<Section> sections;
    for (const QMenu *menu : m_menus) {
        Section section{.title = menu->title().remove(u'&')};
        const auto take = [&section](const QMenu *from, const auto &self) -> void {
            for (const QAction *action : from->actions()) {
                if (action->menu() != nullptr)
                    self(action->menu(), self);
                else if (!action->shortcuts().isEmpty() || action->text().contains(u'\t'))
                    section.actions.push_back(action);
            }
        };
        take(menu, take);
        if (!section.actions.empty())
            sections.push_back(std::move(section));
    }
    return sections;
}

} // namespace kerlune
