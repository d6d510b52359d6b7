#include "UI/Window/SettingsWindow.h"

#include "UI/InterfaceText.h"
#include "UI/Window/FolderSettings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QEvent>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace kerlune {

namespace {

constexpr QSize kSize{680, 460};
constexpr int kListWidth = 160;
constexpr double kLeastPreviewSize = 8; // points
constexpr double kMostPreviewSize = 400;

QLabel *note(const QString &text)
{
    auto *label = new QLabel(text);
    label->setProperty("secondary", true);
    label->setFont(Theme::font(TextSize::small));
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    return label;
}

QLabel *heading(const QString &text)
{
    auto *label = new QLabel(text);
    label->setFont(Theme::font(TextSize::title, QFont::DemiBold));
    return label;
}

QVBoxLayout *pageLayout(QWidget *page, const QString &title)
{
    auto *layout = new QVBoxLayout(page);
    layout->setContentsMargins(3 * kGridStep, 3 * kGridStep, 3 * kGridStep, 3 * kGridStep);
    layout->setSpacing(kGridStep);
    layout->addWidget(heading(title));
    layout->addSpacing(kGridStep);
    return layout;
}

// One of three values, each with its name.
template <typename Value>
QComboBox *choiceOf(QProperty<Value> &setting, const std::vector<std::pair<Value, QString>> &values)
{
    auto *box = new QComboBox;
    for (const auto &[value, text] : values) {
        box->addItem(text, static_cast<int>(value));
        if (value == setting.value())
            box->setCurrentIndex(box->count() - 1);
    }
    QObject::connect(box, &QComboBox::activated, box,
                     [box, &setting](int index) { setting = static_cast<Value>(box->itemData(index).toInt()); });
    return box;
}

} // namespace

SettingsWindow::SettingsWindow(Workspace &workspace, QWidget *parent)
    : QDialog(parent)
    , m_workspace(workspace)
    , m_list(new QListWidget)
    , m_pages(new QStackedWidget)
{
    setObjectName(QStringLiteral("settings"));
    m_list->setObjectName(QStringLiteral("settingsList"));
    m_list->setFixedWidth(kListWidth);
    auto *line = new QFrame;
    line->setFixedWidth(1);
    line->setProperty("verticalHairline", true);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_list);
    layout->addWidget(line);
    layout->addWidget(m_pages, 1);
    connect(m_list, &QListWidget::currentRowChanged, m_pages, &QStackedWidget::setCurrentIndex);
    fill();
    resize(kSize);
}

void SettingsWindow::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        fill();
    QDialog::changeEvent(event);
}

void SettingsWindow::fill()
{
    const int row = std::max(0, m_list->currentRow());
    m_observers.clear();
    m_list->clear();
    while (QWidget *page = m_pages->widget(0)) {
        m_pages->removeWidget(page);
        page->deleteLater(); // the change may come from a control on it
    }
    setWindowTitle(uiText("Réglages"));
    m_list->setAccessibleName(uiText("Réglages"));
    const auto add = [this](const QString &name, QWidget *page) {
        m_list->addItem(name);
        m_pages->addWidget(page);
    };
    add(uiText("Général"), generalPage());
    add(uiText("Aperçu"), previewPage());
    add(uiText("Bibliothèque"), new FolderSettings(m_workspace));
    add(uiText("Activation"), activationPage());
    add(uiText("Recherche"), searchPage());
    m_list->setCurrentRow(row);
}

QWidget *SettingsWindow::switchOf(const QString &text, QProperty<bool> &setting, const char *name)
{
    auto *box = new QCheckBox(text);
    box->setObjectName(QLatin1String(name));
    box->setChecked(setting.value());
    connect(box, &QCheckBox::toggled, this, [&setting](bool isOn) { setting = isOn; });
    m_observers.push_back(setting.addNotifier([box, &setting] { box->setChecked(setting.value()); }));
    return box;
}

QWidget *SettingsWindow::generalPage()
{
    Preferences &preferences = m_workspace.preferences();
    auto *page = new QWidget;
    auto *layout = pageLayout(page, uiText("Général"));
    auto *form = new QFormLayout;
    form->setSpacing(kGridStep);
    auto *language =
        choiceOf<InterfaceLanguage>(preferences.language, {{InterfaceLanguage::system, uiText("Celle du système")},
                                                           {InterfaceLanguage::french, QStringLiteral("Français")},
                                                           {InterfaceLanguage::english, QStringLiteral("English")}});
    language->setObjectName(QStringLiteral("language"));
    auto *appearance = choiceOf<Appearance>(preferences.appearance, {{Appearance::system, uiText("Celle du bureau")},
                                                                     {Appearance::light, uiText("Claire")},
                                                                     {Appearance::dark, uiText("Sombre")}});
    appearance->setObjectName(QStringLiteral("appearance"));
    form->addRow(uiText("Langue"), language);
    form->addRow(uiText("Apparence"), appearance);
    language->setAccessibleName(uiText("Langue"));
    appearance->setAccessibleName(uiText("Apparence"));
    layout->addLayout(form);
    layout->addSpacing(kGridStep);
    layout->addWidget(
        switchOf(uiText("Icône dans la zone de notification"), preferences.showMenuBarExtra, "showMenuBarExtra"));
    layout->addWidget(note(uiText("Elle donne vos polices récentes et favorites sans ouvrir la fenêtre. Tant qu’elle "
                                  "est là, fermer la fenêtre ne quitte pas Kerlune.")));
    layout->addStretch(1);
    return page;
}

QWidget *SettingsWindow::previewPage()
{
    AppState &state = m_workspace.state();
    Preferences &preferences = m_workspace.preferences();
    auto *page = new QWidget;
    auto *layout = pageLayout(page, uiText("Aperçu"));
    auto *form = new QFormLayout;
    form->setSpacing(kGridStep);

    auto *shownText = new QLineEdit(QString::fromStdString(state.previewText.value()));
    shownText->setObjectName(QStringLiteral("previewText"));
    connect(shownText, &QLineEdit::textEdited, this,
            [&state](const QString &text) { state.previewText = text.toStdString(); });
    m_observers.push_back(state.previewText.addNotifier([&state, shownText] {
        const QString text = QString::fromStdString(state.previewText.value());
        if (shownText->text() != text)
            shownText->setText(text);
    }));
    auto *own = new QLineEdit(preferences.customPreviewText.value());
    own->setObjectName(QStringLiteral("customPreviewText"));
    connect(own, &QLineEdit::textEdited, this,
            [&preferences](const QString &text) { preferences.customPreviewText = text; });
    auto *size = new QDoubleSpinBox;
    size->setObjectName(QStringLiteral("previewSize"));
    size->setDecimals(0);
    size->setRange(kLeastPreviewSize, kMostPreviewSize);
    size->setSuffix(uiText("\u00A0px"));
    size->setValue(state.previewSize.value());
    connect(size, &QDoubleSpinBox::valueChanged, this, [&state](double points) { state.previewSize = points; });
    m_observers.push_back(state.previewSize.addNotifier([&state, size] {
        const QSignalBlocker blocker(size); // what it rounds stays as it was
        size->setValue(state.previewSize.value());
    }));

    form->addRow(uiText("Texte montré"), shownText);
    form->addRow(uiText("Mon texte"), own);
    form->addRow(uiText("Taille"), size);
    shownText->setAccessibleName(uiText("Texte montré"));
    own->setAccessibleName(uiText("Mon texte"));
    size->setAccessibleName(uiText("Taille"));
    layout->addLayout(form);
    layout->addWidget(note(uiText("« Mon texte » se retrouve parmi les textes d’exemple, dans la barre d’outils.")));
    layout->addStretch(1);
    return page;
}

QWidget *SettingsWindow::activationPage()
{
    Preferences &preferences = m_workspace.preferences();
    auto *page = new QWidget;
    auto *layout = pageLayout(page, uiText("Activation"));
    layout->addWidget(switchOf(uiText("Activer les polices qui manquent à un document"),
                               preferences.autoActivateMissingFonts, "autoActivateMissingFonts"));
    layout->addWidget(switchOf(uiText("Raccourci global pour appliquer la police"), preferences.applyHotKeyEnabled,
                               "applyHotKeyEnabled"));
    layout->addSpacing(kGridStep);
    layout->addWidget(note(uiText("Ces deux réglages sont gardés, mais n’ont pas encore d’effet dans cette version.")));
    layout->addStretch(1);
    return page;
}

QWidget *SettingsWindow::searchPage()
{
    Preferences &preferences = m_workspace.preferences();
    auto *page = new QWidget;
    auto *layout = pageLayout(page, uiText("Recherche"));
    layout->addWidget(new QLabel(uiText("Écritures non latines")));
    layout->addWidget(
        switchOf(uiText("Écarter les polices non latines"), preferences.similarLatinOnly, "similarLatinOnly"));
    layout->addWidget(
        note(uiText("Les polices arabes, indiennes ou asiatiques ont souvent un latin générique qui remonte à tort "
                    "dans les résultats.")));
    layout->addSpacing(kGridStep);
    layout->addWidget(switchOf(uiText("Identification : chercher aussi dans Google Fonts"),
                               preferences.identifySearchesGoogle, "identifySearchesGoogle"));
    layout->addWidget(note(uiText("L’identification n’est pas encore dans cette version ; son réglage est gardé.")));
    layout->addStretch(1);
    return page;
}

} // namespace kerlune
