#include "UI/Window/TrayPicker.h"

#include "UI/InterfaceText.h"
#include "UI/Preview/PreviewLabel.h"

#include <QAction>
#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>

namespace kerlune {

namespace {

constexpr QSize kPickerSize{320, 420};
constexpr std::size_t kMostRows = 20; // of each section
constexpr int kRowHeight = 36;
constexpr double kRowSize = 18; // pixels

} // namespace

TrayPicker::TrayPicker(Workspace &workspace, QWidget *parent)
    : QFrame(parent, Qt::Popup)
    , m_workspace(workspace)
    , m_menu(new QMenu(this))
    , m_openPicker(new QAction(this))
    , m_openWindow(new QAction(this))
    , m_quit(new QAction(this))
    , m_search(new QLineEdit)
    , m_list(new QListWidget)
    , m_apply(new QPushButton)
    , m_copy(new QPushButton)
    , m_open(new QPushButton)
{
    setObjectName(QStringLiteral("trayPicker"));
    setProperty("floating", true);
    resize(kPickerSize);
    m_search->setObjectName(QStringLiteral("traySearch"));
    m_search->installEventFilter(this);
    m_list->setObjectName(QStringLiteral("trayList"));
    m_list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto *buttons = new QHBoxLayout;
    m_apply->setObjectName(QStringLiteral("trayApply"));
    buttons->addWidget(m_apply);
    buttons->addWidget(m_copy);
    buttons->addStretch(1);
    buttons->addWidget(m_open);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 12, 12, 12);
    layout->setSpacing(kGridStep);
    layout->addWidget(m_search);
    layout->addWidget(m_list, 1);
    layout->addLayout(buttons);

    makeMenu();
    connect(m_search, &QLineEdit::textChanged, this, &TrayPicker::fill);
    connect(m_list, &QListWidget::itemActivated, this, &TrayPicker::choose);
    connect(m_apply, &QPushButton::clicked, this, &TrayPicker::apply);
    connect(m_copy, &QPushButton::clicked, this, &TrayPicker::copyName);
    connect(m_open, &QPushButton::clicked, this, [this] {
        hide();
        Q_EMIT windowWanted();
    });
    m_observers.push_back(m_workspace.preferences().showMenuBarExtra.addNotifier([this] { showTray(); }));
    retranslate();
    showTray();
}

TrayPicker::~TrayPicker() = default;

void TrayPicker::makeMenu()
{
    m_menu->addActions({m_openPicker, m_openWindow});
    m_menu->addSeparator();
    m_menu->addAction(m_quit);
    connect(m_openPicker, &QAction::triggered, this, &TrayPicker::popUp);
    connect(m_openWindow, &QAction::triggered, this, &TrayPicker::windowWanted);
    connect(m_quit, &QAction::triggered, this, &TrayPicker::quitWanted);
    m_tray.setContextMenu(m_menu);
    m_tray.setIcon(QIcon(QStringLiteral(":/icons/application.svg")));
    connect(&m_tray, &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        if (reason == QSystemTrayIcon::Trigger)
            popUp();
    });
}

void TrayPicker::retranslate()
{
    m_tray.setToolTip(QStringLiteral("Kerlune"));
    m_openPicker->setText(uiText("Polices récentes et favorites"));
    m_openWindow->setText(uiText("Ouvrir Kerlune"));
    m_quit->setText(uiText("Quitter"));
    m_search->setPlaceholderText(uiText("Rechercher une police"));
    m_search->setAccessibleName(uiText("Rechercher une police"));
    m_list->setAccessibleName(uiText("Polices récentes et favorites"));
    m_apply->setText(uiText("Appliquer"));
    m_apply->setToolTip(uiText("Donne la police au texte sélectionné dans le logiciel utilisé avant Kerlune"));
    m_copy->setText(uiText("Copier le nom"));
    m_open->setText(uiText("Ouvrir Kerlune"));
    if (isVisible())
        fill();
}

void TrayPicker::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QFrame::changeEvent(event);
}

void TrayPicker::showTray()
{
    m_tray.setVisible(m_workspace.preferences().showMenuBarExtra.value() && QSystemTrayIcon::isSystemTrayAvailable());
}

// Near the icon where the desktop tells its place, else in the corner.
void TrayPicker::popUp()
{
    fill();
    const QRect room = QGuiApplication::primaryScreen()->availableGeometry();
    const QRect icon = m_tray.geometry();
    const QPoint corner = icon.isValid() ? icon.center() : room.topRight();
    move(std::clamp(corner.x() - width() / 2, room.left(), std::max(room.left(), room.right() - width())),
         std::clamp(corner.y(), room.top(), std::max(room.top(), room.bottom() - height())));
    show();
    m_search->setFocus();
}

void TrayPicker::fill()
{
    m_list->clear();
    const AppState &state = m_workspace.state();
    const QString search = m_search->text().trimmed();
    if (search.isEmpty()) {
        addSection(uiText("Récents"), state.recents());
        addSection(uiText("Favoris"), {state.favorites().begin(), state.favorites().end()});
    } else {
        std::vector<std::string> found;
        for (const FontFamilyPointer &family : state.families()) {
            if (found.size() == kMostRows)
                break;
            if (shown(family->name).contains(search, Qt::CaseInsensitive))
                found.push_back(family->name);
        }
        addSection(uiText("Polices trouvées"), found);
    }
    for (int row = 0; row < m_list->count() && m_list->currentRow() < 0; ++row) {
        if (m_list->item(row)->flags().testFlag(Qt::ItemIsSelectable))
            m_list->setCurrentRow(row);
    }
    for (QPushButton *button : {m_apply, m_copy})
        button->setEnabled(m_list->currentRow() >= 0);
}

void TrayPicker::addSection(const QString &title, const std::vector<std::string> &families)
{
    auto *heading = new QListWidgetItem(title, m_list);
    heading->setFlags(Qt::ItemIsEnabled);
    heading->setFont(Theme::font(TextSize::small, QFont::DemiBold));
    std::size_t count = 0;
    for (const std::string &name : families) {
        const FontFamilyPointer family = m_workspace.state().family(name);
        if (family == nullptr)
            continue;
        if (count == kMostRows)
            break;
        ++count;
        auto *item = new QListWidgetItem(m_list);
        item->setData(Qt::UserRole, QString::fromStdString(name));
        item->setData(Qt::AccessibleTextRole, shown(name));
        item->setToolTip(shownAsMarkup(name));
        item->setSizeHint({0, kRowHeight});
        auto *label = new PreviewLabel(m_workspace);
        label->setContent({.face = family->representative(), .text = name, .emSize = kRowSize});
        m_list->setItemWidget(item, label);
    }
    if (count == 0)
        heading->setText(title + QStringLiteral(" · ") + uiText("aucune police"));
}

std::optional<std::string> TrayPicker::currentName() const
{
    const QListWidgetItem *item = m_list->currentItem();
    if (item == nullptr || item->data(Qt::UserRole).isNull())
        return std::nullopt;
    return item->data(Qt::UserRole).toString().toStdString();
}

void TrayPicker::choose()
{
    const auto name = currentName();
    if (!name)
        return;
    hide();
    Q_EMIT familyChosen(QString::fromStdString(*name));
}

void TrayPicker::copyName()
{
    const auto name = currentName();
    if (!name)
        return;
    QGuiApplication::clipboard()->setText(shown(*name));
    m_workspace.state().noteUsed(*name);
    hide();
}

void TrayPicker::apply()
{
    const auto name = currentName();
    if (!name)
        return;
    hide();
    m_workspace.select({*name});
    m_workspace.state().applyCurrentToFrontmost();
}

void TrayPicker::tell(const Notice &notice)
{
    constexpr int kShownFor = 5'000; // milliseconds
    if (m_tray.isVisible())
        m_tray.showMessage(QStringLiteral("Kerlune"), shown(notice.text),
                           notice.isError ? QSystemTrayIcon::Warning : QSystemTrayIcon::Information, kShownFor);
}

// The arrows move in the list while one types.
bool TrayPicker::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_search && event->type() == QEvent::KeyPress) {
        const auto *key = static_cast<QKeyEvent *>(event);
        if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
            choose();
            return true;
        }
        if (key->key() == Qt::Key_Up || key->key() == Qt::Key_Down)
            return QCoreApplication::sendEvent(m_list, event);
    }
    return QFrame::eventFilter(watched, event);
}

} // namespace kerlune
