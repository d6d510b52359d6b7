#include "UI/Browser/ComparisonView.h"

#include "UI/Browser/CellPreviews.h"
#include "UI/Browser/ComparisonOverlay.h"
#include "UI/Browser/ComparisonRow.h"
#include "UI/InterfaceText.h"

#include <QFutureWatcher>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QToolButton>
#include <QtConcurrentRun>

#include <algorithm>
#include <cmath>

// What is shown; ComparisonViewInput.cpp has what the user does.

namespace kerlune {

namespace {

constexpr int kHeaderHeight = kFilterBarHeight;
constexpr int kLeastRowHeight = 88;
constexpr double kLeastReadableEm = 18;

// A label over what is painted below it.
QLabel *makeLabel(QWidget *parent)
{
    auto *label = new QLabel(parent);
    label->setFont(Theme::font(TextSize::small));
    label->setProperty("secondary", true);
    label->setTextFormat(Qt::PlainText);
    return label;
}

} // namespace

ComparisonView::ComparisonView(Workspace &workspace, QWidget *parent)
    : QWidget(parent)
    , m_workspace(workspace)
    , m_size(makeLabel(this))
    , m_titles{makeLabel(this), makeLabel(this), makeLabel(this)}
    , m_overlaid(new QToolButton(this))
    , m_empty(makeLabel(this))
    , m_scroll(new QScrollArea(this))
    , m_content(new QWidget)
    , m_overlay(new ComparisonOverlay(workspace.theme(), this))
{
    setFocusPolicy(Qt::StrongFocus);
    for (QLabel *title : m_titles) {
        title->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        title->setWordWrap(true);
    }
    m_empty->setObjectName(QStringLiteral("comparisonHint"));
    m_empty->setFont(Theme::font(TextSize::title));
    m_empty->setAlignment(Qt::AlignCenter);
    m_empty->setWordWrap(true);
    m_overlaid->setObjectName(QStringLiteral("overlaid"));
    m_overlaid->setCheckable(true);
    m_overlaid->setIcon(workspace.theme().icon("compare"));
    m_overlaid->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    connect(m_overlaid, &QToolButton::toggled, this, [this] { layOut(); });
    m_scroll->setWidget(m_content);
    m_scroll->setFrameShape(QFrame::NoFrame);
    m_scroll->setFocusPolicy(Qt::NoFocus);
    m_scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scroll->verticalScrollBar()->setSingleStep(kLeastRowHeight / 3);
    m_overlay->hide();
    connect(&workspace.previews(), &PreviewQueue::previewsReady, this, &ComparisonView::takePreviews);
    connect(&workspace.theme(), &Theme::changed, this, &ComparisonView::layOut);
    observeState();
    retranslate();
    follow();
}

ComparisonView::~ComparisonView() = default;

void ComparisonView::observeState()
{
    AppState &state = m_workspace.state();
    m_observers.push_back(state.comparisonSet.addNotifier([this] { follow(); }));
    m_observers.push_back(state.library.observe([this] { follow(); }));
    m_observers.push_back(state.googlePreviews().bindableRevision().addNotifier([this] { follow(); }));
    m_observers.push_back(state.previewText.addNotifier([this] { follow(); }));
    m_observers.push_back(state.previewSize.addNotifier([this] { layOut(); }));
    m_observers.push_back(state.selectedFamily.addNotifier([this] {
        const auto &selected = m_workspace.state().selectedFamily.value();
        if (selected && std::find(compared().begin(), compared().end(), *selected) != compared().end()) {
            m_current = *selected;
            markCurrent();
        }
    }));
}

void ComparisonView::retranslate()
{
    setAccessibleName(uiText("Comparaison"));
    m_titles[ComparisonRow::XHeight]->setText(uiText("Hauteur d’x"));
    m_titles[ComparisonRow::CapHeight]->setText(uiText("Capitales"));
    m_titles[ComparisonRow::Width]->setText(uiText("Largeur"));
    m_overlaid->setText(uiText("Superposer"));
    m_overlaid->setToolTip(uiText("Montrer toutes les lignes l’une sur l’autre"));
    m_empty->setText(uiText("Sélectionnez des familles, puis Comparer (Ctrl+D)."));
    for (ComparisonRow *row : m_rows)
        row->retranslate();
    layOut();
}

// Content.

void ComparisonView::follow()
{
    while (m_rows.size() > compared().size()) {
        m_rows.back()->hide();
        m_rows.back()->deleteLater(); // it may be the one that asked for this
        m_rows.pop_back();
    }
    while (m_rows.size() < compared().size())
        m_rows.push_back(makeRow());
    if (!currentIndex())
        m_current = compared().empty() ? std::string() : compared().front();
    layOut();
}

ComparisonRow *ComparisonView::makeRow()
{
    auto *row = new ComparisonRow(m_workspace, m_content);
    connect(row, &ComparisonRow::pressed, this, [this, row] {
        setFocus(Qt::MouseFocusReason);
        m_dragged = row->content().family;
        setCurrent(m_dragged);
    });
    // The row under the pointer stands for another family as soon as that one has been moved.
    connect(row, &ComparisonRow::dragged, this, [this](const QPoint &position) { dragTo(m_dragged, position); });
    connect(row, &ComparisonRow::opened, &m_workspace, &Workspace::largePreviewWanted);
    connect(row, &ComparisonRow::removeWanted, this, [this, row] { remove(row->content().family); });
    connect(row, &ComparisonRow::moveWanted, this, [this, row](int by) {
        const auto at = std::find(m_rows.begin(), m_rows.end(), row) - m_rows.begin();
        move(row->content().family, at + by);
    });
    row->show();
    return row;
}

void ComparisonView::fillRow(std::size_t index)
{
    ComparisonRow::Content content{.family = compared()[index],
                                   .face = m_workspace.comparedFace(compared()[index]),
                                   .isFirst = index == 0,
                                   .isLast = index + 1 == compared().size()};
    const FontRecordPointer first = m_workspace.comparedFace(compared().front());
    const std::optional<LineWidth> width = widthOf(content.face);
    const std::optional<LineWidth> firstWidth = widthOf(first);
    const auto ofEm = [](const std::optional<LineWidth> &line) {
        return line && line->coversTheText ? line->ofEm : 0.0;
    };
    if (content.face != nullptr) {
        const FontRecord &face = *content.face;
        content.values = {ComparisonRow::Value{shareOfEm(face.xHeightRatio)},
                          ComparisonRow::Value{shareOfEm(face.capHeightRatio)},
                          ComparisonRow::Value{widthInEms(ofEm(width))}};
        if (index > 0 && first != nullptr) {
            const std::array<QString, 3> differences{differenceOfShares(face.xHeightRatio, first->xHeightRatio),
                                                     differenceOfShares(face.capHeightRatio, first->capHeightRatio),
                                                     differenceOfWidths(ofEm(width), ofEm(firstWidth))};
            for (std::size_t i = 0; i < differences.size(); ++i)
                content.values[i] = {differences[i], content.values[i].text};
        }
    }
    m_rows[index]->setContent(std::move(content));
}

// Measuring.

// The beginning of a long text: as much as can be read in the room that there is.
std::string ComparisonView::comparedText() const
{
    const double em = std::min(kLeastReadableEm, m_workspace.state().previewSize.value());
    return leadingWords(m_workspace.previewText(), em, lineWidth());
}

int ComparisonView::lineWidth() const
{
    return ComparisonRow::lineRect({m_content->width(), kLeastRowHeight}).width();
}

namespace {

std::pair<std::string, double> keyOf(const FontRecord &face)
{
    return {face.postScriptName, face.mtime};
}

} // namespace

void ComparisonView::measure()
{
    if (const std::string text = comparedText(); text != m_measuredText) {
        m_measuredText = text;
        m_widths.clear();
        m_beingMeasured.clear();
    }
    for (const std::string &name : compared()) {
        const FontRecordPointer face = m_workspace.comparedFace(name);
        if (face == nullptr)
            continue;
        const FaceKey key = keyOf(*face);
        if (m_widths.contains(key) || !m_beingMeasured.insert(key).second)
            continue;
        auto *measuring = new QFutureWatcher<std::optional<LineWidth>>(this);
        connect(measuring, &QFutureWatcherBase::finished, this, [this, measuring, key, text = m_measuredText] {
            measuring->deleteLater();
            if (text != m_measuredText)
                return;
            m_beingMeasured.erase(key);
            m_widths[key] = measuring->result();
            layOut();
        });
        measuring->setFuture(QtConcurrent::run([face, text = m_measuredText] { return measureLine(*face, text); }));
    }
}

std::optional<LineWidth> ComparisonView::widthOf(const FontRecordPointer &face) const
{
    const auto found = face == nullptr ? m_widths.end() : m_widths.find(keyOf(*face));
    return found == m_widths.end() ? std::nullopt : found->second;
}

// The size that the user has chosen, or what the widest line needs to fit: all lines have the same.
double ComparisonView::commonSize(int room) const
{
    double widest = 0;
    for (const auto &[face, width] : m_widths)
        widest = std::max(widest, width && width->coversTheText ? width->ofEm : 0.0);
    const double chosen = m_workspace.state().previewSize.value();
    constexpr double kOverhang = 0.15; // of the em, for ink beyond the advance widths
    return widest <= 0 ? chosen : std::clamp((room - 2) / (widest + kOverhang), 1.0, chosen);
}

// Layout.

void ComparisonView::layOut()
{
    const bool isEmpty = compared().empty();
    m_empty->setVisible(isEmpty);
    m_empty->setGeometry(rect().adjusted(3 * kGridStep, 0, -3 * kGridStep, 0));
    m_scroll->setVisible(!isEmpty);
    m_size->setVisible(!isEmpty);
    m_overlaid->setVisible(!isEmpty);
    m_overlay->setVisible(!isEmpty && m_overlaid->isChecked());
    for (QLabel *title : m_titles)
        title->setVisible(!isEmpty);
    const int rowsThatFit = std::max(0, height() - kHeaderHeight) / std::max(kLeastRowHeight, m_rowHeight);
    const bool needsBar = static_cast<int>(m_rows.size()) > rowsThatFit;
    const int rowWidth = width() - (needsBar ? m_scroll->verticalScrollBar()->sizeHint().width() : 0);
    m_content->resize(rowWidth, m_content->height());
    if (isVisible())
        measure();
    const int left = ComparisonRow::lineRect({rowWidth, kLeastRowHeight}).left();
    const double em = commonSize(lineWidth());
    m_rowHeight = std::max(kLeastRowHeight, static_cast<int>(std::ceil(em * 1.8 / kGridStep)) * kGridStep);

    const QSize buttonSize = m_overlaid->sizeHint();
    m_overlaid->setGeometry(QRect(QPoint(left, (kHeaderHeight - buttonSize.height()) / 2), buttonSize));
    m_size->setGeometry(kCardPadding, 0, left - kCardPadding, kHeaderHeight);
    for (int i = 0; i < ComparisonRow::kColumns; ++i) {
        QRect title = ComparisonRow::columnRect({rowWidth, kHeaderHeight}, static_cast<ComparisonRow::Column>(i));
        m_titles[static_cast<std::size_t>(i)]->setGeometry(title);
    }
    const int top = kHeaderHeight + (m_overlay->isVisibleTo(this) ? m_rowHeight : 0);
    m_overlay->setGeometry(0, kHeaderHeight, rowWidth, m_rowHeight);
    m_scroll->setGeometry(0, top, width(), std::max(0, height() - top));
    placeRows();
    showSize(em);
    want();
    markCurrent();
}

void ComparisonView::placeRows()
{
    const int rowWidth = m_content->width();
    m_content->resize(rowWidth, m_rowHeight * static_cast<int>(m_rows.size()));
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        m_rows[i]->setGeometry(0, m_rowHeight * static_cast<int>(i), rowWidth, m_rowHeight);
        fillRow(i);
    }
}

void ComparisonView::showSize(double em)
{
    const double chosen = m_workspace.state().previewSize.value();
    const QString size = QString::number(std::lround(em));
    m_size->setText(em < chosen - 0.5 ? uiText("%1 px au lieu de %2", {size, QString::number(std::lround(chosen))})
                                      : uiText("%1 px", {size}));
}

// Previews.

void ComparisonView::want()
{
    std::vector<PreviewRequest> requests;
    const qreal scale = devicePixelRatioF();
    for (ComparisonRow *row : isVisible() ? m_rows : std::vector<ComparisonRow *>()) {
        if (row->content().face == nullptr)
            continue;
        PreviewRequest request;
        request.face = row->content().face;
        request.text = m_measuredText;
        request.emPixels = commonSize(lineWidth()) * scale;
        request.size = row->lineRect().size() * scale;
        request.color = m_workspace.theme().colors().text;
        row->setRequest(request);
        requests.push_back(std::move(request));
    }
    m_workspace.previews().setWanted(this, std::move(requests));
}

void ComparisonView::takePreviews()
{
    for (ComparisonRow *row : m_rows)
        row->takePreview();
    markCurrent();
}

bool ComparisonView::isPainted() const
{
    return compared().empty() ||
           (m_beingMeasured.empty() &&
            std::all_of(m_rows.begin(), m_rows.end(), [](const ComparisonRow *row) { return row->isPainted(); }));
}

void ComparisonView::setOverlaid(bool isOverlaid)
{
    m_overlaid->setChecked(isOverlaid);
}

} // namespace kerlune
