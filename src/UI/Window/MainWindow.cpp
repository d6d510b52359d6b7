#include "UI/Window/MainWindow.h"

#include "UI/Browser/BrowserPane.h"
#include "UI/Drop.h"
#include "UI/Inspector/Inspector.h"
#include "UI/InterfaceText.h"
#include "UI/Preview/LargePreview.h"
#include "UI/Sidebar/Sidebar.h"
#include "UI/Toolbar/FilterBar.h"
#include "UI/Toolbar/Toolbar.h"
#include "UI/Window/ApplyActions.h"
#include "UI/Window/NoticeBar.h"
#include "UI/Window/Pages.h"
#include "UI/Window/SettingsWindow.h"
#include "UI/Window/ShuffleBar.h"
#include "UI/Window/StatusBar.h"
#include "UI/Window/WindowMenus.h"

#include <QCloseEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QMimeData>
#include <QSplitter>
#include <QVBoxLayout>

#include <algorithm>
#include <chrono>
#include <utility>

namespace kerlune {

namespace {

constexpr QSize kLeastSize{900, 560};
constexpr std::chrono::seconds kKeepingDelay{1};
constexpr int kSidebarWidth = 220;
constexpr int kInspectorWidth = 300;
constexpr std::chrono::milliseconds kPaintCheckInterval{4};

QString key(const char *name)
{
    return QStringLiteral("window/") + QLatin1String(name);
}

QFrame *hairline()
{
    auto *line = new QFrame;
    line->setProperty("hairline", true);
    return line;
}

QStringList localFiles(const QMimeData *data)
{
    QStringList files;
    for (const QUrl &url : data->urls()) {
        if (url.isLocalFile())
            files.push_back(url.toLocalFile());
    }
    return files;
}

} // namespace

MainWindow::MainWindow(Workspace &workspace, QWidget *parent)
    : QMainWindow(parent)
    , m_workspace(workspace)
    , m_sidebar(new Sidebar(workspace))
    , m_toolbar(new Toolbar(workspace))
    , m_filterBar(new FilterBar(workspace))
    , m_browser(new BrowserPane(workspace))
    , m_inspector(new Inspector(workspace))
{
    setObjectName(QStringLiteral("mainWindow"));
    setMinimumSize(kLeastSize);
    setAcceptDrops(true);

    m_splitter = new QSplitter(Qt::Horizontal);
    m_splitter->setObjectName(QStringLiteral("splitter"));
    m_splitter->setChildrenCollapsible(false);
    m_splitter->addWidget(m_sidebar);
    m_splitter->addWidget(makeCentre());
    m_splitter->addWidget(m_inspector);
    m_splitter->setStretchFactor(1, 1);
    m_sidebar->setMinimumWidth(180);
    m_sidebar->setMaximumWidth(320);
    m_inspector->setMinimumWidth(260);
    m_inspector->setMaximumWidth(420);

    auto *central = new QWidget;
    auto *layout = new QVBoxLayout(central);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_splitter, 1);
    layout->addWidget(hairline());
    layout->addWidget(new StatusBar(workspace));
    setCentralWidget(central);

    m_notices = new NoticeBar(workspace, m_pages);
    m_largePreview = new LargePreview(workspace, central);
    m_largePreview->hide();
    m_menus = new WindowMenus(
        workspace, *this,
        {.sidebar = *m_sidebar, .filterBar = *m_filterBar, .browser = *m_browser, .inspector = *m_inspector});
    m_toolbar->setApply(*m_menus->applyActions()->toFrontmost(), *m_menus->applyActions()->menu());
    restoreLayout();
    connectParts();
    retranslate();
}

MainWindow::~MainWindow() = default;

QWidget *MainWindow::makeCentre()
{
    auto *centre = new QWidget;
    centre->setMinimumWidth(420);
    auto *layout = new QVBoxLayout(centre);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    m_pages = new Pages(m_workspace, m_browser);
    layout->addWidget(m_toolbar);
    layout->addWidget(m_filterBar);
    layout->addWidget(new ShuffleBar(m_workspace, centre));
    layout->addWidget(hairline());
    layout->addWidget(m_pages, 1);
    return centre;
}

void MainWindow::connectParts()
{
    connect(&m_workspace, &Workspace::panelWanted, this, &MainWindow::showPanel);
    connect(&m_workspace, &Workspace::searchWanted, m_toolbar, &Toolbar::focusSearch);
    connect(&m_workspace, &Workspace::browserWanted, m_browser, &BrowserPane::focusView);
    connect(&m_workspace, &Workspace::largePreviewWanted, m_largePreview, &LargePreview::open);
    connect(&m_workspace, &Workspace::addFolderWanted, this, &MainWindow::chooseFolder);
    connect(m_browser, &BrowserPane::contextMenuWanted, this,
            [this](const QPoint &position) { m_menus->fontMenu()->popup(position); });
    // The catalogue has filters of its own.
    const auto showFilterBar = [this] {
        m_filterBar->setVisible(m_workspace.state().sidebarSelection.value().kind !=
                                SidebarSelection::Kind::googleFonts);
    };
    m_observers.push_back(m_workspace.state().sidebarSelection.addNotifier(showFilterBar));
    showFilterBar();
    m_observers.push_back(m_workspace.state().hasLoaded.observe([this] { checkSelection(); }));
    m_observers.push_back(m_workspace.state().library.observe([this] { takeLibrary(); }));

    // What is painted is not told: it is looked at while it is awaited.
    m_paintCheck.setInterval(kPaintCheckInterval);
    connect(&m_paintCheck, &QTimer::timeout, this, &MainWindow::notePainted);
    m_paintCheck.start();
}

void MainWindow::retranslate()
{
    setWindowTitle(QStringLiteral("Kerlune"));
    m_splitter->setAccessibleName(uiText("Bibliothèque, polices et inspecteur"));
}

void MainWindow::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QMainWindow::changeEvent(event);
}

bool MainWindow::isPainted() const
{
    const AppState &state = m_workspace.state();
    return state.hasLoaded() && !state.isIndexing() && m_pages->isSettled() &&
           (!m_pages->isBrowserShown() || m_browser->isPainted()) && m_pages->isPainted() && m_inspector->isSettled();
}

void MainWindow::notePainted()
{
    if (!isVisible() || !isPainted())
        return;
    m_paintCheck.stop();
    Q_EMIT painted();
}

void MainWindow::present()
{
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

void MainWindow::presentFamily(const std::string &family)
{
    present();
    AppState &state = m_workspace.state();
    const auto &visible = state.visibleFamilies();
    const bool isVisible = std::any_of(visible.begin(), visible.end(),
                                       [&](const FontFamilyPointer &shown) { return shown->name == family; });
    if (!isVisible) {
        state.filters = Filters();
        state.sidebarSelection = SidebarSelection();
    }
    m_workspace.select({family});
    state.scrollTarget = std::nullopt; // so that it changes even where it is the same
    state.scrollTarget = family;
    Q_EMIT m_workspace.browserWanted();
}

// Files.

void MainWindow::open(const QStringList &paths)
{
    QStringList folders;
    for (const QString &path : paths) {
        const QFileInfo file(path);
        if (!file.exists())
            m_workspace.state().setNotice(
                {uiText("« %1 » est introuvable.", {shown(path.toStdString())}).toStdString(), true});
        else if (file.isDir())
            folders.push_back(file.canonicalFilePath());
        else
            m_opened.push_back(file.canonicalFilePath());
    }
    m_workspace.commands().addFolders(folders);
    selectOpened();
}

// A file that is still missing when its folder has been read is no font.
void MainWindow::takeLibrary()
{
    const QStringList awaited = m_added;
    selectOpened();
    for (const QString &file : awaited) {
        if (m_opened.removeAll(file) == 0)
            continue;
        m_workspace.state().setNotice(
            {uiText("« %1 » n’est pas une police que Kerlune peut lire.", {shown(file.toStdString())}).toStdString(),
             true});
    }
    if (m_opened.isEmpty())
        m_added.clear();
}

// A file that the library lacks comes with its folder.
void MainWindow::selectOpened()
{
    if (m_opened.isEmpty() || !m_workspace.state().hasLoaded())
        return;
    std::vector<std::string> families;
    QStringList missing = m_opened;
    for (const FontRecordPointer &face : m_workspace.state().allRecords()) {
        const QString path = QString::fromStdString(face->filePath);
        if (!m_opened.contains(path))
            continue;
        missing.removeAll(path);
        if (std::find(families.begin(), families.end(), face->family) == families.end())
            families.push_back(face->family);
    }
    m_opened = missing;
    for (const QString &added : std::as_const(m_added))
        missing.removeAll(added);
    m_added += missing;
    m_workspace.commands().addFolders(missing);
    if (families.empty())
        return;
    presentFamily(families.front());
    m_workspace.select(families);
}

void MainWindow::chooseFolder()
{
    auto *dialog = new QFileDialog(this, uiText("Ajouter un dossier de polices"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    connect(dialog, &QFileDialog::filesSelected, this,
            [this](const QStringList &folders) { m_workspace.commands().addFolders(folders); });
    dialog->open();
}

void MainWindow::dragEnterEvent(QDragEnterEvent *event)
{
    if (!hasFamilies(*event->mimeData()) && !localFiles(event->mimeData()).isEmpty()) {
        event->setDropAction(Qt::CopyAction);
        event->accept();
    }
}

void MainWindow::dropEvent(QDropEvent *event)
{
    m_workspace.commands().addFolders(localFiles(event->mimeData()));
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

// Panels and windows.

void MainWindow::showPanel(Workspace::Panel panel)
{
    m_inspector->show();
    m_inspector->showPanel(panel);
}

void MainWindow::showSettings()
{
    auto *settings = findChild<SettingsWindow *>();
    if (settings == nullptr)
        settings = new SettingsWindow(m_workspace, this);
    settings->show();
    settings->raise();
    settings->activateWindow();
}

// How the window was left.

void MainWindow::restoreLayout()
{
    const Preferences &kept = m_workspace.preferences();
    AppState &state = m_workspace.state();
    if (!restoreGeometry(kept.layout(key("geometry")).toByteArray()))
        resize(kStandardSize);
    if (!m_splitter->restoreState(kept.layout(key("splitter")).toByteArray()))
        m_splitter->setSizes({kSidebarWidth, width() - kSidebarWidth - kInspectorWidth, kInspectorWidth});
    m_splitter->setChildrenCollapsible(false); // the state kept that too
    m_sidebar->setVisible(kept.layout(key("sidebar"), true).toBool());
    m_inspector->setVisible(kept.layout(key("inspector"), true).toBool());
    if (const auto mode = viewModeFromKey(kept.layout(key("view")).toString().toStdString()))
        state.viewMode = *mode;
    if (const auto selection = selectionFromText(kept.layout(key("selection")).toString().toStdString()))
        state.sidebarSelection = *selection;
    const QVariant panel = kept.layout(key("panel"));
    if (panel.isValid() && panel.toInt() >= 0 && panel.toInt() <= static_cast<int>(Workspace::Panel::similar))
        m_inspector->showPanel(static_cast<Workspace::Panel>(panel.toInt()));
    checkSelection();

    // Kept soon after each change, not only at closing: a session may end without it.
    m_keeping.setSingleShot(true);
    connect(&m_keeping, &QTimer::timeout, this, &MainWindow::keepLayout);
    const auto keep = [this] { m_keeping.start(kKeepingDelay); };
    connect(m_splitter, &QSplitter::splitterMoved, this, keep);
    m_observers.push_back(state.viewMode.addNotifier(keep));
    m_observers.push_back(state.sidebarSelection.addNotifier(keep));
}

// What was selected may be gone, which shows only when the library has been read.
void MainWindow::checkSelection()
{
    if (m_isSelectionChecked || !m_workspace.state().hasLoaded())
        return;
    m_isSelectionChecked = true;
    if (!selectionExists())
        m_workspace.state().sidebarSelection = SidebarSelection();
    selectOpened();
}

bool MainWindow::selectionExists() const
{
    using Kind = SidebarSelection::Kind;
    const AppState &state = m_workspace.state();
    const SidebarSelection &selection = state.sidebarSelection.value();
    switch (selection.kind) {
    case Kind::collection:
        return state.collectionCache().contains(selection.key);
    case Kind::folder:
        return state.folderLibrary().folder(selection.key).has_value();
    case Kind::smart:
        return std::any_of(state.smartCollections().begin(), state.smartCollections().end(),
                           [&](const SmartCollection &collection) { return collection.id == selection.key; });
    case Kind::tag:
        return std::any_of(state.tagsByFamily().begin(), state.tagsByFamily().end(),
                           [&](const auto &carried) { return carried.second.contains(selection.key); });
    default:
        return true;
    }
}

void MainWindow::keepLayout()
{
    Preferences &kept = m_workspace.preferences();
    kept.setLayout(key("geometry"), saveGeometry());
    kept.setLayout(key("splitter"), m_splitter->saveState());
    kept.setLayout(key("sidebar"), m_sidebar->isVisibleTo(this));
    kept.setLayout(key("inspector"), m_inspector->isVisibleTo(this));
    kept.setLayout(key("panel"), static_cast<int>(m_inspector->panel()));
    kept.setLayout(key("view"), QString::fromLatin1(viewModeKey(m_workspace.state().viewMode.value()).data()));
    if (m_isSelectionChecked) // else what was kept stands
        kept.setLayout(key("selection"),
                       QString::fromStdString(selectionText(m_workspace.state().sidebarSelection.value())));
}

void MainWindow::resizeEvent(QResizeEvent *event)
{
    QMainWindow::resizeEvent(event);
    if (isVisible())
        m_keeping.start(kKeepingDelay);
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    keepLayout();
    QMainWindow::closeEvent(event);
}

} // namespace kerlune
