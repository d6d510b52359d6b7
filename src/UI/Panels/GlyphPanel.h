#pragma once

#include "UI/Panels/FacePanel.h"
#include "UI/Panels/GlyphImages.h"

#include <QFutureWatcher>
#include <QProperty>

#include <atomic>
#include <memory>
#include <optional>
#include <vector>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace kerlune {

class GlyphDetail;
class GlyphGrid;

// All characters of the face by the blocks of Unicode: search them, look at one in large, copy it.
//
// Thread: main.
class GlyphPanel final : public FacePanel {
    Q_OBJECT

public:
    explicit GlyphPanel(Workspace &workspace, QWidget *parent = nullptr);
    ~GlyphPanel() override;

    bool isSettled() const override;

protected:
    void showFace(Change change) override;
    void retranslate() override;

private:
    using Entries = std::vector<CharacterMap::Entry>;
    struct Block {
        int id = 0;
        std::size_t first = 0; // of the characters
        std::size_t count = 0;
    };
    struct Contents {
        std::shared_ptr<const Entries> characters;
        std::vector<Block> blocks = {};
    };

    static Contents readContents(const FontFace &face);
    void layOut();
    void follow();
    void listBlocks();
    void search();
    void showMessage(const QString &text); // in place of the grid; the grid itself where it is empty
    void showCurrent();
    void portray();
    void styleImages();
    void copyText(const QString &text);
    void openMenu(const QPoint &position);
    QString currentText() const;

    std::optional<Contents> m_contents; // absent until they are read
    GlyphImages m_images;
    bool m_isSearching = false;
    bool m_isUnreadable = false; // the file of the face
    bool m_isPortraying = false;
    bool m_isPortraitOld = false; // it will be of another glyph than the current one
    QLineEdit *m_search;
    QComboBox *m_blocks;
    QLabel *m_message;
    GlyphGrid *m_grid;
    GlyphDetail *m_detail;
    QPushButton *m_copy;
    QFutureWatcher<Entries> m_searching;
    std::shared_ptr<std::atomic<bool>> m_stopSearch;
    std::vector<QPropertyNotifier> m_observers;
};

} // namespace kerlune
