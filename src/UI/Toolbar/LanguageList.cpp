#include "UI/Toolbar/LanguageList.h"

#include "Model/ScriptCoverage.h"
#include "Support/Text.h"
#include "UI/InterfaceText.h"
#include "UI/SearchField.h"
#include "UI/Toolbar/CheckList.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QVBoxLayout>

namespace kerlune {

namespace {

constexpr int kBitsRole = Qt::UserRole;

} // namespace

LanguageList::LanguageList(const Counts &counts, std::uint64_t chosenBits, const Theme &theme, QWidget *parent)
    : QWidget(parent)
    , m_bits(chosenBits)
    , m_search(new SearchField(this))
    , m_list(new CheckList(theme, this))
{
    m_search->setObjectName(QStringLiteral("languageSearch"));
    m_search->setAccessibleName(uiText("Rechercher une langue"));
    m_search->setPlaceholderText(uiText("Rechercher une langue…"));
    m_search->addAction(theme.icon("search"), QLineEdit::LeadingPosition);
    m_search->installEventFilter(this);
    m_list->setObjectName(QStringLiteral("languages"));
    m_list->setAccessibleName(uiText("Langues"));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kGridStep);
    layout->addWidget(m_search);
    layout->addWidget(m_list, 1);
    setFocusProxy(m_search);
    fill(counts);
    connect(m_search, &QLineEdit::textChanged, this, &LanguageList::narrow);
    connect(m_list, &CheckList::ticked, this, &LanguageList::take);
}

void LanguageList::fill(const Counts &counts)
{
    for (const std::string &group : ScriptCoverage::groups()) {
        QTreeWidgetItem *head = m_list->addHead(shown(ScriptCoverage::groupLabel(group)));
        for (const ScriptCoverage::Language &language : ScriptCoverage::all()) {
            if (language.group != group)
                continue;
            const auto count = counts.find(language.id);
            const std::uint64_t bit = ScriptCoverage::bit(language.id).value_or(0);
            QTreeWidgetItem *item = m_list->addLine(shown(language.label()), count == counts.end() ? 0 : count->second,
                                                    (m_bits & bit) != 0, head);
            item->setData(0, kBitsRole, QVariant::fromValue<qulonglong>(bit));
        }
    }
}

void LanguageList::take(QTreeWidgetItem *item, bool on)
{
    const std::uint64_t bit = item->data(0, kBitsRole).toULongLong();
    const std::uint64_t before = m_bits;
    m_bits = on ? m_bits | bit : m_bits & ~bit;
    if (m_bits != before)
        Q_EMIT chosen(m_bits);
}

void LanguageList::narrow(const QString &typed)
{
    const std::string needle = folded(typed.trimmed().toStdString());
    for (int i = 0; i < m_list->topLevelItemCount(); ++i) {
        QTreeWidgetItem *head = m_list->topLevelItem(i);
        bool hasShown = false;
        for (int j = 0; j < head->childCount(); ++j) {
            QTreeWidgetItem *item = head->child(j);
            const bool isFound = folded(item->text(0).toStdString()).find(needle) != std::string::npos;
            item->setHidden(!isFound);
            hasShown = hasShown || isFound;
        }
        head->setHidden(!hasShown);
    }
}

// Down from the field goes to the first language that is left.
bool LanguageList::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_search || event->type() != QEvent::KeyPress ||
        static_cast<QKeyEvent *>(event)->key() != Qt::Key_Down)
        return QWidget::eventFilter(watched, event);
    for (QTreeWidgetItemIterator item(m_list, QTreeWidgetItemIterator::NotHidden | QTreeWidgetItemIterator::Selectable);
         *item != nullptr; ++item) {
        m_list->setCurrentItem(*item);
        m_list->setFocus();
        break;
    }
    return true;
}

} // namespace kerlune
