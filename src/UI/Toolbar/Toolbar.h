#pragma once

#include "UI/Workspace.h"

#include <QWidget>

#include <utility>
#include <vector>

class QAction;
class QButtonGroup;
class QLineEdit;
class QMenu;
class QToolButton;

namespace kerlune {

class PreviewTextBox;
class SizeControl;

// The search, the preview text and its size, the view modes, and applying the selected font.
//
// Thread: main.
class Toolbar final : public QWidget {
    Q_OBJECT

public:
    explicit Toolbar(Workspace &workspace, QWidget *parent = nullptr);

    // The button that applies the selected font: a click does this, and a menu offers the rest.
    void setApply(QAction &action, QMenu &menu);
    void focusSearch();
    void focusPreviewText();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void addSearch();
    void addViewModes();
    void layOut();
    void retranslate();
    void showSearch();
    void showViewMode();

    Workspace &m_workspace;
    QLineEdit *m_search;
    PreviewTextBox *m_previewText;
    SizeControl *m_size;
    QToolButton *m_apply;
    std::vector<std::pair<ViewMode, QToolButton *>> m_viewModes;
    QButtonGroup *m_viewModeGroup;
    std::vector<QPropertyNotifier> m_observers;
};

} // namespace kerlune
