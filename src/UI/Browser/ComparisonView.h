#pragma once

#include "UI/Browser/ComparisonMeasures.h"
#include "UI/Workspace.h"

#include <QWidget>

#include <array>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

class QLabel;
class QScrollArea;
class QToolButton;

namespace kerlune {

class ComparisonOverlay;
class ComparisonRow;

// The families of AppState::comparisonSet below each other: the same text in the same size, on baselines with guides,
// and how each differs from the first. For the keyboard it is one place, with a current row.
//
// Thread: main; fonts are measured on others.
class ComparisonView final : public QWidget {
    Q_OBJECT

public:
    explicit ComparisonView(Workspace &workspace, QWidget *parent = nullptr);
    ~ComparisonView() override;

    const std::string &currentFamily() const { return m_current; } // empty when nothing is compared
    bool isPainted() const;                                        // every line is there, and measured

    void setOverlaid(bool isOverlaid); // shows all lines over each other as well

Q_SIGNALS:
    void contextMenuWanted(const QPoint &globalPosition);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void changeEvent(QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    using FaceKey = std::pair<std::string, double>; // PostScript name and time of the file

    void observeState();
    void follow(); // takes over what is compared
    ComparisonRow *makeRow();
    void fillRow(std::size_t index);
    void measure();
    std::optional<LineWidth> widthOf(const FontRecordPointer &face) const;
    void layOut();
    void placeRows();
    std::string comparedText() const;
    int lineWidth() const; // logical pixels that each line may take
    void want();
    void takePreviews();
    void showSize(double em);
    double commonSize(int room) const; // of the em, in logical pixels
    void retranslate();

    const std::vector<std::string> &compared() const { return m_workspace.state().comparisonSet.value(); }
    std::optional<std::size_t> currentIndex() const;
    void setCurrent(const std::string &family); // by the user: the inspector follows
    void step(int by);
    void move(const std::string &family, std::ptrdiff_t to);
    void remove(const std::string &family);
    void dragTo(const std::string &family, const QPoint &globalPosition);
    void markCurrent();
    bool handleKey(const QKeyEvent &event);

    Workspace &m_workspace;
    QLabel *m_size;
    std::array<QLabel *, 3> m_titles;
    QToolButton *m_overlaid;
    QLabel *m_empty;
    QScrollArea *m_scroll;
    QWidget *m_content;
    ComparisonOverlay *m_overlay;
    std::vector<ComparisonRow *> m_rows; // one for each family
    int m_rowHeight = 0;
    std::string m_current;
    std::string m_dragged;
    std::string m_measuredText;
    std::map<FaceKey, std::optional<LineWidth>> m_widths;
    std::set<FaceKey> m_beingMeasured;
    std::vector<QPropertyNotifier> m_observers;
};

} // namespace kerlune
