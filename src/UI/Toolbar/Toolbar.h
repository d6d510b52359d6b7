#pragma once

#include "UI/Workspace.h"

#include <QWidget>

#include <utility>
#include <vector>

class QButtonGroup;
class QLineEdit;
class QToolButton;

namespace kerlune {

class PreviewTextBox;
class SizeControl;

// The search, the preview text and its size, and the view modes.
//
// Thread: main.
class Toolbar final : public QWidget {
    Q_OBJECT

public:
    explicit Toolbar(Workspace &workspace, QWidget *parent = nullptr);

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
    std::vector<std::pair<ViewMode, QToolButton *>> m_viewModes;
    QButtonGroup *m_viewModeGroup;
    std::vector<QPropertyNotifier> m_observers;
};

} // namespace kerlune
