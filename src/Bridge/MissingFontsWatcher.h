#pragma once

#include "Bridge/HostBridge.h"
#include "Bridge/UsedFont.h"
#include "Platform/FrontApplication.h"

#include <QCoroTask>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace kerlune {

// While the user works in a host, asks it every few seconds for its open documents, and for each one that was not there
// before which fonts it uses. A document is looked at once: one that is closed and opened again is not.
//
// Thread: main; the scripts run on others.
// Errors: none. What a host does not answer is asked again the next time.
class MissingFontsWatcher final : public QObject {
    Q_OBJECT

public:
    using UsedFont = kerlune::UsedFont;
    using Handler =
        std::function<QCoro::Task<>(std::vector<UsedFont> fonts, std::vector<std::string> documents, HostApp host)>;

    static constexpr std::chrono::milliseconds kInterval{3'000};

    // These must outlive the watcher. `isEnabled` is asked before each question to a host.
    MissingFontsWatcher(HostBridge &bridge, FrontApplication &front, std::function<bool()> isEnabled,
                        std::chrono::milliseconds interval = kInterval);
    ~MissingFontsWatcher() override;

    void start(Handler handler);

private:
    void frontmostChanged(std::optional<HostApp> host);
    QCoro::Task<> pass(HostApp host, std::int64_t round);
    QCoro::Task<> poll(HostApp host);

    HostBridge &m_bridge;
    FrontApplication &m_front;
    std::function<bool()> m_isEnabled;
    Handler m_handler;
    QTimer m_sleep;
    std::optional<HostApp> m_host;
    std::int64_t m_round = 0; // grows with each change of the program in front: what belongs to an earlier one ends
    std::map<HostApp, std::set<std::string>> m_seen; // names of documents
};

} // namespace kerlune
