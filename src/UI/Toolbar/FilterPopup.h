#pragma once

#include "UI/Toolbar/FilterKind.h"
#include "UI/Workspace.h"

#include <QFrame>

#include <functional>
#include <vector>

class QVBoxLayout;

namespace kerlune {

class CheckList;

// A small window below a chip in which the value of one filter is chosen. Each choice counts at once; Escape or a click
// elsewhere closes it.
//
// Thread: main.
class FilterPopup final : public QFrame {
    Q_OBJECT

public:
    FilterPopup(FilterKind kind, Workspace &workspace, QWidget *parent); // of a filter that is no switch

    void openBelow(const QWidget &anchor);

protected:
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    using Change = std::function<void(Filters &)>;

    void fill();
    void refill();
    CheckList *addList(FilterKind kind);
    void fillWithClasses();
    void fillWithLanguages();
    void fillWithWeights();
    void fillWithItalics();
    void fillWithTags();
    void fillWithGlyphs();
    void change(const Change &change);
    const Filters &filters() const { return m_filters; }

    FilterKind m_kind;
    Workspace &m_workspace;
    QVBoxLayout *m_layout;
    Filters m_filters; // when it was filled
};

} // namespace kerlune
