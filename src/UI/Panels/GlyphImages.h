#pragma once

#include "UI/Panels/GlyphDrawer.h"

#include <QCache>
#include <QFutureWatcher>
#include <QObject>

#include <atomic>
#include <memory>
#include <utility>
#include <vector>

namespace kerlune {

// The glyphs of one face as images, drawn on another thread with the face opened once, and kept within a limit of
// bytes.
//
// Thread: main. Going waits for nothing: what is being drawn then comes to its end by itself.
class GlyphImages final : public QObject {
    Q_OBJECT

public:
    explicit GlyphImages(QObject *parent = nullptr);
    ~GlyphImages() override;

    void setFace(FontRecordPointer face, GlyphDrawer::Style style); // forgets the images where one of them is new

    // Null while it is not there; a null image where the glyph draws nothing.
    const QImage *find(std::uint32_t glyph) const;
    void setWanted(std::vector<std::uint32_t> nearestFirst); // in place of what was wanted before
    bool isIdle() const { return m_wanted.empty() && !m_watcher.isRunning(); }

Q_SIGNALS:
    void imagesReady();

private:
    using Images = std::vector<std::pair<std::uint32_t, QImage>>;
    struct Session; // a face that is open on the other thread

    void drawNext();
    void take();

    FontRecordPointer m_face;
    GlyphDrawer::Style m_style;
    std::shared_ptr<Session> m_session;
    std::shared_ptr<Session> m_drawingSession; // the one that draws at present
    std::vector<std::uint32_t> m_wanted;
    mutable QCache<std::uint32_t, QImage> m_images; // find() counts as use
    QFutureWatcher<Images> m_watcher;
};

} // namespace kerlune
