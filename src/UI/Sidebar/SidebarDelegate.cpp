#include "UI/Sidebar/SidebarDelegate.h"

#include "Support/Localization.h"
#include "UI/InterfaceText.h"
#include "UI/Sidebar/SidebarModel.h"
#include "UI/Theme.h"

#include <QLineEdit>
#include <QPainter>
#include <QTreeView>

namespace kerlune {

namespace {

constexpr int kEntryHeight = 28;
constexpr int kHeadHeight = 36;
constexpr int kMargin = kGridStep;  // around the ground of a line
constexpr int kPadding = kGridStep; // in it
constexpr int kIconSize = 16;
constexpr int kChevronSize = 12;
constexpr int kButtonSize = 24;
constexpr const char *kFilled = "filled"; // an editor that shows the name already

QRect groundOf(const QRect &line)
{
    return line.adjusted(kMargin, 1, -kMargin, -1);
}

} // namespace

SidebarDelegate::SidebarDelegate(const SidebarModel &model, const Theme &theme, QObject *parent)
    : QStyledItemDelegate(parent)
    , m_model(model)
    , m_theme(theme)
{}

void SidebarDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    paintGround(*painter, option, index);
    if (m_model.isHead(index))
        paintHead(*painter, option, index);
    else
        paintEntry(*painter, option, index);
    painter->restore();
}

void SidebarDelegate::paintGround(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const ThemeColors &colors = m_theme.colors();
    const bool isDropTarget = m_dropTarget == index;
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    const bool isHovered = option.state.testFlag(QStyle::State_MouseOver) && index.flags().testFlag(Qt::ItemIsEnabled);
    const bool isFocused = option.state.testFlag(QStyle::State_HasFocus);
    painter.setPen(Qt::NoPen);
    if (isSelected || isDropTarget)
        painter.setBrush(colors.selection);
    else
        painter.setBrush(isHovered && !m_model.isHead(index) ? QBrush(colors.hover) : QBrush(Qt::NoBrush));
    if (isDropTarget || isFocused)
        painter.setPen(QPen(colors.accent, isDropTarget ? 2 : 1));
    painter.drawRoundedRect(QRectF(groundOf(option.rect)).adjusted(0.5, 0.5, -0.5, -0.5), kControlRadius,
                            kControlRadius);
}

void SidebarDelegate::paintHead(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const ThemeColors &colors = m_theme.colors();
    const QRect inner = groundOf(option.rect).adjusted(kPadding, 0, -kButtonSize, 0);
    painter.setFont(Theme::font(TextSize::small, QFont::DemiBold));
    painter.setPen(colors.secondaryText);
    const QFontMetrics metrics(painter.font());
    const QString name = metrics.elidedText(index.data(Qt::DisplayRole).toString(), Qt::ElideRight,
                                            inner.width() - kChevronSize - kPadding);
    painter.drawText(inner, Qt::AlignLeft | Qt::AlignVCenter, name);
    const char *chevron = option.state.testFlag(QStyle::State_Open) ? "chevron-down" : "chevron-right";
    const QPointF place(inner.left() + metrics.horizontalAdvance(name) + kPadding / 2.0,
                        inner.center().y() - kChevronSize / 2.0 + 1);
    painter.drawPixmap(
        place, m_theme.iconPixmap(chevron, kChevronSize, colors.secondaryText, painter.device()->devicePixelRatioF()));
}

void SidebarDelegate::paintEntry(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const SidebarEntry &entry = *m_model.entry(index);
    const ThemeColors &colors = m_theme.colors();
    QRect inner = groundOf(option.rect).adjusted(kPadding, 0, -kPadding, 0);
    if (!entry.isHint) {
        const QRect icon(inner.left(), inner.center().y() - kIconSize / 2 + 1, kIconSize, kIconSize);
        painter.drawPixmap(icon, m_theme.iconPixmap(entry.icon, kIconSize,
                                                    entry.isMissing ? colors.error : colors.secondaryText,
                                                    painter.device()->devicePixelRatioF()));
        inner.setLeft(icon.right() + 1 + kPadding);
    }
    if (entry.count) {
        painter.setFont(Theme::font(TextSize::small));
        painter.setPen(colors.secondaryText);
        const QString count = QString::fromStdString(groupedDigits(*entry.count));
        painter.drawText(inner, Qt::AlignRight | Qt::AlignVCenter, count);
        inner.setRight(inner.right() - painter.fontMetrics().horizontalAdvance(count) - kPadding);
    }
    painter.setFont(Theme::font(entry.isHint ? TextSize::small : TextSize::body));
    painter.setPen(entry.isHint || entry.isMissing ? colors.secondaryText : colors.text);
    const QString name =
        painter.fontMetrics().elidedText(index.data(Qt::DisplayRole).toString(), Qt::ElideMiddle, inner.width());
    painter.drawText(inner, Qt::AlignLeft | Qt::AlignVCenter, name);
}

QSize SidebarDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    return {option.rect.width(), m_model.isHead(index) ? kHeadHeight : kEntryHeight};
}

QWidget *SidebarDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &, const QModelIndex &index) const
{
    auto *editor = new QLineEdit(parent);
    editor->setObjectName(QStringLiteral("sidebarNameEditor"));
    editor->setAccessibleName(uiText("Nom"));
    editor->setMaxLength(200);
    Q_UNUSED(index);
    return editor;
}

// Only once: the count beside the name may change while the user types.
void SidebarDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    auto *line = qobject_cast<QLineEdit *>(editor);
    if (line == nullptr || line->property(kFilled).toBool())
        return;
    line->setProperty(kFilled, true);
    line->setText(index.data(Qt::EditRole).toString());
    line->selectAll();
}

void SidebarDelegate::updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                                           const QModelIndex &index) const
{
    const QRect ground = groundOf(option.rect);
    if (m_model.isHead(index)) {
        editor->setGeometry(ground.right() + 1 - kButtonSize, ground.center().y() + 1 - kButtonSize / 2, kButtonSize,
                            kButtonSize);
    } else {
        editor->setGeometry(ground.adjusted(kPadding + kIconSize, -1, 0, 1));
    }
}

} // namespace kerlune
