#include "UI/Browser/BrowserSelection.h"

#include <QItemSelectionModel>
#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace kerlune {

BrowserSelection::BrowserSelection(Workspace &workspace, FamilyListModel &model, BrowserView &view)
    : QObject(&view)
    , m_workspace(workspace)
    , m_model(model)
    , m_view(view)
{
    const QItemSelectionModel *selection = view.selectionModel();
    connect(selection, &QItemSelectionModel::selectionChanged, this, [this] {
        if (!m_isBusy)
            write();
    });
    connect(selection, &QItemSelectionModel::currentChanged, this, [this, selection](const QModelIndex &current) {
        if (!m_isBusy && selection->isSelected(current)) // else it is about to be selected, or only focused
            write();
    });
    m_observers.push_back(workspace.selectedFamilies.addNotifier([this] {
        if (!m_isBusy)
            readFamilies();
    }));
    m_observers.push_back(workspace.state().selectedFamily.addNotifier([this] {
        if (!m_isBusy)
            readCurrent();
    }));
}

void BrowserSelection::write()
{
    const QScopedValueRollback<bool> busy(m_isBusy, true);
    AppState &state = m_workspace.state();
    const std::vector<int> rows = m_view.selectedRows();
    const std::vector<std::string> names = m_view.selectedNames();
    const QModelIndex current = m_view.currentIndex();
    // Where the current one is not selected any more, the next one that is takes its place, else the last one.
    std::optional<std::string> name;
    if (!rows.empty()) {
        const auto next = std::lower_bound(rows.begin(), rows.end(), current.row());
        name = m_model.name(next == rows.end() ? rows.back() : *next);
    }
    m_workspace.selectedFamilies = names;
    if (state.selectedFamily.value() == name)
        return;
    state.selectedFace = std::nullopt;
    state.selectedFamily = name;
}

std::optional<int> BrowserSelection::currentRow(const std::vector<int> &selected) const
{
    const auto &name = m_workspace.state().selectedFamily.value();
    const auto isCurrent = [&](int row) { return name && m_model.name(row) == *name; };
    const auto found = std::find_if(selected.begin(), selected.end(), isCurrent);
    if (found != selected.end())
        return *found;
    return selected.empty() ? std::nullopt : std::optional(selected.front());
}

void BrowserSelection::readFamilies()
{
    const QScopedValueRollback<bool> busy(m_isBusy, true);
    const std::vector<int> rows = m_model.rowsOf(m_workspace.selectedFamilies.value());
    m_view.selectRows(rows, currentRow(rows));
}

// Another part of the window has chosen a family by itself: it is the only one selected then.
void BrowserSelection::readCurrent()
{
    const QScopedValueRollback<bool> busy(m_isBusy, true);
    const std::optional<std::string> name = m_workspace.state().selectedFamily.value();
    const std::vector<std::string> &selected = m_workspace.selectedFamilies.value();
    if (!name)
        m_workspace.selectedFamilies = std::vector<std::string>();
    else if (std::find(selected.begin(), selected.end(), *name) == selected.end())
        m_workspace.selectedFamilies = std::vector{*name};
    const std::vector<int> rows = m_model.rowsOf(m_workspace.selectedFamilies.value());
    m_view.selectRows(rows, currentRow(rows));
    if (name && m_view.currentIndex().isValid())
        m_view.scrollTo(m_view.currentIndex());
}

void BrowserSelection::hold()
{
    m_isBusy = true;
    m_heldSelection = m_view.selectedNames();
    const QModelIndex current = m_view.currentIndex();
    m_heldCurrent = current.isValid() ? m_model.name(current.row()) : std::string();
}

void BrowserSelection::restore()
{
    std::vector<std::string> names = m_workspace.selectedFamilies.value();
    if (const auto &current = m_workspace.state().selectedFamily.value())
        names.push_back(*current);
    const std::vector<int> rows = m_model.rowsOf(names);
    const std::optional<int> focused = m_heldCurrent.empty() ? std::nullopt : m_model.rowOf(m_heldCurrent);
    m_view.selectRows(rows, rows.empty() ? focused : currentRow(rows));
    m_isBusy = false;
    const std::vector<std::string> held = std::exchange(m_heldSelection, {});
    if (m_model.rowsOf(held).size() < held.size())
        write();
}

} // namespace kerlune
