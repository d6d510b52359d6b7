#include "UI/SearchField.h"

#include "UI/InterfaceText.h"

#include <QAbstractButton>
#include <QEvent>

namespace kerlune {

SearchField::SearchField(QWidget *parent)
    : QLineEdit(parent)
{
    setClearButtonEnabled(true);
    m_clear = findChild<QAbstractButton *>();
    nameClearButton();
}

void SearchField::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        nameClearButton();
    QLineEdit::changeEvent(event);
}

void SearchField::nameClearButton()
{
    if (m_clear != nullptr)
        m_clear->setAccessibleName(uiText("Effacer"));
}

} // namespace kerlune
