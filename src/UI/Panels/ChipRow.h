#pragma once

#include "UI/Theme.h"

#include <QString>
#include <QWidget>

#include <string>
#include <vector>

class QToolButton;

namespace kerlune {

// Short names in a row, each of which can be taken away, and a button that adds one.
//
// Thread: main.
class ChipRow final : public QWidget {
    Q_OBJECT

public:
    struct Chip {
        std::string id;
        QString text; // plain
        QString removeText;

        bool operator==(const Chip &) const = default;
    };

    explicit ChipRow(const Theme &theme, QWidget *parent = nullptr);

    void setChips(std::vector<Chip> chips);
    QToolButton *addButton() const { return m_addButton; }

Q_SIGNALS:
    void removeWanted(const std::string &id);

private:
    QWidget *makeChip(const Chip &chip);

    const Theme &m_theme;
    std::vector<Chip> m_shown;
    std::vector<QWidget *> m_widgets;
    QToolButton *m_addButton;
};

} // namespace kerlune
