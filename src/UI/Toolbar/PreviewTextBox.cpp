#include "UI/Toolbar/PreviewTextBox.h"

#include "Support/Localization.h"
#include "UI/InterfaceText.h"

#include <QAction>
#include <QKeyEvent>
#include <QMenu>

#include <algorithm>
#include <array>
#include <chrono>

namespace kerlune {

namespace {

using namespace std::chrono_literals;

struct Sample {
    const char *name;
    const char *text;
};

constexpr std::array<Sample, 5> kSamples{{
    {marked("Alphabet"), marked("ABCDEFGHIJKLMNOPQRSTUVWXYZ abcdefghijklmnopqrstuvwxyz àâæçéèêëîïôœùûü")},
    {marked("Pangramme"), marked("Voyez le brick géant que j’examine près du wharf.")},
    {marked("Chiffres"), marked("0123456789 1 280,50 € 24 × 36 mm 7½ % n° 18 +33 (0)1")},
    {marked("Paragraphe"),
     marked("Un caractère se juge à la page : la régularité du gris, le blanc des lettres, la marche des lignes. "
            "Lu longtemps, le bon dessin s’efface ; il reste une voix, un rythme, une couleur.")},
    {marked("Titre"), marked("La nuit, tous les titres sont gras")},
}};

QString oneLine(const QString &text)
{
    constexpr qsizetype kMost = 40;
    QString line = shown(text.toStdString()).simplified();
    if (line.size() > kMost)
        line = line.left(kMost) + QChar(u'…');
    return line.replace(u'&', QStringLiteral("&&"));
}

} // namespace

PreviewTextBox::PreviewTextBox(Workspace &workspace, QWidget *parent)
    : QLineEdit(parent)
    , m_workspace(workspace)
    , m_samples(addAction(workspace.theme().icon("chevron-down"), QLineEdit::TrailingPosition))
{
    setObjectName(QStringLiteral("previewText"));
    m_samples->setObjectName(QStringLiteral("previewSamples"));
    connect(m_samples, &QAction::triggered, this, &PreviewTextBox::showMenu);
    m_keeping.setSingleShot(true);
    m_keeping.setInterval(500ms);
    connect(&m_keeping, &QTimer::timeout, this, &PreviewTextBox::keepOwnText);
    connect(this, &QLineEdit::textEdited, this, [this](const QString &typed) {
        m_workspace.state().previewText = typed.toStdString();
        m_keeping.start();
    });
    m_observers.push_back(workspace.state().previewText.addNotifier([this] { showText(); }));
    retranslate();
    showText();
}

PreviewTextBox::~PreviewTextBox()
{
    if (m_keeping.isActive())
        keepOwnText();
}

void PreviewTextBox::keepOwnText()
{
    m_keeping.stop();
    if (!text().trimmed().isEmpty())
        m_workspace.preferences().customPreviewText = text();
}

void PreviewTextBox::showText()
{
    const QString wanted = QString::fromStdString(m_workspace.state().previewText.value());
    if (wanted == text())
        return;
    setText(wanted);
    setCursorPosition(0);
}

void PreviewTextBox::showMenu()
{
    if (m_keeping.isActive())
        keepOwnText();
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [&](const QString &label, const QString &sample) {
        QAction *action =
            menu->addAction(label, this, [this, sample] { m_workspace.state().previewText = sample.toStdString(); });
        action->setCheckable(true);
        action->setChecked(sample == text());
    };
    const QString own = m_workspace.preferences().customPreviewText.value();
    if (!own.trimmed().isEmpty()) {
        add(uiText("« %1 »", {oneLine(own)}), own);
        menu->addSeparator();
    }
    for (const Sample &sample : kSamples)
        add(uiText(sample.name), uiText(sample.text));
    menu->setMinimumWidth(std::min(width(), 240));
    menu->popup(mapToGlobal(QPoint(0, height() + 2)));
}

void PreviewTextBox::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Down) {
        showMenu();
    } else if (event->key() == Qt::Key_Escape || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        Q_EMIT m_workspace.browserWanted();
    } else {
        QLineEdit::keyPressEvent(event);
    }
}

void PreviewTextBox::retranslate()
{
    setAccessibleName(uiText("Texte d’aperçu"));
    setPlaceholderText(uiText("Texte d’aperçu"));
    m_samples->setText(uiText("Choisir un texte"));
    m_samples->setToolTip(uiText("Choisir un texte"));
}

void PreviewTextBox::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QLineEdit::changeEvent(event);
}

} // namespace kerlune
