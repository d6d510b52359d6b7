#include "UI/Browser/BrowserAccessible.h"

#include "UI/Browser/BrowserView.h"

#include <QAccessible>
#include <QAccessibleWidget>

#include <unordered_map>

namespace kerlune {

namespace {

// One row of the view. What it is asked for comes from the view at that moment.
class FamilyAccessible final : public QAccessibleInterface {
public:
    FamilyAccessible(BrowserView &view, int row)
        : m_view(view)
        , m_row(row)
    {}

    bool isValid() const override { return index().isValid(); }
    QObject *object() const override { return nullptr; }
    QAccessibleInterface *parent() const override { return QAccessible::queryAccessibleInterface(&m_view); }
    QAccessibleInterface *child(int) const override { return nullptr; }
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QString text(QAccessible::Text text) const override
    {
        return text == QAccessible::Name ? index().data(Qt::AccessibleTextRole).toString() : QString();
    }
    void setText(QAccessible::Text, const QString &) override {}
    QRect rect() const override
    {
        const QRect cell = m_view.visualRect(index());
        return {m_view.viewport()->mapToGlobal(cell.topLeft()), cell.size()};
    }
    QAccessible::State state() const override
    {
        QAccessible::State state;
        state.focusable = true;
        state.selectable = true;
        state.multiSelectable = true;
        state.selected = m_view.selectionModel()->isSelected(index());
        state.focused = m_view.hasFocus() && m_view.currentIndex() == index();
        state.offscreen = !m_view.viewport()->rect().intersects(m_view.visualRect(index()));
        return state;
    }

    int row() const { return m_row; }

private:
    QModelIndex index() const { return m_view.model()->index(m_row, 0); }

    BrowserView &m_view;
    int m_row;
};

class BrowserAccessible final : public QAccessibleWidget {
public:
    explicit BrowserAccessible(BrowserView &view)
        : QAccessibleWidget(&view, QAccessible::List)
        , m_view(view)
        , m_reset(QObject::connect(view.model(), &QAbstractItemModel::modelAboutToBeReset, [this] { forgetItems(); }))
    {}

    int childCount() const override { return m_view.model()->rowCount(); }
    QAccessibleInterface *child(int row) const override
    {
        if (row < 0 || row >= childCount())
            return nullptr;
        const auto [item, isNew] = m_items.try_emplace(row);
        if (isNew)
            item->second = QAccessible::registerAccessibleInterface(new FamilyAccessible(m_view, row));
        return QAccessible::accessibleInterface(item->second);
    }
    QAccessibleInterface *childAt(int x, int y) const override
    {
        return child(m_view.indexAt(m_view.viewport()->mapFromGlobal(QPoint(x, y))).row());
    }
    QAccessibleInterface *focusChild() const override { return child(m_view.currentIndex().row()); }
    int indexOfChild(const QAccessibleInterface *item) const override
    {
        const auto *family = dynamic_cast<const FamilyAccessible *>(item);
        return family == nullptr ? -1 : family->row();
    }

private:
    ~BrowserAccessible() override
    {
        QObject::disconnect(m_reset);
        forgetItems();
    }

    void forgetItems()
    {
        for (const auto &[row, id] : m_items)
            QAccessible::deleteAccessibleInterface(id);
        m_items.clear();
    }

    BrowserView &m_view;
    QMetaObject::Connection m_reset;
    mutable std::unordered_map<int, QAccessible::Id> m_items; // by row; those that somebody asked for
};

QAccessibleInterface *accessibleOf(const QString & /*className*/, QObject *object)
{
    auto *view = qobject_cast<BrowserView *>(object);
    return view == nullptr ? nullptr : new BrowserAccessible(*view);
}

} // namespace

void makeBrowserAccessible()
{
    QAccessible::installFactory(accessibleOf); // which it keeps once
}

void announceRow(BrowserView &view, int row)
{
    QAccessibleEvent reached(&view, QAccessible::Focus);
    reached.setChild(row);
    QAccessible::updateAccessibility(&reached);
}

} // namespace kerlune
