#include "Catalogs/GoogleAddresses.h"

namespace kerlune {

namespace {

QUrl completed(const QString &given, const QString &host, const QString &path)
{
    QUrl url = given.isEmpty() ? QUrl(QStringLiteral("https://") + host) : QUrl(given, QUrl::StrictMode);
    if (url.path().isEmpty())
        url.setPath(QLatin1Char('/') + path);
    else if (url.path().endsWith(QLatin1Char('/')))
        url.setPath(url.path() + path);
    return url;
}

QByteArray encoded(std::string_view text)
{
    const QString decoded = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    return QUrl::toPercentEncoding(decoded, ":@,");
}

QUrl withQuery(QUrl url, const QByteArray &query)
{
    const QString former = url.query(QUrl::FullyEncoded);
    url.setQuery((former.isEmpty() ? former : former + QLatin1Char('&')) + QString::fromLatin1(query),
                 QUrl::StrictMode);
    return url;
}

} // namespace

GoogleAddresses GoogleAddresses::from(const QString &metadata, const QString &css)
{
    return {completed(metadata, QStringLiteral("fonts.google.com"), QStringLiteral("metadata/fonts")),
            completed(css, QStringLiteral("fonts.googleapis.com"), QStringLiteral("css2"))};
}

QUrl GoogleAddresses::styleSheet(const std::string &family, const std::optional<std::string> &spec,
                                 std::string_view text) const
{
    QByteArray query = "family=" + encoded(spec ? family + ':' + *spec : family);
    if (!text.empty())
        query += "&text=" + encoded(text);
    return withQuery(css, query);
}

QUrl GoogleAddresses::fileList(const std::string &family) const
{
    const QString own = QStringLiteral("metadata/fonts");
    const QString path = metadata.path();
    QUrl url = metadata;
    url.setPath((path.endsWith(own) ? path.chopped(own.size()) : QStringLiteral("/")) +
                QStringLiteral("download/list"));
    url.setQuery(QString());
    return withQuery(url, "family=" + encoded(family));
}

} // namespace kerlune
