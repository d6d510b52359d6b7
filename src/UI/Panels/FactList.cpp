#include "UI/Panels/FactList.h"

#include "UI/InterfaceText.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGridLayout>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QPushButton>

#include <memory>

namespace kerlune {

namespace {

constexpr int kLabelWidth = 92;
constexpr qsizetype kMostCharacters = 4000; // some licences are books
constexpr QChar kBreak(0x200B);             // zero width space

// With places to break in words that would not fit on a line.
QString breakable(const QString &text)
{
    constexpr int kLongest = 16;
    QString broken;
    int run = 0;
    for (const QChar c : text) {
        broken += c;
        run = c.isSpace() ? 0 : run + 1;
        const bool mayPart = run >= kLongest / 2 && !c.isLetterOrNumber() && !c.isMark() && !c.isSurrogate();
        if (mayPart || (run >= kLongest && !c.isHighSurrogate())) {
            broken += kBreak;
            run = 0;
        }
    }
    return broken;
}

} // namespace

ValueLabel::ValueLabel(QWidget *parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setFocusPolicy(Qt::ClickFocus); // dozens of values would make as many tab stops
}

void ValueLabel::setValue(const QString &value)
{
    if (value == m_value)
        return;
    m_value = value;
    const bool isLong = value.size() > kMostCharacters;
    setText(breakable(isLong ? value.left(kMostCharacters) + QChar(0x2026) : value));
}

// The window has an action of its own for this key.
bool ValueLabel::event(QEvent *event)
{
    const bool isCopy =
        event->type() == QEvent::ShortcutOverride && static_cast<QKeyEvent *>(event)->matches(QKeySequence::Copy);
    if (isCopy && hasSelectedText()) {
        event->accept();
        return true;
    }
    return QLabel::event(event);
}

void ValueLabel::keyPressEvent(QKeyEvent *event)
{
    if (event->matches(QKeySequence::Copy) && hasSelectedText())
        QGuiApplication::clipboard()->setText(selectedText().remove(kBreak));
    else
        QLabel::keyPressEvent(event);
}

void ValueLabel::contextMenuEvent(QContextMenuEvent *event)
{
    auto *const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const QString selected = selectedText().remove(kBreak);
    menu->addAction(uiText("Copier"), this,
                    [text = selected.isEmpty() ? m_value : selected] { QGuiApplication::clipboard()->setText(text); });
    menu->addAction(uiText("Tout sélectionner"), this, [this] { setSelection(0, static_cast<int>(text().size())); });
    menu->popup(event->globalPos());
}

FactList::FactList(QWidget *parent)
    : QWidget(parent)
    , m_grid(new QGridLayout(this))
{
    m_grid->setContentsMargins(0, 0, 0, 0);
    m_grid->setHorizontalSpacing(kGridStep);
    m_grid->setVerticalSpacing(6);
    m_grid->setColumnMinimumWidth(0, kLabelWidth);
    m_grid->setColumnStretch(1, 1);
}

void FactList::setFacts(const std::vector<Fact> &facts)
{
    std::size_t used = 0;
    for (const Fact &fact : facts) {
        if (fact.value.isEmpty())
            continue;
        if (used == m_rows.size())
            m_rows.push_back(makeRow(static_cast<int>(used)));
        const Row &row = m_rows[used++];
        row.label->setText(fact.label);
        row.value->setValue(fact.value);
        row.value->setAccessibleName(fact.label + QStringLiteral(" : ") + fact.value);
        const bool isLink = fact.link.scheme() == QLatin1String("http") || fact.link.scheme() == QLatin1String("https");
        row.link->setProperty("link-target", isLink ? fact.link : QUrl());
        row.link->setToolTip(fact.value.toHtmlEscaped());
        row.link->setAccessibleName(fact.label + QStringLiteral(" : ") + fact.value);
        static_cast<QPushButton *>(row.link)->setText(
            row.link->fontMetrics().elidedText(fact.value, Qt::ElideMiddle, 128).replace(u'&', QLatin1String("&&")));
        row.label->show();
        row.value->setVisible(!isLink);
        row.link->setVisible(isLink);
    }
    for (std::size_t i = used; i < m_rows.size(); ++i) {
        m_rows[i].label->hide();
        m_rows[i].value->hide();
        m_rows[i].link->hide();
    }
}

FactList::Row FactList::makeRow(int index)
{
    auto *const label = new QLabel(this);
    label->setProperty("secondary", true);
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    label->setMaximumWidth(kLabelWidth);
    label->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    auto *const value = new ValueLabel(this);
    value->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    auto *const link = new QPushButton(this);
    link->setProperty("link", true);
    link->setCursor(Qt::PointingHandCursor);
    link->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    connect(link, &QPushButton::clicked, this, [this, link] {
        if (const QUrl target = link->property("link-target").toUrl(); target.isValid())
            Q_EMIT linkActivated(target);
    });
    // It is made when the facts are known, after what stands below the list.
    setTabOrder(m_rows.empty() ? static_cast<QWidget *>(this) : m_rows.back().link, link);
    m_grid->addWidget(label, index, 0);
    m_grid->addWidget(value, index, 1);
    m_grid->addWidget(link, index, 1, Qt::AlignLeft | Qt::AlignTop);
    return {label, value, link};
}

} // namespace kerlune
