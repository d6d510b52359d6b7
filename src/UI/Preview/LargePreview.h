#pragma once

#include "UI/Workspace.h"

#include <QPointer>
#include <QWidget>

#include <optional>
#include <vector>

class QLabel;
class QToolButton;

namespace kerlune {

class PreviewLabel;

// The active face across the whole window. The arrow keys step through the visible families, + and − change the size,
// Space and Escape close it and give the focus back to where it was.
//
// Thread: main.
class LargePreview final : public QWidget {
    Q_OBJECT

public:
    explicit LargePreview(Workspace &workspace, QWidget *parent = nullptr);

    void open(); // over its parent; does nothing without an active face
    void leave();

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    bool focusNextPrevChild(bool) override { return true; } // the focus stays here until it is closed

private:
    QToolButton *addButton(const char *objectName, const char *icon, void (LargePreview::*command)());
    void showPrevious() { step(-1); }
    void showNext() { step(1); }
    void showSmaller() { setEmSize(m_emSize / kSizeStep); }
    void showLarger() { setEmSize(m_emSize * kSizeStep); }

    void step(int by);
    void setEmSize(double emSize);
    std::optional<std::size_t> position(); // of the selected family among the visible ones
    void refresh();
    void elideNames(const FontRecord &face);
    void retranslate();

    static constexpr double kSizeStep = 1.25;

    Workspace &m_workspace;
    QLabel *m_family;
    QLabel *m_style;
    QLabel *m_position;
    QLabel *m_size;
    QToolButton *m_previous;
    QToolButton *m_next;
    QToolButton *m_smaller;
    QToolButton *m_larger;
    QToolButton *m_close;
    PreviewLabel *m_preview;
    double m_emSize = 96; // logical pixels
    std::size_t m_lastPosition = 0;
    QPointer<QWidget> m_focusedBefore;
    std::vector<QPropertyNotifier> m_observers;
};

} // namespace kerlune
