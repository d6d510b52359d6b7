#pragma once

#include "UI/Theme.h"

#include <QLabel>
#include <QString>
#include <QUrl>
#include <QWidget>

#include <vector>

class QGridLayout;

namespace kerlune {

// A plain text that wraps anywhere where it must, and can be selected and copied as it is.
class ValueLabel final : public QLabel {
    Q_OBJECT

public:
    explicit ValueLabel(QWidget *parent = nullptr);

    void setValue(const QString &value);
    const QString &value() const { return m_value; }

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    QString m_value; // without the places to break that the label shows it with
};

struct Fact {
    QString label;
    QString value;
    QUrl link = {}; // opens in the browser; only http and https do

    bool operator==(const Fact &) const = default;
};

// What is known about something: a label and a value in each row. A fact without a value is left out.
//
// Thread: main.
class FactList final : public QWidget {
    Q_OBJECT

public:
    explicit FactList(QWidget *parent = nullptr);

    void setFacts(const std::vector<Fact> &facts);

Q_SIGNALS:
    void linkActivated(const QUrl &link);

private:
    struct Row {
        QLabel *label;
        ValueLabel *value;
        QWidget *link;
    };

    Row makeRow(int index);

    QGridLayout *m_grid;
    std::vector<Row> m_rows;
};

} // namespace kerlune
