#pragma once

#include <QObject>

class QDBusVariant;

namespace kerlune {

// Whether the desktop asks for dark windows, by its settings portal. Without a session bus or a portal it does not.
//
// Thread: main; it never waits.
class DesktopAppearance final : public QObject {
    Q_OBJECT

public:
    explicit DesktopAppearance(QObject *parent = nullptr); // asks; the answer comes as changed()

Q_SIGNALS:
    void changed(bool isDark);

private Q_SLOTS:
    void noteSetting(const QString &group, const QString &key, const QDBusVariant &value);
};

} // namespace kerlune
