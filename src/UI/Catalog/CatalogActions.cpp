#include "UI/Catalog/CatalogActions.h"

#include "Support/Localization.h"
#include "UI/InterfaceText.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>

namespace kerlune {

CatalogActions::CatalogActions(Workspace &workspace, QWidget &parent)
    : QObject(&parent)
    , m_workspace(workspace)
    , m_parent(parent)
{}

void CatalogActions::install(const std::string &family)
{
    AppState &state = m_workspace.state();
    if (!state.googleInstalledFamilies().contains(family))
        state.installGoogleFamily(family);
}

void CatalogActions::askToRemove(const std::string &family)
{
    auto *question = new QMessageBox(&m_parent);
    question->setAttribute(Qt::WA_DeleteOnClose);
    question->setIcon(QMessageBox::Question);
    question->setTextFormat(Qt::PlainText);
    question->setWindowTitle(uiText("Retirer une famille"));
    question->setText(uiText("Retirer « %1 » ?", {shown(family)}));
    question->setInformativeText(
        uiText("Les autres programmes ne la voient plus. Ses fichiers vont dans la corbeille."));
    const QPushButton *remove = question->addButton(uiText("Retirer"), QMessageBox::AcceptRole);
    QPushButton *cancel = question->addButton(uiText("Annuler"), QMessageBox::RejectRole);
    question->setDefaultButton(cancel);
    question->setEscapeButton(cancel);
    connect(remove, &QPushButton::clicked, this, [this, family] { m_workspace.state().removeGoogleFamily(family); });
    question->open();
}

void CatalogActions::compare(const std::string &family)
{
    AppState &state = m_workspace.state();
    if (const GoogleFontFamily *listed = state.googleFamily(family))
        state.googlePreviews().request(*listed);
    const std::size_t before = state.comparisonSet.value().size();
    m_workspace.addToComparison({family});
    if (state.comparisonSet.value().size() > before)
        state.setNotice({localized("« %1 » est dans la comparaison.", {family})});
}

void CatalogActions::showInLibrary(const std::string &family)
{
    AppState &state = m_workspace.state();
    if (state.family(family) == nullptr) {
        state.setNotice({localized("« %1 » n’est pas encore dans la bibliothèque.", {family})});
        return;
    }
    state.filters = Filters();
    state.sidebarSelection = SidebarSelection();
    m_workspace.select({family});
    state.scrollTarget = family;
}

void CatalogActions::openMenu(const std::string &family, const QPoint &globalPosition)
{
    const AppState &state = m_workspace.state();
    const bool isInstalled = state.googleInstalledFamilies().contains(family);
    auto *menu = new QMenu(&m_parent);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (isInstalled) {
        menu->addAction(uiText("Voir dans la bibliothèque"), this, [this, family] { showInLibrary(family); });
        menu->addAction(uiText("Retirer…"), this, [this, family] { askToRemove(family); });
    } else {
        QAction *install = menu->addAction(uiText("Installer"), this, [this, family] { this->install(family); });
        install->setEnabled(!state.googleInstallProgress().contains(family));
    }
    menu->addSeparator();
    menu->addAction(uiText("Ajouter à la comparaison"), this, [this, family] { compare(family); });
    menu->addAction(uiText("Copier le nom"), this,
                    [family] { QGuiApplication::clipboard()->setText(QString::fromStdString(family)); });
    menu->popup(globalPosition);
}

} // namespace kerlune
