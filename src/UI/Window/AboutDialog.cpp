#include "UI/Window/AboutDialog.h"

#include "UI/InterfaceText.h"
#include "UI/Workspace.h"

#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace kerlune {

void AboutDialog::open(Workspace &workspace, QWidget *parent)
{
    constexpr int kIconSize = 64;
    auto *dialog = new QDialog(parent);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setObjectName(QStringLiteral("about"));
    dialog->setWindowTitle(uiText("À propos de Kerlune"));
    auto *icon = new QLabel;
    icon->setPixmap(workspace.theme().iconPixmap("kerlune", kIconSize, workspace.theme().colors().text,
                                                 parent->devicePixelRatioF()));
    auto *name = new QLabel(QStringLiteral("Kerlune ") + QCoreApplication::applicationVersion());
    name->setFont(Theme::font(TextSize::large, QFont::DemiBold));
    auto *text = new QLabel(uiText("La bibliothèque de polices des graphistes et des monteurs.\nElle montre, classe et "
                                   "active vos polices, sans toucher à leurs fichiers.\n\nLogiciel libre, sous licence "
                                   "MIT."));
    text->setProperty("secondary", true);
    text->setAlignment(Qt::AlignCenter);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    buttons->button(QDialogButtonBox::Close)->setText(uiText("Fermer"));
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    auto *layout = new QVBoxLayout(dialog);
    layout->setContentsMargins(4 * kGridStep, 3 * kGridStep, 4 * kGridStep, 2 * kGridStep);
    layout->setSpacing(kGridStep);
    layout->addWidget(icon, 0, Qt::AlignHCenter);
    layout->addWidget(name, 0, Qt::AlignHCenter);
    layout->addWidget(text, 0, Qt::AlignHCenter);
    layout->addSpacing(kGridStep);
    layout->addWidget(buttons);
    dialog->open();
}

} // namespace kerlune
