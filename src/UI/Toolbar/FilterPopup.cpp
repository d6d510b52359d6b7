#include "UI/Toolbar/FilterPopup.h"

#include "UI/InterfaceText.h"
#include "UI/Toolbar/CheckList.h"
#include "UI/Toolbar/LanguageList.h"
#include "UI/Toolbar/RangeSlider.h"

#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QRadioButton>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>
#include <memory>
#include <utility>

namespace kerlune {

namespace {

constexpr int kListWidth = 240;
constexpr int kMostListHeight = 320;

} // namespace

FilterPopup::FilterPopup(FilterKind kind, Workspace &workspace, QWidget *parent)
    : QFrame(parent, Qt::Popup)
    , m_kind(kind)
    , m_workspace(workspace)
    , m_layout(new QVBoxLayout(this))
{
    setObjectName(QStringLiteral("filterPopup"));
    setAttribute(Qt::WA_DeleteOnClose);
    m_layout->setContentsMargins(kCardGap, kCardGap, kCardGap, kCardGap);
    m_layout->setSpacing(6);
    fill();
}

void FilterPopup::fill()
{
    m_filters = m_workspace.state().filters.value();
    setAccessibleName(filterName(m_kind));
    switch (m_kind) {
    case FilterKind::classes:
        fillWithClasses();
        break;
    case FilterKind::languages:
        fillWithLanguages();
        break;
    case FilterKind::weight:
        fillWithWeights();
        break;
    case FilterKind::italic:
        fillWithItalics();
        break;
    case FilterKind::tags:
        fillWithTags();
        break;
    case FilterKind::glyphs:
        fillWithGlyphs();
        break;
    default:
        break;
    }
}

// In the other language names are of other lengths and stand in another order.
void FilterPopup::refill()
{
    while (const std::unique_ptr<QLayoutItem> item{m_layout->takeAt(0)})
        delete item->widget();
    fill();
    adjustSize();
}

void FilterPopup::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        refill();
    QFrame::changeEvent(event);
}

void FilterPopup::openBelow(const QWidget &anchor)
{
    adjustSize();
    const QRect screen = anchor.screen()->availableGeometry();
    QPoint place = anchor.mapToGlobal(QPoint(0, anchor.height() + 4));
    place.setX(std::max(screen.left(), std::min(place.x(), screen.right() - width())));
    place.setY(std::max(screen.top(), std::min(place.y(), screen.bottom() - height())));
    move(place);
    show();
    if (QWidget *first = nextInFocusChain(); focusWidget() == nullptr && first != nullptr)
        first->setFocus(Qt::PopupFocusReason);
}

void FilterPopup::paintEvent(QPaintEvent *)
{
    const ThemeColors &colors = m_workspace.theme().colors();
    QPainter painter(this);
    painter.setBrush(colors.card);
    painter.setPen(colors.hairline);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void FilterPopup::change(const Change &change)
{
    Filters changed = m_workspace.state().filters.value();
    change(changed);
    m_workspace.state().filters = std::move(changed);
}

void FilterPopup::fillWithClasses()
{
    CheckList *list = addList(FilterKind::classes);
    const auto &counts = m_workspace.state().counts().byClass;
    for (const FontClass fontClass : kAllFontClasses) {
        const auto count = counts.find(fontClass);
        QTreeWidgetItem *item = list->addLine(shown(label(fontClass)), count == counts.end() ? 0 : count->second,
                                              filters().classes.contains(fontClass));
        item->setData(0, Qt::UserRole, rawValue(fontClass));
    }
    list->fitHeight(kMostListHeight);
    connect(list, &CheckList::ticked, this, [this](const QTreeWidgetItem *item, bool on) {
        const auto fontClass = fontClassFromRawValue(item->data(0, Qt::UserRole).toInt());
        change([&](Filters &changed) {
            if (on)
                changed.classes.insert(*fontClass);
            else
                changed.classes.erase(*fontClass);
        });
    });
}

CheckList *FilterPopup::addList(FilterKind kind)
{
    auto *list = new CheckList(m_workspace.theme(), this);
    list->setObjectName(QStringLiteral("choices"));
    list->setAccessibleName(filterName(kind));
    list->setFixedWidth(kListWidth);
    m_layout->addWidget(list);
    list->setFocus();
    return list;
}

void FilterPopup::fillWithLanguages()
{
    auto *languages =
        new LanguageList(m_workspace.state().languageCounts(), filters().languageBits, m_workspace.theme(), this);
    connect(languages, &LanguageList::chosen, this,
            [this](std::uint64_t bits) { change([bits](Filters &changed) { changed.languageBits = bits; }); });
    m_layout->addWidget(languages);
    languages->setFocus();
}

void FilterPopup::fillWithWeights()
{
    auto *slider = new RangeSlider(m_workspace.theme(), this);
    auto *names = new QLabel(this);
    const auto showNames = [names](const WeightRange &range) {
        const auto name = [](int weight) { return QStringLiteral("%1 %2").arg(weight).arg(weightName(weight)); };
        names->setText(range.lower == range.upper
                           ? name(range.lower)
                           : QStringLiteral("%1 – %2").arg(name(range.lower), name(range.upper)));
    };
    slider->setObjectName(QStringLiteral("weightRange"));
    slider->setRange(filters().weightRange);
    showNames(slider->range());
    connect(slider, &RangeSlider::rangeChosen, this, [this, showNames](const WeightRange &range) {
        showNames(range);
        change([&](Filters &changed) { changed.weightRange = range; });
    });
    m_layout->addWidget(names);
    m_layout->addWidget(slider);
    slider->setFocus();
}

void FilterPopup::fillWithItalics()
{
    const bool isAll = !filters().onlyItalic && !filters().hideItalic;
    const auto add = [this](const QString &text, bool isChosen, bool onlyItalic, bool hideItalic) {
        auto *choice = new QRadioButton(text, this);
        choice->setChecked(isChosen);
        connect(choice, &QRadioButton::toggled, this, [this, onlyItalic, hideItalic](bool on) {
            if (!on)
                return;
            change([&](Filters &changed) {
                changed.onlyItalic = onlyItalic;
                changed.hideItalic = hideItalic;
            });
        });
        m_layout->addWidget(choice);
        if (isChosen)
            choice->setFocus();
    };
    add(uiText("Tous les styles"), isAll, false, false);
    add(uiText("Italiques seuls"), filters().onlyItalic, true, false);
    add(uiText("Sans italiques"), !filters().onlyItalic && filters().hideItalic, false, true);
}

void FilterPopup::fillWithTags()
{
    std::vector<std::pair<std::string, std::int64_t>> tags = m_workspace.state().allTags();
    for (const std::string &tag : filters().tags) { // one that has gone can still be taken out
        const bool isListed =
            std::any_of(tags.begin(), tags.end(), [&](const auto &each) { return each.first == tag; });
        if (!isListed)
            tags.emplace_back(tag, 0);
    }
    if (tags.empty()) {
        auto *none = new QLabel(uiText("Aucun tag pour l’instant."), this);
        none->setProperty("secondary", true);
        m_layout->addWidget(none);
        return;
    }
    CheckList *list = addList(FilterKind::tags);
    for (const auto &[tag, count] : tags) {
        QTreeWidgetItem *item = list->addLine(shown(tag), count, filters().tags.contains(tag));
        item->setData(0, Qt::UserRole, QByteArray::fromStdString(tag));
    }
    list->fitHeight(kMostListHeight);
    connect(list, &CheckList::ticked, this, [this](const QTreeWidgetItem *item, bool on) {
        const std::string tag = item->data(0, Qt::UserRole).toByteArray().toStdString();
        change([&](Filters &changed) {
            if (on)
                changed.tags.insert(tag);
            else
                changed.tags.erase(tag);
        });
    });
}

void FilterPopup::fillWithGlyphs()
{
    auto *what = new QLabel(uiText("Familles dont le style principal a tous ces caractères :"), this);
    auto *characters = new QLineEdit(QString::fromStdString(filters().requiredGlyphs), this);
    characters->setObjectName(QStringLiteral("requiredGlyphs"));
    characters->setAccessibleName(filterName(FilterKind::glyphs));
    characters->setPlaceholderText(uiText("€ ₽ → ½"));
    connect(characters, &QLineEdit::textEdited, this, [this](const QString &text) {
        change([&](Filters &changed) { changed.requiredGlyphs = text.toStdString(); });
    });
    connect(characters, &QLineEdit::returnPressed, this, &QWidget::close);
    m_layout->addWidget(what);
    m_layout->addWidget(characters);
    characters->setFocus();
}

} // namespace kerlune
