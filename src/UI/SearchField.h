#pragma once

#include <QLineEdit>

class QAbstractButton;

namespace kerlune {

// A line to search by, with a button that empties it.
//
// Thread: main.
class SearchField final : public QLineEdit {
public:
    explicit SearchField(QWidget *parent = nullptr);

protected:
    void changeEvent(QEvent *event) override;

private:
    void nameClearButton(); // for screen readers; Qt leaves it nameless

    QAbstractButton *m_clear = nullptr;
};

} // namespace kerlune
