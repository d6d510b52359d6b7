#include "UI/Panels/GlyphImages.h"

#include <QtConcurrentRun>

#include <algorithm>

namespace kerlune {

namespace {

constexpr qsizetype kMostBytes = 24 << 20;
constexpr std::size_t kAtOnce = 24; // few enough to see them come

} // namespace

struct GlyphImages::Session {
    FontRecordPointer face;
    GlyphDrawer::Style style;
    std::atomic<bool> isOver = false;
    bool isOpen = false;
    std::shared_ptr<GlyphDrawer> drawer = {};

    Images draw(const std::vector<std::uint32_t> &glyphs)
    {
        if (!std::exchange(isOpen, true))
            drawer = GlyphDrawer::open(*face);
        Images images;
        for (const std::uint32_t glyph : glyphs) {
            if (isOver)
                break;
            images.emplace_back(glyph, drawer == nullptr ? QImage() : drawer->draw(glyph, style));
        }
        return images;
    }
};

GlyphImages::GlyphImages(QObject *parent)
    : QObject(parent)
    , m_images(kMostBytes)
{
    connect(&m_watcher, &QFutureWatcherBase::finished, this, &GlyphImages::take);
}

GlyphImages::~GlyphImages()
{
    if (m_session != nullptr)
        m_session->isOver = true;
}

void GlyphImages::setFace(FontRecordPointer face, GlyphDrawer::Style style)
{
    if (face == m_face && style == m_style)
        return;
    m_face = std::move(face);
    m_style = std::move(style);
    m_images.clear();
    m_wanted.clear();
    if (m_session != nullptr)
        m_session->isOver = true;
    m_session = m_face == nullptr ? nullptr : std::make_shared<Session>();
    if (m_session != nullptr) {
        m_session->face = m_face;
        m_session->style = m_style;
    }
}

const QImage *GlyphImages::find(std::uint32_t glyph) const
{
    return m_images.object(glyph);
}

void GlyphImages::setWanted(std::vector<std::uint32_t> nearestFirst)
{
    m_wanted = std::move(nearestFirst);
    drawNext();
}

// One session draws at a time, and no session on two threads.
void GlyphImages::drawNext()
{
    std::erase_if(m_wanted, [this](std::uint32_t glyph) { return m_images.contains(glyph); });
    if (m_watcher.isRunning() || m_wanted.empty() || m_session == nullptr)
        return;
    m_wanted.resize(std::min(m_wanted.size(), std::size_t{4096}));
    std::vector<std::uint32_t> glyphs(
        m_wanted.begin(), m_wanted.begin() + static_cast<std::ptrdiff_t>(std::min(kAtOnce, m_wanted.size())));
    m_drawingSession = m_session;
    m_watcher.setFuture(
        QtConcurrent::run([session = m_session, glyphs = std::move(glyphs)] { return session->draw(glyphs); }));
}

void GlyphImages::take()
{
    if (m_drawingSession == m_session) {
        for (auto &[glyph, image] : m_watcher.result()) {
            const qsizetype bytes = image.sizeInBytes() + 64;
            m_images.insert(glyph, new QImage(image), bytes); // NOLINT(cppcoreguidelines-owning-memory)
        }
        Q_EMIT imagesReady();
    }
    drawNext();
}

} // namespace kerlune
