#include "UI/NamePrompt.h"

#include "UI/InterfaceText.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace kerlune {

namespace {

constexpr int kLeastWidth = 340;
constexpr int kLongestName = 200;

} // namespace

NamePrompt::NamePrompt(QWidget *parent)
    : QDialog(parent)
    , m_what(new QLabel(this))
    , m_name(new QLineEdit(this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setMinimumWidth(kLeastWidth);
    m_what->setTextFormat(Qt::PlainText);
    m_what->setWordWrap(true);
    m_name->setMaxLength(kLongestName);

    auto *buttons = new QDialogButtonBox(this);
    m_take = buttons->addButton(QString(), QDialogButtonBox::AcceptRole);
    m_cancel = buttons->addButton(QString(), QDialogButtonBox::RejectRole);
    m_take->setProperty("prominent", true);
    m_take->setEnabled(false);
    connect(m_name, &QLineEdit::textChanged, m_take,
            [this](const QString &text) { m_take->setEnabled(!text.trimmed().isEmpty()); });
    connect(buttons, &QDialogButtonBox::accepted, this, &NamePrompt::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &NamePrompt::reject);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(kCardPadding, kCardPadding, kCardPadding, kCardPadding);
    layout->setSpacing(kGridStep);
    layout->addWidget(m_what);
    layout->addWidget(m_name);
    layout->addSpacing(kGridStep);
    layout->addWidget(buttons);
    m_name->setFocus();
}

void NamePrompt::setTexts(const QString &title, const QString &what, const QString &nameLabel, const QString &takeLabel)
{
    setWindowTitle(title);
    m_what->setText(what);
    m_name->setAccessibleName(nameLabel);
    m_take->setText(takeLabel);
    m_cancel->setText(uiText("Annuler"));
}

void NamePrompt::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QDialog::changeEvent(event);
}

void NamePrompt::accept()
{
    const std::string name = m_name->text().trimmed().toStdString();
    if (!name.empty() && take(name))
        QDialog::accept();
}

} // namespace kerlune
