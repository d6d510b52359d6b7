#include "UI/Preview/PreviewQueue.h"

#include "TestFonts.h"
#include "UI/Preview/PreviewCache.h"
#include "WindowHome.h"

#include <QCoreApplication>
#include <QSemaphore>
#include <QTest>
#include <QThread>

#include <atomic>
#include <mutex>

namespace kerlune {
namespace {

PreviewRequest requestFor(const std::string &text, double mtime = 0)
{
    auto record = std::make_shared<FontRecord>();
    record->filePath = systemFont("truetype/dejavu/DejaVuSans.ttf");
    record->postScriptName = "DejaVuSans";
    record->mtime = mtime;
    return {.face = std::move(record), .text = text, .emPixels = 20, .size = {100, 40}, .color = QColor(Qt::black)};
}

std::vector<PreviewRequest> requestsFor(const std::vector<std::string> &texts)
{
    std::vector<PreviewRequest> requests;
    requests.reserve(texts.size());
    for (const std::string &text : texts)
        requests.push_back(requestFor(text));
    return requests;
}

PreviewPointer previewOf(int width, int height)
{
    return std::make_shared<const Preview>(
        Preview{.image = QImage(width, height, QImage::Format_ARGB32_Premultiplied)});
}

TEST(PreviewCache, KeepsThoseLastUsedWithinItsLimit)
{
    PreviewCache cache(3 * 100 * 100 * 4 + 10'000);
    for (const char *text : {"a", "b", "c"})
        cache.insert(requestFor(text), previewOf(100, 100));
    EXPECT_NE(cache.find(requestFor("a")), nullptr);
    cache.insert(requestFor("d"), previewOf(100, 100));
    EXPECT_TRUE(cache.contains(requestFor("a")));
    EXPECT_FALSE(cache.contains(requestFor("b")));
    EXPECT_FALSE(cache.contains(requestFor("a", 1))); // another time of the file

    cache.insert(requestFor("a"), previewOf(10, 10)); // in place of the large one
    EXPECT_LT(cache.byteCount(), 2U * 100 * 100 * 4 + 10'000);
    EXPECT_TRUE(cache.contains(requestFor("c")));
    cache.insert(requestFor("huge"), previewOf(1'000, 1'000));
    EXPECT_TRUE(cache.contains(requestFor("huge")));
    EXPECT_FALSE(cache.contains(requestFor("a")));
    cache.clear();
    EXPECT_EQ(cache.byteCount(), 0U);
    EXPECT_FALSE(cache.contains(requestFor("huge")));
}

// Drawing that goes on only when it is let.
class PreviewQueueTest : public testing::Test {
protected:
    ~PreviewQueueTest() override
    {
        m_gate.release(1'000'000);
        m_queue.reset();
    }

    Preview draw(const PreviewRequest &request)
    {
        {
            const std::lock_guard lock(m_mutex);
            m_begun.push_back(request.text);
        }
        m_gate.acquire();
        ++m_ended;
        return {.failure = Preview::Failure::NoInk, .text = QString::fromStdString(request.text)};
    }

    std::vector<std::string> begun()
    {
        const std::lock_guard lock(m_mutex);
        return m_begun;
    }

    // Keeps all threads but for one busy, and that one at the first of the texts.
    void occupy(const QObject &view)
    {
        std::vector<std::string> texts;
        for (int i = 0; i < std::max(1, QThread::idealThreadCount()); ++i)
            texts.push_back("busy " + std::to_string(i));
        m_queue->setWanted(&view, requestsFor(texts));
        ASSERT_TRUE(waitFor([&] { return begun().size() == texts.size(); }));
    }

    // Lets them go on one after the other, so that they begin the next ones in a known order.
    void letDraw(std::size_t count)
    {
        for (std::size_t i = 0; i < count; ++i) {
            const std::size_t before = begun().size();
            m_gate.release();
            ASSERT_TRUE(waitFor([&] { return begun().size() > before; }));
        }
    }

    std::vector<std::string> begunAfter(std::size_t count)
    {
        auto texts = begun();
        texts.erase(texts.begin(), texts.begin() + static_cast<std::ptrdiff_t>(count));
        return texts;
    }

    void finish()
    {
        m_gate.release(1'000'000);
        ASSERT_TRUE(waitFor([&] { return m_queue->isIdle(); }));
    }

    int m_argc = 0;
    QCoreApplication m_application{m_argc, nullptr};
    std::mutex m_mutex;
    std::vector<std::string> m_begun; // guarded by the mutex
    std::atomic<std::size_t> m_ended = 0;
    QSemaphore m_gate;
    std::unique_ptr<PreviewQueue> m_queue = std::make_unique<PreviewQueue>(
        PreviewQueue::kDefaultByteLimit, [this](const PreviewRequest &request) { return draw(request); });
};

TEST_F(PreviewQueueTest, TakesTheNearestOfTheViewThatAskedLast)
{
    QObject busy;
    QObject first;
    QObject second;
    occupy(busy);
    const std::size_t count = begun().size();
    m_queue->setWanted(&first, requestsFor({"a", "b", "shared"}));
    m_queue->setWanted(&second, requestsFor({"c", "shared"}));
    letDraw(4);
    EXPECT_THAT(begunAfter(count), ElementsAre("c", "shared", "a", "b"));
    finish();
    EXPECT_THAT(begunAfter(count), SizeIs(4)); // what two views want is drawn once
    EXPECT_NE(m_queue->find(requestFor("shared")), nullptr);
}

TEST_F(PreviewQueueTest, DropsWhatIsNoLongerWanted)
{
    QObject busy;
    QObject view;
    auto gone = std::make_unique<QObject>();
    occupy(busy);
    const std::size_t count = begun().size();
    m_queue->setWanted(&view, requestsFor({"a", "b", "c"}));
    m_queue->setWanted(gone.get(), requestsFor({"d", "e"}));
    m_queue->setWanted(&view, requestsFor({"c", "f"}));
    gone.reset();
    finish();
    EXPECT_THAT(begunAfter(count), UnorderedElementsAre("c", "f"));
    EXPECT_EQ(m_queue->find(requestFor("a")), nullptr);
}

TEST_F(PreviewQueueTest, DrawsAgainWhatWasForgottenMeanwhile)
{
    QObject view;
    m_queue->setWanted(&view, requestsFor({"a"}));
    ASSERT_TRUE(waitFor([&] { return begun().size() == 1; }));
    m_queue->clear();
    finish();
    EXPECT_THAT(begun(), ElementsAre("a", "a"));
    m_queue->clear();
    finish();
    EXPECT_THAT(begun(), ElementsAre("a", "a", "a")); // still wanted
    EXPECT_NE(m_queue->find(requestFor("a")), nullptr);
}

TEST_F(PreviewQueueTest, WaitsForWhatIsBeingDrawnWhenItGoes)
{
    QObject view;
    std::vector<std::string> texts(100);
    for (std::size_t i = 0; i < texts.size(); ++i)
        texts[i] = std::to_string(i);
    m_queue->setWanted(&view, requestsFor(texts));
    ASSERT_TRUE(waitFor([&] { return !begun().empty(); }));
    const std::unique_ptr<QThread> letting(QThread::create([&] { m_gate.release(1'000'000); }));
    letting->start();
    m_queue.reset();
    EXPECT_EQ(m_ended, begun().size());
    letting->wait();
}

} // namespace
} // namespace kerlune
