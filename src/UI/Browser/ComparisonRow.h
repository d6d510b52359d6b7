#pragma once

#include "UI/Preview/PreviewRequest.h"
#include "UI/Workspace.h"

#include <QString>
#include <QWidget>

#include <array>

class QToolButton;

namespace kerlune {

// One family of the comparison: its name and buttons, its line between guides, and how it differs from the first one.
//
// Thread: main.
class ComparisonRow final : public QWidget {
    Q_OBJECT

public:
    // What stands at the right, in this order; the first row says its own values, the others how they differ.
    enum Column { XHeight, CapHeight, Width };
    static constexpr int kColumns = 3;

    struct Value {
        QString text;
        QString detail = {}; // smaller, below it
    };

    struct Content {
        std::string family;
        FontRecordPointer face; // null when the library does not hold the family
        std::array<Value, kColumns> values = {};
        bool isFirst = false;
        bool isLast = false;
    };

    explicit ComparisonRow(Workspace &workspace, QWidget *parent = nullptr);

    void setContent(Content content);
    void setRequest(const PreviewRequest &request); // of the line; its size is lineRect() in device pixels
    void setCurrent(bool isCurrent, bool hasFocus);

    const Content &content() const { return m_content; }
    QRect lineRect() const;
    static QRect lineRect(const QSize &row);
    static QRect columnRect(const QSize &row, Column column);
    bool isPainted() const; // its line is there
    const PreviewPointer &preview() const { return m_preview; }

    void takePreview(); // paints again when it has come
    void retranslate();

Q_SIGNALS:
    void pressed();
    void dragged(const QPoint &globalPosition);
    void opened(); // by a double click
    void moveWanted(int by);
    void removeWanted();

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private:
    QToolButton *makeButton(const char *icon, const char *objectName);
    void paintGuides(QPainter &painter, const QRect &line) const;
    void paintLine(QPainter &painter, const QRect &line) const;
    void paintName(QPainter &painter) const;
    void paintValues(QPainter &painter) const;
    QString message() const; // in place of the line, when there is none

    Workspace &m_workspace;
    Content m_content;
    PreviewRequest m_request;
    PreviewPointer m_preview;
    bool m_isThere = false;
    bool m_isCurrent = false;
    bool m_hasFocus = false;
    QPoint m_pressPosition;
    bool m_isDragging = false;
    QToolButton *m_up;
    QToolButton *m_down;
    QToolButton *m_remove;
};

} // namespace kerlune
