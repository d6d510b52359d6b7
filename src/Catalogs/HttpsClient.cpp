#include "Catalogs/HttpsClient.h"

#include "Catalogs/TrustedCertificates.h"
#include "Support/Localization.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QPromise>
#include <QTimer>
#include <QtConcurrentRun>

#include <algorithm>
#include <optional>
#include <set>
#include <utility>

namespace kerlune {

namespace {

constexpr int kBadRequest = 400;
// Sooner than any usual server closes a connection that nobody uses: a request must not cross with that.
constexpr std::chrono::seconds kIdle{3};

QString serverOf(const QUrl &url)
{
    constexpr int kHttpsPort = 443;
    return url.host() + QLatin1Char(':') + QString::number(url.port(kHttpsPort));
}

// Qt reports statuses from 400 on as errors too; these have a body like others.
bool isWhole(QNetworkReply::NetworkError error, int status)
{
    if (error == QNetworkReply::NoError)
        return status != 0;
    const bool isAboutContent =
        (error >= QNetworkReply::ContentAccessDenied && error <= QNetworkReply::UnknownContentError) ||
        error == QNetworkReply::ProtocolInvalidOperationError || error >= QNetworkReply::InternalServerError;
    return status >= kBadRequest && isAboutContent;
}

// Where the server tells the length of what comes over the wire and packs nothing, that much must have come.
bool isCutShort(const QNetworkReply &reply, qint64 received)
{
    const QVariant length = reply.header(QNetworkRequest::ContentLengthHeader);
    return length.isValid() && !reply.hasRawHeader("Content-Encoding") && received < length.toLongLong();
}

std::string hungUp()
{
    return localized("la connexion a été coupée.");
}

// The empty body of a request. Where a server hangs up before it has answered, Qt would ask again, three times, or wait
// on in vain; it does not when there is a body that cannot be read a second time.
class OnceOnly final : public QIODevice {
public:
    bool isSequential() const override { return true; }
    bool reset() override { return false; }

protected:
    qint64 readData(char *, qint64) override { return -1; }
    qint64 writeData(const char *, qint64) override { return -1; }
};

// Whether the connection can take another request. One that is being closed must not be counted as closed already.
bool staysOpen(const QNetworkReply &reply, qint64 received)
{
    const int status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    const bool hasEnd = reply.hasRawHeader("Content-Length") || reply.hasRawHeader("Transfer-Encoding");
    return isWhole(reply.error(), status) && hasEnd && !isCutShort(reply, received) &&
           !reply.rawHeader("Connection").toLower().contains("close");
}

} // namespace

// A manager opens up to six connections to each server, and another one while an old one is being closed. With one for
// each connection, which is given one request at a time and is cleared whenever its connection ends, they can be
// counted.
struct HttpsClient::Slot {
    QNetworkAccessManager manager;
    QString server; // empty while there is no connection
    bool isBusy = false;

    void close()
    {
        if (!server.isEmpty())
            manager.clearConnectionCache();
        server.clear();
    }
};

struct HttpsClient::Job {
    Job(QUrl address, const Limits &given, Progress progress)
        : url(std::move(address))
        , server(serverOf(url))
        , limits(given)
        , onProgress(std::move(progress))
    {}

    QUrl url;
    QString server;
    Limits limits;
    Progress onProgress;
    QPromise<Result> promise;
    QTimer deadline;
    QByteArray body;
    Slot *slot = nullptr;              // null while it waits
    QNetworkReply *reply = nullptr;    // of the slot's manager; likewise
    std::optional<Error::Case> reason; // why it was stopped
    int redirects = 0;
};

std::string HttpsClient::Error::description() const
{
    switch (kind) {
    case Case::notHttps:
        return localized("L’adresse de « %1 » n’est pas en HTTPS.", {host});
    case Case::noAnswer:
        return localized("Aucune réponse complète de « %1 » : %2", {host, detail});
    case Case::timedOut:
        return localized("« %1 » n’a pas répondu à temps.", {host});
    case Case::tooLarge:
        return localized("La réponse de « %1 » est trop longue.", {host});
    case Case::cancelled:
        return localized("Téléchargement interrompu.");
    }
    return {};
}

HttpsClient::HttpsClient(QObject *parent)
    : QObject(parent)
{
    m_idle.setSingleShot(true);
    m_idle.callOnTimeout(this, &HttpsClient::closeIdle);
    connect(&m_tlsLoading, &QFutureWatcherBase::finished, this, [this] {
        m_tls = m_tlsLoading.result();
        startWaiting();
    });
}

HttpsClient::~HttpsClient()
{
    for (const JobPointer &job : m_running) {
        job->reply->disconnect(this);
        job->reply->abort();
        finish(*job, tl::unexpected(Error{Error::Case::cancelled}));
    }
    for (const JobPointer &job : m_waiting)
        finish(*job, tl::unexpected(Error{Error::Case::cancelled}));
}

bool HttpsClient::mayFetch(const QUrl &url)
{
    return url.isValid() && url.scheme() == QLatin1String("https") && !url.host().isEmpty();
}

QFuture<HttpsClient::Result> HttpsClient::get(const QUrl &url, const Limits &limits, Progress onProgress)
{
    const auto job = std::make_shared<Job>(url, limits, std::move(onProgress));
    job->promise.start();
    QFuture<Result> future = job->promise.future();
    if (!mayFetch(url)) {
        finish(*job, tl::unexpected(Error{Error::Case::notHttps, url.host().toStdString()}));
        return future;
    }
    m_waiting.push_back(job);
    if (m_tls.isNull())
        loadTls();
    else
        startWaiting();
    return future;
}

// To read all certificates takes longer than a window may stand still.
void HttpsClient::loadTls()
{
    if (!m_tlsLoading.isRunning())
        m_tlsLoading.setFuture(QtConcurrent::run(systemTls));
}

void HttpsClient::startWaiting()
{
    noteServers();
    for (auto next = m_waiting.begin(); next != m_waiting.end();) {
        if (m_running.size() == m_slots.size())
            return;
        const JobPointer job = *next;
        job->slot = slotFor(job->server);
        if (job->slot == nullptr) {
            ++next;
            continue;
        }
        next = m_waiting.erase(next);
        m_running.push_back(job);
        start(job);
    }
}

// One whose connection leads to the server, else one without a connection, else one whose connection nobody uses; null
// while this server has its share.
HttpsClient::Slot *HttpsClient::slotFor(const QString &server)
{
    std::size_t busy = 0;
    Slot *found = nullptr;
    const auto fitness = [&](const Slot &slot) { return slot.server == server ? 2 : slot.server.isEmpty() ? 1 : 0; };
    for (std::unique_ptr<Slot> &slot : m_slots) {
        if (slot == nullptr)
            slot = std::make_unique<Slot>();
        if (slot->isBusy)
            busy += slot->server == server ? 1 : 0;
        else if (found == nullptr || fitness(*slot) > fitness(*found))
            found = slot.get();
    }
    if (found == nullptr || busy >= share())
        return nullptr;
    if (found->server != server)
        found->close();
    found->server = server;
    found->isBusy = true;
    return found;
}

// How many of the connections a server may use. Once several servers were asked at the same time, each leaves room for
// another, so that one that is slow does not hold up all.
std::size_t HttpsClient::share() const
{
    return m_slots.size() / std::min<std::size_t>(m_mostServers, 3);
}

void HttpsClient::noteServers()
{
    std::set<QString> servers;
    for (const auto *jobs : {&m_waiting, &m_running}) {
        for (const JobPointer &job : *jobs)
            servers.insert(job->server);
    }
    m_mostServers = std::max(m_mostServers, servers.size());
}

void HttpsClient::start(const JobPointer &job)
{
    QNetworkRequest request(job->url);
    request.setSslConfiguration(m_tls);
    request.setHeader(QNetworkRequest::UserAgentHeader, QStringLiteral("Kerlune"));
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false); // its connections could not be counted
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setTransferTimeout(static_cast<int>(job->limits.silence.count()));
    job->body.clear();
    request.setAttribute(QNetworkRequest::DoNotBufferUploadDataAttribute, true);
    request.setHeader(QNetworkRequest::ContentLengthHeader, 0);
    auto body = std::make_unique<OnceOnly>();
    body->open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    job->reply = job->slot->manager.sendCustomRequest(request, "GET", body.get());
    body.release()->setParent(job->reply);
    connect(job->reply, &QNetworkReply::readyRead, this, [this, job] { takeBytes(*job); });
    connect(
        job->reply, &QNetworkReply::finished, this, [this, job] { end(job); }, Qt::QueuedConnection);
    if (job->deadline.isActive())
        return;
    job->deadline.setSingleShot(true);
    job->deadline.callOnTimeout(this, [this, waiting = std::weak_ptr(job)] {
        if (const JobPointer late = waiting.lock(); late != nullptr && late->reply != nullptr)
            stop(*late, Error::Case::timedOut);
    });
    job->deadline.start(job->limits.whole);
}

void HttpsClient::takeBytes(Job &job) const
{
    if (job.reason || !job.reply->isOpen())
        return;
    const qint64 length = job.reply->header(QNetworkRequest::ContentLengthHeader).toLongLong();
    job.body += job.reply->readAll();
    if (std::max<qint64>(length, job.body.size()) > job.limits.mostBytes) {
        stop(job, Error::Case::tooLarge);
        return;
    }
    if (job.onProgress && length > 0)
        job.onProgress(std::min(1.0, static_cast<double>(job.body.size()) / static_cast<double>(length)));
}

void HttpsClient::stop(Job &job, Error::Case reason) const
{
    if (job.reason)
        return;
    job.reason = reason;
    job.reply->abort();
}

void HttpsClient::end(const JobPointer &job)
{
    takeBytes(*job);
    m_running.remove(job);
    if (job->reason || !staysOpen(*job->reply, job->body.size()))
        job->slot->close();
    const bool isRedirected = followRedirect(job);
    Result result = isRedirected ? Result() : outcome(*job);
    leaveSlot(*job);
    if (!isRedirected)
        finish(*job, std::move(result));
    startWaiting();
}

void HttpsClient::leaveSlot(Job &job)
{
    job.slot->isBusy = false;
    job.slot = nullptr;
    job.reply->deleteLater();
    job.reply = nullptr;
    m_idle.start(kIdle);
}

void HttpsClient::closeIdle()
{
    for (const std::unique_ptr<Slot> &slot : m_slots) {
        if (slot != nullptr && !slot->isBusy)
            slot->close();
    }
}

// True when the answer names another address and the job waits again, for that.
bool HttpsClient::followRedirect(const JobPointer &job)
{
    const QUrl target = job->reply->attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl();
    if (target.isEmpty() || job->reason || job->reply->error() != QNetworkReply::NoError)
        return false;
    const QUrl address = job->url.resolved(target);
    if (!mayFetch(address) || ++job->redirects > kMostRedirects)
        return false;
    job->url = address;
    job->server = serverOf(address);
    m_waiting.push_front(job);
    return true;
}

HttpsClient::Result HttpsClient::outcome(Job &job) const
{
    const std::string host = job.url.host().toStdString();
    const QNetworkReply &reply = *job.reply;
    if (job.reason)
        return tl::unexpected(Error{*job.reason, host});
    const int status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (reply.error() == QNetworkReply::OperationCanceledError) // nobody else has stopped it
        return tl::unexpected(Error{Error::Case::timedOut, host});
    if (reply.error() == QNetworkReply::ContentReSendError)
        return tl::unexpected(Error{Error::Case::noAnswer, host, hungUp()});
    if (!isWhole(reply.error(), status))
        return tl::unexpected(Error{Error::Case::noAnswer, host, reply.errorString().toStdString()});
    if (isCutShort(reply, job.body.size()))
        return tl::unexpected(Error{Error::Case::noAnswer, host, hungUp()});
    return Response{status, std::move(job.body)};
}

void HttpsClient::finish(Job &job, Result result) const
{
    job.deadline.stop();
    job.promise.addResult(std::move(result));
    job.promise.finish();
}

} // namespace kerlune
