#include "UI/Window/BackupActions.h"

#include "State/BackupFile.h"
#include "UI/InterfaceText.h"

#include <QCoroFuture>
#include <QDate>
#include <QFileDialog>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QtConcurrentRun>

namespace kerlune {

namespace {

std::filesystem::path pathOf(const QString &file)
{
    return QFile::encodeName(file).toStdString();
}

QString filterText()
{
    return uiText("Sauvegardes de Kerlune (*.json)");
}

} // namespace

BackupActions::BackupActions(Workspace &workspace, QWidget &window)
    : QObject(&window)
    , m_workspace(workspace)
    , m_window(window)
{}

void BackupActions::save()
{
    auto *dialog = new QFileDialog(&m_window, uiText("Sauvegarder mes données"), {}, filterText());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setDefaultSuffix(QStringLiteral("json"));
    dialog->selectFile(QStringLiteral("kerlune-%1.json").arg(QDate::currentDate().toString(Qt::ISODate)));
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString &file) { saveTo(file); });
    dialog->open();
}

QCoro::Task<> BackupActions::saveTo(QString file)
{
    const QPointer<BackupActions> self(this);
    const auto store = m_workspace.state().store();
    if (store == nullptr)
        co_return;
    const auto saving = QtConcurrent::run([store, path = pathOf(file)] { return writeBackupFile(path, *store); });
    const auto saved = co_await saving;
    if (!self)
        co_return;
    if (saved)
        m_workspace.state().setNotice(
            {uiText("Sauvegardé : %1.", {QString::fromStdString(backupSummary(*saved))}).toStdString()});
    else
        tellError(saved.error());
}

void BackupActions::restore()
{
    auto *dialog = new QFileDialog(&m_window, uiText("Restaurer des données"), {}, filterText());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString &file) { restoreFrom(file); });
    dialog->open();
}

QCoro::Task<> BackupActions::restoreFrom(QString file)
{
    const QPointer<BackupActions> self(this);
    const auto reading = QtConcurrent::run([path = pathOf(file)] { return readBackupFile(path); });
    const auto data = co_await reading;
    if (!self)
        co_return;
    if (data) {
        ask(file, *data);
        co_return;
    }
    tellError(uiText("« %1 » ne peut pas être restauré : %2. Rien n’a changé.",
                     {shown(file.toStdString()), shown(data.error())})
                  .toStdString());
}

void BackupActions::ask(const QString &file, const UserData &data)
{
    auto *box = new QMessageBox(QMessageBox::Question, uiText("Restaurer des données"),
                                uiText("Ajouter à votre bibliothèque ce que contient « %1 » ?",
                                       {shown(QFileInfo(file).fileName().toStdString())}),
                                QMessageBox::Cancel, &m_window);
    box->setObjectName(QStringLiteral("restoreQuestion"));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::PlainText);
    box->setInformativeText(uiText("%1. Ce que vous avez déjà reste ; une collection du même identifiant prend le nom "
                                   "de la sauvegarde et ses familles en plus.",
                                   {QString::fromStdString(backupSummary(data))}));
    QPushButton *add = box->addButton(uiText("Restaurer"), QMessageBox::AcceptRole);
    box->button(QMessageBox::Cancel)->setText(uiText("Annuler"));
    box->setDefaultButton(add);
    connect(add, &QPushButton::clicked, this, [this, data] { this->add(data); });
    box->open();
}

QCoro::Task<> BackupActions::add(UserData data)
{
    const QPointer<BackupActions> self(this);
    const auto store = m_workspace.state().store();
    if (store == nullptr)
        co_return;
    const auto restoring = QtConcurrent::run([store, data] { return store->restore(data); });
    const auto restored = co_await restoring;
    if (!self)
        co_return;
    if (!restored) {
        tellError(restored.error().description());
        co_return;
    }
    m_workspace.undoStack().clear(); // what stands there speaks of what was before
    m_workspace.state().reloadUserData();
    m_workspace.state().setNotice(
        {uiText("Restauré : %1.", {QString::fromStdString(backupSummary(data))}).toStdString()});
}

void BackupActions::tellError(const std::string &text)
{
    m_workspace.state().setNotice({text, true});
}

} // namespace kerlune
