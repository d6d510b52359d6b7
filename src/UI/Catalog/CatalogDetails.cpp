#include "UI/Catalog/CatalogDetails.h"

#include "UI/Catalog/CatalogActions.h"
#include "UI/Inspector/ElidedName.h"
#include "UI/InterfaceText.h"
#include "UI/Panels/FactList.h"
#include "UI/Preview/PreviewLabel.h"

#include <QEvent>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <cmath>
#include <limits>

namespace kerlune {

namespace {

constexpr int kDetailsPreviewHeight = 112;
constexpr double kDetailsPreviewSize = 40;

QString joinedNames(const std::vector<std::string> &names)
{
    QStringList list;
    for (const std::string &name : names)
        list.push_back(shown(name));
    return list.join(QStringLiteral(", "));
}

// Families that the service does not rank have the largest number there is.
QString rankText(std::int64_t rank)
{
    constexpr std::int64_t kMostRank = 1'000'000;
    return rank < 1 || rank > kMostRank ? QString() : uiText("N° %1", {QString::number(rank)});
}

QString dateText(const std::string &date)
{
    const QDate day = QDate::fromString(QString::fromStdString(date), Qt::ISODate);
    return day.isValid() ? QLocale().toString(day, QStringLiteral("d MMMM yyyy")) : QString();
}

} // namespace

CatalogDetails::CatalogDetails(Workspace &workspace, QWidget *parent)
    : QWidget(parent)
    , m_workspace(workspace)
    , m_actions(new CatalogActions(workspace, *this))
    , m_hint(new QLabel)
    , m_content(new QWidget)
    , m_preview(new PreviewLabel(workspace))
    , m_name(new ElidedName)
    , m_state(new QLabel)
    , m_error(new QLabel)
    , m_progress(new QProgressBar)
    , m_install(new QPushButton)
    , m_show(new QPushButton)
    , m_remove(new QPushButton)
    , m_compare(new QPushButton)
    , m_facts(new FactList)
{
    m_name->setObjectName(QStringLiteral("catalogName"));
    m_name->setFont(Theme::font(TextSize::large, QFont::DemiBold));
    m_preview->setFixedHeight(kDetailsPreviewHeight);
    m_hint->setProperty("secondary", true);
    m_hint->setAlignment(Qt::AlignCenter);
    m_hint->setWordWrap(true);
    m_state->setProperty("secondary", true);
    m_state->setObjectName(QStringLiteral("catalogState"));
    m_error->setProperty("error", true);
    m_error->setObjectName(QStringLiteral("catalogError"));
    m_error->setTextFormat(Qt::PlainText);
    m_error->setWordWrap(true);
    m_progress->setRange(0, 1000);
    m_progress->setTextVisible(false);
    m_install->setObjectName(QStringLiteral("catalogInstall"));
    m_install->setProperty("prominent", true);
    m_install->setIcon({});
    m_show->setObjectName(QStringLiteral("catalogShow"));
    m_remove->setObjectName(QStringLiteral("catalogRemove"));
    m_compare->setObjectName(QStringLiteral("catalogCompare"));
    layOut();
    follow();
    showSelection();
}

void CatalogDetails::layOut()
{
    auto *column = new QVBoxLayout(m_content);
    column->setContentsMargins(kCardPadding, kCardGap, kCardPadding, kCardGap);
    column->setSpacing(kGridStep);
    for (QWidget *widget : std::initializer_list<QWidget *>{m_preview, m_name, m_state, m_progress, m_error, m_install,
                                                            m_show, m_compare, m_remove, m_facts})
        column->addWidget(widget);
    column->addStretch(1);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_hint, 1);
    layout->addWidget(m_content, 1);
}

void CatalogDetails::follow()
{
    AppState &state = m_workspace.state();
    const auto family = [this] { return m_family ? m_family->family : std::string(); };
    connect(m_install, &QPushButton::clicked, this, [this, family] { m_actions->install(family()); });
    connect(m_remove, &QPushButton::clicked, this, [this, family] { m_actions->askToRemove(family()); });
    connect(m_compare, &QPushButton::clicked, this, [this, family] { m_actions->compare(family()); });
    connect(m_show, &QPushButton::clicked, this, [this, family] { m_actions->showInLibrary(family()); });
    const auto selection = [this] { showSelection(); };
    const auto installation = [this] { showInstallation(); };
    m_observers.push_back(state.googleSelectedFamily.addNotifier(selection));
    m_observers.push_back(state.googleCatalog.observe(selection));
    m_observers.push_back(state.googleInstalledFamilies.observe(installation));
    m_observers.push_back(state.googleInstallProgress.observe(installation));
    m_observers.push_back(state.googleInstallErrors.observe(installation));
    m_observers.push_back(state.previewText.addNotifier([this] { showPreview(); }));
    m_observers.push_back(state.googlePreviews().bindableRevision().addNotifier([this] { showPreview(); }));
}

void CatalogDetails::showSelection()
{
    AppState &state = m_workspace.state();
    const auto &selected = state.googleSelectedFamily.value();
    const GoogleFontFamily *family = selected ? state.googleFamily(*selected) : nullptr;
    m_family = family == nullptr ? std::nullopt : std::optional(*family);
    m_hint->setText(uiText("Choisissez une famille pour la voir ici."));
    m_hint->setVisible(!m_family);
    m_content->setVisible(m_family.has_value());
    if (!m_family)
        return;
    state.googlePreviews().request(*m_family);
    m_name->setName(shown(m_family->shownName()));
    m_facts->setFacts({{uiText("Créateur"), joinedNames(m_family->designers)},
                       {uiText("Catégorie"), shown(categoryLabel(m_family->category))},
                       {uiText("Styles"), joinedNames(m_family->variants)},
                       {uiText("Variable"), m_family->isVariable ? uiText("oui") : uiText("non")},
                       {uiText("Ajoutée le"), dateText(m_family->dateAdded)},
                       {uiText("Popularité"), rankText(m_family->popularity)},
                       {uiText("Tendance"), rankText(m_family->trending)}});
    m_install->setText(uiText("Installer"));
    m_show->setText(uiText("Voir dans la bibliothèque"));
    m_remove->setText(uiText("Retirer…"));
    m_compare->setText(uiText("Ajouter à la comparaison"));
    m_progress->setAccessibleName(uiText("Installation en cours"));
    showInstallation();
    showPreview();
}

void CatalogDetails::showInstallation()
{
    if (!m_family)
        return;
    const AppState &state = m_workspace.state();
    const bool isInstalled = state.googleInstalledFamilies().contains(m_family->family);
    const auto running = state.googleInstallProgress().find(m_family->family);
    const bool isRunning = running != state.googleInstallProgress().end();
    const auto error = state.googleInstallErrors().find(m_family->family);
    const bool hasError = error != state.googleInstallErrors().end();
    m_state->setText(isRunning     ? uiText("Installation en cours…")
                     : isInstalled ? uiText("Installée")
                                   : uiText("Pas encore installée"));
    m_progress->setVisible(isRunning);
    m_progress->setValue(isRunning ? static_cast<int>(std::lround(running->second * 1000)) : 0);
    m_error->setVisible(hasError && !isRunning);
    m_error->setText(hasError ? shown(error->second) : QString());
    m_install->setVisible(!isInstalled);
    m_install->setEnabled(!isRunning);
    m_show->setVisible(isInstalled);
    m_remove->setVisible(isInstalled);
    m_remove->setEnabled(!isRunning);
}

void CatalogDetails::showPreview()
{
    m_preview->setContent(
        {.face = m_family ? m_workspace.state().googlePreviews().descriptor(m_family->family) : FontRecordPointer(),
         .text = m_workspace.previewText(),
         .emSize = kDetailsPreviewSize});
}

void CatalogDetails::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        showSelection();
}

} // namespace kerlune
