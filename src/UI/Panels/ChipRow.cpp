#include "UI/Panels/ChipRow.h"

#include "UI/Panels/FlowLayout.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

namespace kerlune {

namespace {
constexpr int kMostTextWidth = 160;
}

ChipRow::ChipRow(const Theme &theme, QWidget *parent)
    : QWidget(parent)
    , m_theme(theme)
    , m_addButton(new QToolButton(this))
{
    auto *const layout = new FlowLayout(this);
    m_addButton->setIcon(theme.icon("plus"));
    m_addButton->setIconSize({14, 14});
    layout->addWidget(m_addButton);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void ChipRow::setChips(std::vector<Chip> chips)
{
    if (chips == m_shown)
        return;
    m_shown = std::move(chips);
    for (QWidget *widget : m_widgets) {
        widget->hide();
        widget->deleteLater(); // its own button may be what asked for this
    }
    m_widgets.clear();
    layout()->removeWidget(m_addButton);
    for (const Chip &chip : m_shown) {
        m_widgets.push_back(makeChip(chip));
        layout()->addWidget(m_widgets.back());
    }
    layout()->addWidget(m_addButton);
    QWidget *before = nullptr;
    for (QWidget *widget : m_widgets) {
        auto *const button = widget->findChild<QToolButton *>();
        if (before != nullptr)
            setTabOrder(before, button);
        before = button;
    }
    if (before != nullptr)
        setTabOrder(before, m_addButton);
    updateGeometry();
}

QWidget *ChipRow::makeChip(const Chip &chip)
{
    auto *const frame = new QFrame(this);
    frame->setProperty("chip", true);
    auto *const row = new QHBoxLayout(frame);
    row->setContentsMargins(8, 1, 2, 1);
    row->setSpacing(2);
    auto *const label = new QLabel(frame);
    label->setTextFormat(Qt::PlainText);
    label->setText(label->fontMetrics().elidedText(chip.text, Qt::ElideMiddle, kMostTextWidth));
    label->setToolTip(chip.text.toHtmlEscaped());
    row->addWidget(label);
    auto *const remove = new QToolButton(frame);
    remove->setIcon(m_theme.icon("close"));
    remove->setIconSize({12, 12});
    remove->setToolTip(chip.removeText.toHtmlEscaped());
    remove->setAccessibleName(chip.removeText);
    connect(remove, &QToolButton::clicked, this, [this, id = chip.id] { Q_EMIT removeWanted(id); });
    row->addWidget(remove);
    frame->show();
    return frame;
}

} // namespace kerlune
