#include "UI/Panels/SimilarPanel.h"

#include "UI/InterfaceText.h"
#include "UI/Panels/FaceList.h"

#include <QCheckBox>
#include <QLabel>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <utility>

namespace kerlune {

namespace {

constexpr int kProgressSteps = 1'000;

QLabel *makeText(QWidget *parent, TextSize size, bool isSecondary)
{
    auto *const label = new QLabel(parent);
    label->setWordWrap(true);
    label->setFont(Theme::font(size, isSecondary ? QFont::Normal : QFont::DemiBold));
    label->setProperty("secondary", isSecondary);
    return label;
}

QVBoxLayout *makeColumn(QWidget *page)
{
    auto *const column = new QVBoxLayout(page);
    column->setContentsMargins(kCardPadding, kCardPadding, kCardPadding, kCardPadding);
    column->setSpacing(kGridStep);
    return column;
}

} // namespace

SimilarPanel::SimilarPanel(Workspace &workspace, QWidget *parent)
    : FacePanel(workspace, parent)
    , m_pages(new QStackedWidget(this))
    , m_introductionPage(makeIntroduction())
    , m_progressPage(makeProgress())
    , m_resultsPage(makeResults())
{
    for (QWidget *page : {m_introductionPage, m_progressPage, m_resultsPage})
        m_pages->addWidget(page);
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_pages);
    follow();
    SimilarPanel::retranslate();
}

QWidget *SimilarPanel::makeIntroduction()
{
    auto *const page = new QWidget(this);
    auto *const column = makeColumn(page);
    column->addWidget(m_introduction = makeText(page, TextSize::body, true));
    column->addWidget(m_analyse = new QPushButton(page), 0, Qt::AlignLeft);
    column->addStretch(1);
    m_analyse->setObjectName(QStringLiteral("analyse"));
    m_analyse->setProperty("prominent", true);
    return page;
}

QWidget *SimilarPanel::makeProgress()
{
    auto *const page = new QWidget(this);
    auto *const column = makeColumn(page);
    column->addWidget(m_working = makeText(page, TextSize::body, true));
    column->addWidget(m_progress = new QProgressBar(page));
    column->addStretch(1);
    m_progress->setRange(0, kProgressSteps);
    m_progress->setTextVisible(false);
    return page;
}

QWidget *SimilarPanel::makeResults()
{
    auto *const page = new QWidget(this);
    auto *const column = new QVBoxLayout(page);
    column->setContentsMargins(0, kGridStep, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_title = makeText(page, TextSize::body, false));
    column->addWidget(m_list = new FaceList(workspace(), page), 1);
    column->addWidget(m_nothing = makeText(page, TextSize::body, true), 1);
    auto *const foot = new QWidget(page);
    auto *const choices = makeColumn(foot);
    choices->addWidget(m_compare = new QPushButton(foot), 0, Qt::AlignLeft);
    choices->addWidget(m_scripts = makeText(foot, TextSize::body, false));
    choices->addWidget(m_latinOnly = new QCheckBox(foot));
    choices->addWidget(m_why = makeText(foot, TextSize::small, true));
    column->addWidget(foot);
    m_title->setMargin(kGridStep);
    m_title->setIndent(kCardPadding - kGridStep);
    m_nothing->setMargin(kCardPadding);
    m_nothing->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    m_list->setObjectName(QStringLiteral("similar"));
    m_compare->setObjectName(QStringLiteral("compareSimilar"));
    m_compare->setIcon(workspace().theme().icon("compare"));
    m_latinOnly->setObjectName(QStringLiteral("similarLatinOnly"));
    return page;
}

void SimilarPanel::follow()
{
    AppState &state = workspace().state();
    FingerprintIndex &fingerprints = state.fingerprints();
    const auto updateWhenSeen = [this] {
        if (isVisible())
            showState();
    };
    m_observers.push_back(fingerprints.bindableRevision().addNotifier(updateWhenSeen));
    m_observers.push_back(fingerprints.bindableIsBuilding().addNotifier(updateWhenSeen));
    m_observers.push_back(fingerprints.bindableProgress().addNotifier(
        [this, &fingerprints] { m_progress->setValue(static_cast<int>(fingerprints.progress() * kProgressSteps)); }));
    m_observers.push_back(workspace().preferences().similarLatinOnly.addNotifier([this, updateWhenSeen] {
        m_latinOnly->setChecked(workspace().preferences().similarLatinOnly.value());
        updateWhenSeen();
    }));
    m_latinOnly->setChecked(workspace().preferences().similarLatinOnly.value());
    connect(m_latinOnly, &QCheckBox::toggled, this,
            [this](bool isOn) { this->workspace().preferences().similarLatinOnly = isOn; });
    connect(m_analyse, &QPushButton::clicked, this, [&state] { state.fingerprints().build(state.allRecords()); });
    connect(m_list, &FaceList::faceChosen, this, &SimilarPanel::choose);
    connect(m_compare, &QPushButton::clicked, this, &SimilarPanel::compare);
}

void SimilarPanel::showFace(Change)
{
    showState();
}

// What has been analysed is read when it is first needed.
QCoro::Task<> SimilarPanel::read()
{
    if (m_isReading)
        co_return;
    const QPointer<SimilarPanel> self(this);
    m_isReading = true;
    auto reading = workspace().state().fingerprints().load();
    co_await reading;
    if (!self)
        co_return;
    m_isReading = false;
    if (isVisible())
        showState();
}

void SimilarPanel::showState()
{
    const FingerprintIndex &fingerprints = workspace().state().fingerprints();
    if (face() == nullptr)
        return;
    if (!fingerprints.isLoaded() && workspace().state().store() != nullptr) {
        m_pages->setCurrentWidget(m_progressPage);
        read();
        return;
    }
    if (fingerprints.vectors().contains(face()->postScriptName) || !fingerprints.isBuilding()) {
        if (fingerprints.vectors().count() == 0)
            m_pages->setCurrentWidget(m_introductionPage);
        else
            showResults();
        return;
    }
    m_pages->setCurrentWidget(m_progressPage);
}

void SimilarPanel::showResults()
{
    AppState &state = workspace().state();
    const auto found =
        state.fingerprints().similar(face()->postScriptName, state.allRecords(), FingerprintIndex::kShownSimilar,
                                     workspace().preferences().similarLatinOnly.value());
    std::vector<FaceLine> lines;
    m_families = {face()->family};
    for (const auto &[record, score] : found) {
        lines.push_back({record, shown(record->family), uiText("%1 %", {QString::number(qRound(score * 100))})});
        m_families.push_back(record->family);
    }
    m_list->setLines(std::move(lines));
    m_list->setVisible(!found.empty());
    m_nothing->setVisible(found.empty());
    m_compare->setEnabled(!found.empty());
    m_pages->setCurrentWidget(m_resultsPage);
}

// In the browser, where the filters let it through; in the inspector in any case.
void SimilarPanel::choose(const FontRecordPointer &chosen)
{
    AppState &state = workspace().state();
    const std::string family = chosen->family;
    const std::string postScriptName = chosen->postScriptName;
    workspace().select({family});
    state.scrollTarget = family;
    state.selectedFace = postScriptName;
}

void SimilarPanel::compare()
{
    workspace().compare(m_families);
}

void SimilarPanel::retranslate()
{
    m_introduction->setText(uiText("Kerlune compare les polices en analysant le dessin réel de leurs glyphes."));
    m_analyse->setText(uiText("Analyser ma bibliothèque"));
    m_working->setText(uiText("Analyse visuelle de la bibliothèque…"));
    m_progress->setAccessibleName(uiText("Analyse visuelle de la bibliothèque…"));
    m_title->setText(uiText("Polices similaires"));
    m_list->setAccessibleName(uiText("Polices similaires"));
    m_nothing->setText(uiText("Aucune correspondance trouvée."));
    m_compare->setText(uiText("Comparer"));
    m_scripts->setText(uiText("Écritures non latines"));
    m_latinOnly->setText(uiText("Écarter les polices non latines"));
    m_why->setText(
        uiText("Les polices arabes, indiennes ou asiatiques ont souvent un latin générique qui remonte à tort "
               "dans les résultats."));
    if (isVisible())
        showState();
}

} // namespace kerlune
