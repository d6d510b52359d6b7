#pragma once

#include "State/Preferences.h"

#include <QObject>
#include <QTranslator>

namespace kerlune {

// The language of the interface, as the settings say; the texts follow at once when that changes.
//
// Thread: main.
class Language final : public QObject {
    Q_OBJECT

public:
    explicit Language(Preferences &preferences, QObject *parent = nullptr);
    ~Language() override;

private:
    void apply();

    Preferences &m_preferences;
    QTranslator m_own; // French is the language of the texts themselves
    QTranslator m_qt;  // buttons and dialogs of Qt's
    QPropertyNotifier m_observer;
};

} // namespace kerlune
