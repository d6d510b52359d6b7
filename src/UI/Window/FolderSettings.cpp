#include "UI/Window/FolderSettings.h"

#include "UI/InterfaceText.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace kerlune {

namespace {

enum Column { Automatic, Path, ColumnCount };
constexpr int kIdRole = Qt::UserRole;

} // namespace

FolderSettings::FolderSettings(Workspace &workspace, QWidget *parent)
    : QWidget(parent)
    , m_workspace(workspace)
    , m_table(new QTableWidget(0, ColumnCount))
    , m_add(new QPushButton(uiText("Ajouter un dossier…")))
    , m_remove(new QPushButton(uiText("Ne plus surveiller")))
{
    auto *title = new QLabel(uiText("Dossiers surveillés"));
    title->setFont(Theme::font(TextSize::title, QFont::DemiBold));
    m_table->setObjectName(QStringLiteral("folderTable"));
    m_table->setAccessibleName(uiText("Dossiers surveillés"));
    m_table->setHorizontalHeaderLabels({uiText("Activer"), uiText("Dossier")});
    m_table->horizontalHeader()->setStretchLastSection(true);
    m_table->horizontalHeader()->setHighlightSections(false);
    m_table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_table->verticalHeader()->hide();
    m_table->setShowGrid(false);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setTextElideMode(Qt::ElideMiddle);
    m_table->setTabKeyNavigation(false);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(m_add);
    buttons->addWidget(m_remove);
    buttons->addStretch(1);
    auto *hint = new QLabel(uiText("Coché : les nouvelles polices de ce dossier sont activées d’elles-mêmes."));
    hint->setProperty("secondary", true);
    hint->setFont(Theme::font(TextSize::small));
    hint->setWordWrap(true);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(3 * kGridStep, 3 * kGridStep, 3 * kGridStep, 3 * kGridStep);
    layout->setSpacing(kGridStep);
    layout->addWidget(title);
    layout->addWidget(m_table, 1);
    layout->addWidget(hint);
    layout->addLayout(buttons);

    connect(m_add, &QPushButton::clicked, &m_workspace, &Workspace::addFolderWanted);
    connect(m_remove, &QPushButton::clicked, this, &FolderSettings::removeCurrent);
    connect(m_table, &QTableWidget::itemChanged, this, [this](const QTableWidgetItem *item) {
        if (!m_isFilling && item->column() == Automatic)
            m_workspace.commands().setAutoActivate(item->data(kIdRole).toString().toStdString(),
                                                   item->checkState() == Qt::Checked);
    });
    connect(m_table, &QTableWidget::itemSelectionChanged, this,
            [this] { m_remove->setEnabled(!currentId().empty() && currentId() != kManagedLibraryId); });
    m_observers.push_back(m_workspace.state().folderLibrary().bindableFolders().addNotifier([this] { refresh(); }));
    refresh();
}

void FolderSettings::refresh()
{
    m_isFilling = true;
    const auto &folders = m_workspace.state().folderLibrary().folders();
    m_table->setRowCount(static_cast<int>(folders.size()));
    int row = 0;
    for (const WatchedFolder &folder : folders) {
        auto *automatic = new QTableWidgetItem;
        automatic->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        automatic->setCheckState(folder.autoActivate ? Qt::Checked : Qt::Unchecked);
        automatic->setData(kIdRole, QString::fromStdString(folder.id));
        automatic->setData(Qt::AccessibleTextRole, uiText("Activer les nouvelles polices"));
        auto *path = new QTableWidgetItem(shown(folder.path));
        path->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
        path->setToolTip(shownAsMarkup(folder.path));
        m_table->setItem(row, Automatic, automatic);
        m_table->setItem(row, Path, path);
        ++row;
    }
    m_isFilling = false;
    m_remove->setEnabled(!currentId().empty() && currentId() != kManagedLibraryId);
}

std::string FolderSettings::currentId() const
{
    const auto selected = m_table->selectedItems();
    return selected.isEmpty()
               ? std::string()
               : m_table->item(selected.first()->row(), Automatic)->data(kIdRole).toString().toStdString();
}

// It deactivates the folder's fonts, and cannot be taken back: it asks first.
void FolderSettings::removeCurrent()
{
    const auto folder = m_workspace.state().folderLibrary().folder(currentId());
    if (!folder)
        return;
    auto *box =
        new QMessageBox(QMessageBox::Question, uiText("Ne plus surveiller"),
                        uiText("Ne plus surveiller « %1 » ?", {shown(folder->path)}), QMessageBox::Cancel, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::PlainText);
    box->setInformativeText(uiText("Ses polices sont désactivées et quittent la bibliothèque. Aucun fichier n’est "
                                   "effacé."));
    box->button(QMessageBox::Cancel)->setText(uiText("Annuler"));
    const QPushButton *remove = box->addButton(uiText("Ne plus surveiller"), QMessageBox::AcceptRole);
    connect(remove, &QPushButton::clicked, this, [this, id = folder->id] { m_workspace.commands().removeFolder(id); });
    box->open();
}

} // namespace kerlune
