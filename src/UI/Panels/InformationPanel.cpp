#include "UI/Panels/InformationPanel.h"

#include "Export/CssText.h"
#include "Model/ScriptCoverage.h"
#include "Support/Localization.h"
#include "UI/InterfaceText.h"
#include "UI/Panels/ChipRow.h"
#include "UI/Panels/FactList.h"
#include "UI/Panels/FlowLayout.h"

#include <QClipboard>
#include <QDateTime>
#include <QDesktopServices>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QPushButton>
#include <QScrollArea>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>

#include <cmath>
#include <utility>

namespace kerlune {

namespace {

QString orNothing(const std::optional<std::string> &text)
{
    return text ? shown(*text) : QString();
}

QString fontUnits(double ofEm, std::uint32_t unitsPerEm)
{
    return QString::fromStdString(groupedDigits(std::lround(ofEm * unitsPerEm)));
}

QString modificationDate(double seconds)
{
    constexpr double kMostSeconds = 1e11; // some thousand years
    if (!std::isfinite(seconds) || std::abs(seconds) > kMostSeconds)
        return {};
    return QLocale().toString(QDateTime::fromSecsSinceEpoch(static_cast<qint64>(seconds)), QLocale::ShortFormat);
}

QPushButton *makeButton(QWidget *parent, const char *name)
{
    auto *const button = new QPushButton(parent);
    button->setObjectName(QLatin1String(name));
    return button;
}

} // namespace

InformationPanel::InformationPanel(Workspace &workspace, QWidget *parent)
    : FacePanel(workspace, parent)
{
    auto *const area = new QScrollArea(this);
    area->setWidgetResizable(true);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setFocusPolicy(Qt::NoFocus);
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(area);
    area->setWidget(makeContents());
    connectButtons();
    AppState &state = workspace.state();
    m_observers.push_back(state.tagsByFamily.observe([this] { showTags(); }));
    m_observers.push_back(state.collections.observe([this] { showCollections(); }));
    m_observers.push_back(state.collectionCache.observe([this] { showCollections(); }));
    InformationPanel::retranslate();
}

QLabel *InformationPanel::makeTitle()
{
    auto *const title = new QLabel(this);
    title->setFont(Theme::font(TextSize::body, QFont::DemiBold));
    title->setContentsMargins(0, 2 * kGridStep, 0, 0);
    return title;
}

QWidget *InformationPanel::makeContents()
{
    auto *const contents = new QWidget;
    auto *const column = new QVBoxLayout(contents);
    column->setContentsMargins(kCardPadding, kCardGap, kCardPadding, kCardPadding);
    column->setSpacing(kGridStep);

    column->addWidget(m_names = new FactList(contents));
    auto *const copies = new QWidget(contents);
    auto *const flow = new FlowLayout(copies);
    flow->addWidget(m_copyName = makeButton(copies, "copyPostScriptName"));
    flow->addWidget(m_copyCss = makeButton(copies, "copyCss"));
    flow->addWidget(m_copyRule = makeButton(copies, "copyFontFace"));
    column->addWidget(copies);

    column->addWidget(m_tagsTitle = makeTitle());
    column->addWidget(m_tags = new ChipRow(workspace().theme(), contents));
    m_tags->setObjectName(QStringLiteral("tags"));
    column->addWidget(m_collectionsTitle = makeTitle());
    column->addWidget(m_collections = new ChipRow(workspace().theme(), contents));
    m_collections->setObjectName(QStringLiteral("collections"));

    column->addWidget(m_measuresTitle = makeTitle());
    column->addWidget(m_measures = new FactList(contents));
    column->addWidget(m_languagesTitle = makeTitle());
    column->addWidget(m_languages = new FactList(contents));
    column->addWidget(m_fileTitle = makeTitle());
    column->addWidget(m_file = new FactList(contents));
    column->addWidget(makeFileButtons());
    column->addStretch(1);
    return contents;
}

QWidget *InformationPanel::makeFileButtons()
{
    auto *const buttons = new QWidget(this);
    auto *const flow = new FlowLayout(buttons);
    flow->addWidget(m_openFolder = makeButton(buttons, "openFolder"));
    flow->addWidget(m_copyPath = makeButton(buttons, "copyPath"));
    return buttons;
}

void InformationPanel::connectButtons()
{
    connect(m_names, &FactList::linkActivated, this, &InformationPanel::openLink);
    connect(m_openFolder, &QPushButton::clicked, this, &InformationPanel::openFolder);
    connect(m_copyName, &QPushButton::clicked, this,
            [this] { copy(QString::fromStdString(face()->postScriptName), marked("Nom PostScript copié.")); });
    connect(m_copyPath, &QPushButton::clicked, this,
            [this] { copy(QString::fromStdString(face()->filePath), marked("Chemin copié.")); });
    const auto cssOf = [this] { return cssFace(*face(), m_details ? m_details->space : FaceAxes()); };
    connect(m_copyCss, &QPushButton::clicked, this, [this, cssOf] {
        copy(QString::fromStdString(
                 cssDeclarations(cssOf(), workspace().features.value(), workspace().coordinates.value())),
             marked("CSS copié."));
    });
    connect(m_copyRule, &QPushButton::clicked, this,
            [this, cssOf] { copy(QString::fromStdString(cssFontFaceRule(cssOf())), marked("CSS copié.")); });

    connect(m_tags, &ChipRow::removeWanted, this,
            [this](const std::string &tag) { workspace().commands().setTag(tag, {family()->name}, false); });
    connect(m_tags->addButton(), &QToolButton::clicked, this,
            [this] { workspace().state().tagPromptFamilies = std::vector<std::string>{family()->name}; });
    connect(m_collections, &ChipRow::removeWanted, this, [this](const std::string &collection) {
        workspace().commands().removeFromCollection(collection, {family()->name});
    });
    connect(m_collections->addButton(), &QToolButton::clicked, this, &InformationPanel::offerCollections);
}

void InformationPanel::showFace(Change)
{
    m_details.reset();
    retranslate();
    if (face() == nullptr)
        return;
    const auto read = [](const std::shared_ptr<const FontFace> &open) {
        return Details{open->unitsPerEm(), readMetrics(open), readAxes(*open)};
    };
    readFace(read, [this](std::optional<Details> details) {
        m_details = std::move(details);
        showMeasures();
    });
}

void InformationPanel::retranslate()
{
    m_tagsTitle->setText(uiText("Tags"));
    m_collectionsTitle->setText(uiText("Collections"));
    m_measuresTitle->setText(uiText("Mesures"));
    m_languagesTitle->setText(uiText("Couverture"));
    m_fileTitle->setText(uiText("Fichier"));
    m_copyName->setText(uiText("Copier le nom PostScript"));
    m_copyCss->setText(uiText("Copier le CSS"));
    m_copyRule->setText(uiText("Copier @font-face"));
    m_openFolder->setText(uiText("Ouvrir le dossier"));
    m_copyPath->setText(uiText("Copier le chemin"));
    for (const auto &[row, text] :
         {std::pair(m_tags, uiText("Ajouter un tag…")), std::pair(m_collections, uiText("Ajouter à une collection"))}) {
        row->addButton()->setToolTip(text);
        row->addButton()->setAccessibleName(text);
    }
    if (face() == nullptr)
        return;
    showFacts();
    showMeasures();
    showLanguages();
    showTags();
    showCollections();
}

void InformationPanel::showFacts()
{
    const FontRecord &record = *face();
    const QString licence = orNothing(record.licenseURL).trimmed();
    m_names->setFacts({{uiText("Nom PostScript"), shown(record.postScriptName)},
                       {uiText("Version"), orNothing(record.version)},
                       {uiText("Fonderie"), orNothing(record.foundry)},
                       {uiText("Création"), orNothing(record.designer)},
                       {uiText("Copyright"), orNothing(record.copyrightNotice)},
                       {uiText("Licence"), licence, QUrl(licence, QUrl::StrictMode)},
                       {uiText("Intégration"), QString::fromStdString(label(record.embeddingRights()))}});
    m_file->setFacts({{uiText("Nom"), shown(record.filePath.substr(record.filePath.rfind('/') + 1))},
                      {uiText("Dossier"), shown(record.filePath.substr(0, record.filePath.rfind('/')))},
                      {uiText("Taille"), QString::fromStdString(displaySize(record.fileSize))},
                      {uiText("Modifié le"), modificationDate(record.mtime)}});
}

void InformationPanel::showMeasures()
{
    const FontRecord &record = *face();
    std::vector<Fact> facts{
        {uiText("Classe"), QString::fromStdString(label(record.classification))},
        {uiText("Graisse"), QString::number(record.cssWeight())},
        {uiText("Chasse"), uiText("%1 %", {QLocale().toString(cssFace(record).ownStretch)})},
        {uiText("Glyphes"), QString::fromStdString(groupedDigits(record.glyphCount))},
    };
    if (m_details && m_details->unitsPerEm > 0) {
        const std::uint32_t em = m_details->unitsPerEm;
        const FontMetrics &metrics = m_details->metrics;
        facts.push_back({uiText("Unités par cadratin"), QString::fromStdString(groupedDigits(em))});
        facts.push_back({uiText("Ascendante"), fontUnits(metrics.ascent, em)});
        facts.push_back({uiText("Descendante"), fontUnits(-metrics.descent, em)});
        facts.push_back({uiText("Hauteur d’x"), fontUnits(metrics.xHeight, em)});
        facts.push_back({uiText("Hauteur des capitales"), fontUnits(metrics.capHeight, em)});
    }
    m_measures->setFacts(facts);
}

void InformationPanel::showLanguages()
{
    std::vector<Fact> facts;
    const auto covered = ScriptCoverage::languages(face()->scriptMask);
    for (const std::string &group : ScriptCoverage::groups()) {
        QStringList names;
        for (const auto &language : covered) {
            if (language.group == group)
                names.push_back(QString::fromStdString(language.label()));
        }
        facts.push_back({QString::fromStdString(ScriptCoverage::groupLabel(group)), names.join(QStringLiteral(", "))});
    }
    m_languages->setFacts(facts);
    m_languagesTitle->setVisible(!covered.empty());
    m_languages->setVisible(!covered.empty());
}

void InformationPanel::showTags()
{
    if (family() == nullptr)
        return;
    std::vector<ChipRow::Chip> chips;
    for (const std::string &tag : workspace().state().tags(family()->name))
        chips.push_back({tag, shown(tag), uiText("Retirer le tag « %1 »", {shown(tag)})});
    m_tags->setChips(std::move(chips));
}

void InformationPanel::showCollections()
{
    if (family() == nullptr)
        return;
    std::vector<ChipRow::Chip> chips;
    const auto &members = workspace().state().collectionCache();
    for (const auto &collection : workspace().state().collections()) {
        const auto found = members.find(collection.id);
        if (found != members.end() && found->second.contains(family()->name))
            chips.push_back({collection.id, shown(collection.name),
                             uiText("Retirer de la collection « %1 »", {shown(collection.name)})});
    }
    m_collections->setChips(std::move(chips));
}

void InformationPanel::offerCollections()
{
    auto *const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto &members = workspace().state().collectionCache();
    for (const auto &collection : workspace().state().collections()) {
        const auto found = members.find(collection.id);
        if (found != members.end() && found->second.contains(family()->name))
            continue;
        menu->addAction(
            shown(collection.name).replace(u'&', QLatin1String("&&")), this,
            [this, id = collection.id, name = family()->name] { workspace().commands().addToCollection(id, {name}); });
    }
    menu->addSeparator();
    menu->addAction(uiText("Nouvelle collection…"), this, [this, name = family()->name] {
        const auto id = workspace().commands().createCollection(localized("Nouvelle collection"), {name});
        if (id)
            Q_EMIT workspace().collectionNameWanted(QString::fromStdString(*id));
    });
    const QToolButton *const button = m_collections->addButton();
    menu->popup(button->mapToGlobal(QPoint(0, button->height())));
}

void InformationPanel::copy(const QString &text, const char *notice)
{
    QGuiApplication::clipboard()->setText(text);
    workspace().state().setNotice({localized(notice)});
}

void InformationPanel::openLink(const QUrl &link)
{
    if (!QDesktopServices::openUrl(link))
        workspace().state().setNotice({localized("Aucun programme n’ouvre ce lien."), true});
}

void InformationPanel::openFolder()
{
    const QString folder = QFileInfo(QString::fromStdString(face()->filePath)).path();
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(folder)))
        workspace().state().setNotice({localized("Le dossier n’a pas pu être ouvert."), true});
}

} // namespace kerlune
