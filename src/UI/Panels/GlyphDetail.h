#pragma once

#include "UI/Panels/GlyphDrawer.h"
#include "UI/Theme.h"

#include <QWidget>

#include <optional>

class QLabel;

namespace kerlune {

// One character in large, with the lines that it stands on, its name and its measures.
//
// Thread: main.
class GlyphDetail final : public QWidget {
    Q_OBJECT

public:
    explicit GlyphDetail(const Theme &theme, QWidget *parent = nullptr);

    void setEntry(std::optional<CharacterMap::Entry> entry); // clears the portrait
    void setPortrait(GlyphDrawer::Portrait portrait);
    QSize portraitSize() const; // logical pixels
    void retranslate();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QRect portraitArea() const;

    const Theme &m_theme;
    std::optional<CharacterMap::Entry> m_entry;
    std::optional<GlyphDrawer::Portrait> m_portrait;
    QLabel *m_name;
    QLabel *m_code;
    QLabel *m_measures;
};

} // namespace kerlune
