#include "Bridge/MissingFontsWatcher.h"

#include <QPointer>

#include <algorithm>
#include <iterator>
#include <utility>

namespace kerlune {

MissingFontsWatcher::MissingFontsWatcher(HostBridge &bridge, FrontApplication &front, std::function<bool()> isEnabled,
                                         std::chrono::milliseconds interval)
    : m_bridge(bridge)
    , m_front(front)
    , m_isEnabled(std::move(isEnabled))
{
    m_sleep.setSingleShot(true);
    m_sleep.setInterval(interval);
    connect(&m_sleep, &QTimer::timeout, this, [this] {
        if (m_host)
            pass(*m_host, m_round);
    });
}

MissingFontsWatcher::~MissingFontsWatcher()
{
    if (m_handler)
        m_front.observe({});
}

void MissingFontsWatcher::start(Handler handler)
{
    m_handler = std::move(handler);
    m_front.observe([this](const FrontApplication::Program &program) { frontmostChanged(hostOf(program)); });
}

void MissingFontsWatcher::frontmostChanged(std::optional<HostApp> host)
{
    m_sleep.stop();
    m_host = host;
    ++m_round;
    if (host)
        pass(*host, m_round);
}

QCoro::Task<> MissingFontsWatcher::pass(HostApp host, std::int64_t round)
{
    const QPointer<MissingFontsWatcher> self(this);
    if (m_isEnabled())
        co_await poll(host);
    if (self && round == m_round)
        m_sleep.start();
}

QCoro::Task<> MissingFontsWatcher::poll(HostApp host)
{
    const QPointer<MissingFontsWatcher> self(this);
    const auto names = co_await m_bridge.host(host).documentNames();
    if (!self || !names)
        co_return;
    std::vector<std::string> documents;
    std::set_difference(names->begin(), names->end(), m_seen[host].begin(), m_seen[host].end(),
                        std::back_inserter(documents));
    if (documents.empty())
        co_return;
    auto fonts = co_await m_bridge.host(host).usedFonts(documents);
    if (!self || !fonts)
        co_return;
    const std::size_t seenBefore = m_seen[host].size();
    m_seen[host].insert(documents.begin(), documents.end());
    const bool isNews = m_seen[host].size() > seenBefore; // a poll of an earlier round may have come first
    if (isNews && !fonts->empty())
        co_await m_handler(std::move(*fonts), std::move(documents), host);
}

} // namespace kerlune
