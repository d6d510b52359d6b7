#include "Catalogs/HttpsClient.h"

#include "Catalogs/TrustedCertificates.h"
#include "Support/Localization.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QPromise>
#include <QTimer>

#include <algorithm>
#include <iterator>
#include <optional>
#include <set>
#include <utility>

namespace kerlune {

namespace {

constexpr int kBadRequest = 400;

QString originKey(const QUrl &url)
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

} // namespace

// The connections to one server. Qt reuses them, and opens another one only when all are busy; each server has a
// manager of its own, so that those of one can be closed.
struct HttpsClient::Origin {
    QNetworkAccessManager manager;
    int active = 0;      // requests
    int connections = 0; // open ones at the most
};

struct HttpsClient::Job {
    Job(const QUrl &address, const Limits &given, Progress progress)
        : url(address)
        , limits(given)
        , onProgress(std::move(progress))
    {}

    QUrl url;
    Limits limits;
    Progress onProgress;
    QPromise<Result> promise;
    QTimer deadline;
    QByteArray body;
    Origin *origin = nullptr;
    QNetworkReply *reply = nullptr;    // of the manager; null when none is under way
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
{}

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
    const QFuture<Result> future = job->promise.future();
    if (!mayFetch(url)) {
        finish(*job, tl::unexpected(Error{Error::Case::notHttps, url.host().toStdString()}));
        return future;
    }
    if (m_tls.isNull())
        m_tls = systemTls();
    m_waiting.push_back(job);
    startWaiting();
    return future;
}

void HttpsClient::startWaiting()
{
    noteOrigins();
    for (auto next = m_waiting.begin(); next != m_waiting.end();) {
        if (m_running.size() == kMostConnections)
            return;
        const JobPointer job = *next;
        Origin &origin = originOf(job->url);
        if (!makeRoom(origin)) {
            ++next;
            continue;
        }
        next = m_waiting.erase(next);
        m_running.push_back(job);
        job->origin = &origin;
        ++origin.active;
        origin.connections = std::max(origin.connections, origin.active);
        start(job);
    }
}

// Whether another request to this server keeps within the limit; closes connections that nobody uses for that.
bool HttpsClient::makeRoom(Origin &origin)
{
    if (origin.connections > share()) { // it was alone until now, and gives some back once it is idle
        if (origin.active > 0)
            return false;
        closeConnections(origin);
    }
    if (origin.active < origin.connections)
        return true;
    if (origin.connections == share())
        return false;
    if (connections() < kMostConnections)
        return true;
    const auto idle = std::find_if(m_origins.begin(), m_origins.end(), [](const auto &entry) {
        return entry.second->active == 0 && entry.second->connections > 0;
    });
    if (idle == m_origins.end())
        return false;
    closeConnections(*idle->second);
    return true;
}

void HttpsClient::closeConnections(Origin &origin) const
{
    origin.manager.clearConnectionCache();
    origin.connections = 0;
}

// How many of the connections a server may have. Once several servers were asked at the same time, each leaves room for
// another, so that one that is slow does not hold up all.
int HttpsClient::share() const
{
    return m_mostOrigins == 1 ? kMostConnections : m_mostOrigins == 2 ? kMostConnections / 2 : kMostConnections / 3;
}

int HttpsClient::connections() const
{
    int sum = 0;
    for (const auto &[key, origin] : m_origins)
        sum += origin->connections;
    return sum;
}

void HttpsClient::noteOrigins()
{
    std::set<QString> origins;
    for (const auto *jobs : {&m_waiting, &m_running}) {
        for (const JobPointer &job : *jobs)
            origins.insert(originKey(job->url));
    }
    m_mostOrigins = std::max(m_mostOrigins, origins.size());
}

HttpsClient::Origin &HttpsClient::originOf(const QUrl &url)
{
    std::unique_ptr<Origin> &origin = m_origins[originKey(url)];
    if (origin == nullptr)
        origin = std::make_unique<Origin>();
    return *origin;
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
    job->reply = job->origin->manager.get(request);
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
    --job->origin->active;
    m_running.remove(job);
    const bool isRedirected = followRedirect(job);
    Result result = isRedirected ? Result() : outcome(*job);
    job->reply->deleteLater();
    job->reply = nullptr;
    if (!isRedirected)
        finish(*job, std::move(result));
    startWaiting();
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
    if (!isWhole(reply.error(), status))
        return tl::unexpected(Error{Error::Case::noAnswer, host, reply.errorString().toStdString()});
    if (isCutShort(reply, job.body.size()))
        return tl::unexpected(Error{Error::Case::noAnswer, host, localized("la connexion a été coupée.")});
    return Response{status, std::move(job.body)};
}

void HttpsClient::finish(Job &job, Result result) const
{
    job.deadline.stop();
    job.promise.addResult(std::move(result));
    job.promise.finish();
}

} // namespace kerlune
