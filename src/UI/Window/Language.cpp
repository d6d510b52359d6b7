#include "UI/Window/Language.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>

namespace kerlune {

namespace {

bool isEnglish(InterfaceLanguage language)
{
    if (language == InterfaceLanguage::system)
        return QLocale::system().language() != QLocale::French && QLocale::system().language() != QLocale::C;
    return language == InterfaceLanguage::english;
}

} // namespace

Language::Language(Preferences &preferences, QObject *parent)
    : QObject(parent)
    , m_preferences(preferences)
    , m_observer(preferences.language.addNotifier([this] { apply(); }))
{
    apply();
}

Language::~Language()
{
    QCoreApplication::removeTranslator(&m_own);
    QCoreApplication::removeTranslator(&m_qt);
}

void Language::apply()
{
    const bool english = isEnglish(m_preferences.language.value());
    QLocale::setDefault(QLocale(english ? QLocale::English : QLocale::French));
    QCoreApplication::removeTranslator(&m_own);
    QCoreApplication::removeTranslator(&m_qt);
    const QString code = english ? QStringLiteral("en") : QStringLiteral("fr");
    if (m_qt.load(QStringLiteral("qtbase_") + code, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&m_qt);
    if (english && m_own.load(QStringLiteral(":/translations/kerlune_en.qm")))
        QCoreApplication::installTranslator(&m_own);
}

} // namespace kerlune
