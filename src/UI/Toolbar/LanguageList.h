#pragma once

#include "UI/Theme.h"

#include <QWidget>

#include <cstdint>
#include <map>
#include <string>

class QLineEdit;
class QTreeWidgetItem;

namespace kerlune {

class CheckList;

// The languages by their groups, with the numbers of families that cover them, to be ticked; a field above narrows them
// down as one types.
//
// Thread: main.
class LanguageList final : public QWidget {
    Q_OBJECT

public:
    using Counts = std::map<std::string, std::int64_t>; // by language id

    LanguageList(const Counts &counts, std::uint64_t chosenBits, const Theme &theme, QWidget *parent = nullptr);

    QSize sizeHint() const override { return {280, 380}; }

Q_SIGNALS:
    void chosen(std::uint64_t bits);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void fill(const Counts &counts);
    void narrow(const QString &typed);
    void take(QTreeWidgetItem *item, bool on);

    std::uint64_t m_bits;
    QLineEdit *m_search;
    CheckList *m_list;
};

} // namespace kerlune
