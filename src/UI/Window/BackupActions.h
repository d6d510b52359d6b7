#pragma once

#include "Store/UserData.h"
#include "UI/Workspace.h"

#include <QCoroTask>
#include <QObject>
#include <QString>

namespace kerlune {

// Saving and restoring what the user made, through files that the user chooses.
//
// Thread: main; files are read and written on others.
// Errors: told in a notice.
class BackupActions final : public QObject {
    Q_OBJECT

public:
    BackupActions(Workspace &workspace, QWidget &window);

    void save();
    void restore(); // asks first, and says what it adds

    QCoro::Task<> saveTo(QString file);
    QCoro::Task<> restoreFrom(QString file);

private:
    void ask(const QString &file, const UserData &data);
    QCoro::Task<> add(UserData data);
    void tellError(const std::string &text);

    Workspace &m_workspace;
    QWidget &m_window;
};

} // namespace kerlune
