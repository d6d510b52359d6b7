#include "UI/Window/StatusBar.h"

#include "UI/InterfaceText.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QToolButton>

namespace kerlune {

namespace {

constexpr int kHeight = 28;
constexpr int kProgressWidth = 120;

} // namespace

StatusBar::StatusBar(Workspace &workspace, QWidget *parent)
    : QWidget(parent)
    , m_workspace(workspace)
    , m_summary(new QLabel)
    , m_work(new QLabel)
    , m_progress(new QProgressBar)
    , m_cancel(new QToolButton)
{
    setObjectName(QStringLiteral("statusBar"));
    setFixedHeight(kHeight);
    m_summary->setObjectName(QStringLiteral("statusSummary"));
    m_work->setObjectName(QStringLiteral("statusWork"));
    for (QLabel *label : {m_summary, m_work}) {
        label->setTextFormat(Qt::PlainText);
        label->setProperty("secondary", true);
        label->setFont(Theme::font(TextSize::small));
    }
    m_summary->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_progress->setTextVisible(false);
    m_progress->setFixedWidth(kProgressWidth);
    m_progress->setRange(0, 1000);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(kCardPadding, 0, kCardPadding, 0);
    layout->setSpacing(kGridStep);
    layout->addWidget(m_summary, 1);
    layout->addWidget(m_work);
    layout->addWidget(m_progress);
    layout->addWidget(m_cancel);
    m_cancel->setObjectName(QStringLiteral("cancelIndexing"));
    m_cancel->setFont(Theme::font(TextSize::small));
    connect(m_cancel, &QToolButton::clicked, &m_workspace.state(), &AppState::cancelIndexing);

    m_refreshing.setSingleShot(true);
    connect(&m_refreshing, &QTimer::timeout, this, &StatusBar::refresh);
    AppState &state = m_workspace.state();
    connect(&state, &AppState::visibleFamiliesChanged, this, &StatusBar::refreshSoon);
    m_observers.push_back(m_workspace.selectedFamilies.addNotifier([this] { refreshSoon(); }));
    m_observers.push_back(m_workspace.catalogCount.addNotifier([this] { refreshSoon(); }));
    m_observers.push_back(state.googleCatalogLoading.observe([this] { refreshSoon(); }));
    const auto work = [this] { showWork(); };
    m_observers.push_back(state.indexMessage.observe(work));
    m_observers.push_back(state.indexProgress.observe(work));
    m_observers.push_back(state.isIndexing.observe(work));
    m_observers.push_back(state.canCancelIndexing.observe(work));
    m_observers.push_back(state.isReadingGlyphs.observe(work));
    m_observers.push_back(m_workspace.commands().work.addNotifier(work));
    refresh();
    showWork();
}

void StatusBar::refreshSoon()
{
    m_refreshing.start(0); // once for all changes of this turn of the event loop
}

void StatusBar::refresh()
{
    const AppState &state = m_workspace.state();
    const bool isCatalog = state.sidebarSelection.value().kind == SidebarSelection::Kind::googleFonts;
    const std::int64_t count =
        isCatalog ? m_workspace.catalogCount.value() : static_cast<std::int64_t>(state.visibleFamilies().size());
    QStringList parts{uiCount("%1 famille", "%1 familles", count)};
    if (isCatalog && state.googleCatalogLoading())
        parts.push_back(uiText("lecture du catalogue…"));
    else if (!isCatalog && state.filters.value().isActive())
        parts.push_back(shown(summary(state.filters.value())));
    if (const std::size_t selected = m_workspace.selectedFamilies.value().size(); selected > 1)
        parts.push_back(uiCount("%1 sélectionnée", "%1 sélectionnées", static_cast<std::int64_t>(selected)));
    const QString text = parts.join(QStringLiteral(" · "));
    m_summary->setText(m_summary->fontMetrics().elidedText(text, Qt::ElideRight, m_summary->width()));
    m_summary->setToolTip(text.toHtmlEscaped());
    m_summary->setAccessibleName(text);
}

void StatusBar::showWork()
{
    const AppState &state = m_workspace.state();
    const QString work = m_workspace.commands().work.value();
    const bool isIndexing = state.isIndexing();
    m_work->setText(isIndexing                ? shown(state.indexMessage())
                    : state.isReadingGlyphs() ? uiText("Lecture des caractères des polices…")
                                              : work);
    m_work->setVisible(!m_work->text().isEmpty());
    m_progress->setVisible(isIndexing);
    m_progress->setValue(static_cast<int>(state.indexProgress() * 1000));
    m_progress->setAccessibleName(m_work->text());
    m_cancel->setText(uiText("Annuler"));
    m_cancel->setVisible(state.canCancelIndexing());
}

void StatusBar::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange) {
        refreshSoon();
        showWork();
    }
    QWidget::changeEvent(event);
}

void StatusBar::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    refreshSoon();
}

} // namespace kerlune
