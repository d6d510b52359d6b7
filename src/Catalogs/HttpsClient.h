#pragma once

#include <QByteArray>
#include <QFuture>
#include <QFutureWatcher>
#include <QObject>
#include <QSslConfiguration>
#include <QTimer>
#include <QUrl>
#include <tl/expected.hpp>

#include <array>
#include <chrono>
#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <string>

class QNetworkReply;

namespace kerlune {

// Fetches what servers offer over HTTPS, six at a time; the others wait in the order in which they came. However many
// servers there are, no more than six connections are open at once, idle ones included. Only https addresses are
// followed, the first one and where it leads to. What was sent once is not sent again, also when the server hangs up.
//
// Thread: main. A future always finishes with a result, also when the client goes.
// Errors: no answer, or not a whole one. An answer of any status is a response; its caller judges it.
class HttpsClient final : public QObject {
    Q_OBJECT

public:
    static constexpr int kMostConnections = 6;
    static constexpr int kMostRedirects = 5;

    struct Limits {
        std::int64_t mostBytes;                   // of the body
        std::chrono::milliseconds silence;        // the longest time without a byte
        std::chrono::milliseconds whole{180'000}; // from the first byte asked for to the last one received
    };

    struct Response {
        int status = 0; // HTTP
        QByteArray body = {};
    };

    struct Error {
        enum class Case { notHttps, noAnswer, timedOut, tooLarge, cancelled };
        Case kind;
        std::string host = {};
        std::string detail = {}; // noAnswer: what the system says

        std::string description() const; // for the user
    };

    using Result = tl::expected<Response, Error>;
    using Progress = std::function<void(double share)>; // of the body, 0…1, where the server tells its length

    explicit HttpsClient(QObject *parent = nullptr);
    ~HttpsClient() override;

    QFuture<Result> get(const QUrl &url, const Limits &limits, Progress onProgress = {});

    static bool mayFetch(const QUrl &url); // an https address with a host

private:
    struct Job;
    struct Slot; // one connection, open or not
    using JobPointer = std::shared_ptr<Job>;

    void loadTls();
    void startWaiting();
    Slot *slotFor(const QString &server);
    std::size_t share() const;
    void noteServers();
    void start(const JobPointer &job);
    void takeBytes(Job &job) const;
    void stop(Job &job, Error::Case reason) const;
    void end(const JobPointer &job);
    void leaveSlot(Job &job);
    Result outcome(Job &job) const;
    bool followRedirect(const JobPointer &job);
    void finish(Job &job, Result result) const;
    void closeIdle();

    QSslConfiguration m_tls; // null until the certificates have been read
    QFutureWatcher<QSslConfiguration> m_tlsLoading;
    std::array<std::unique_ptr<Slot>, kMostConnections> m_slots;
    std::list<JobPointer> m_waiting;
    std::list<JobPointer> m_running;
    std::size_t m_mostServers = 1; // that were asked at the same time so far
    QTimer m_idle;                 // since the last answer
};

} // namespace kerlune
