#include "Catalogs/TrustedCertificates.h"

#include <QFileInfo>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <openssl/crypto.h>

namespace kerlune {

namespace {

// Qt finds what lies there by itself, one certificate at a time; reading all takes a tenth of a second.
bool isSystemStore(const QString &path)
{
    return QFileInfo(path).canonicalFilePath().startsWith(QStringLiteral("/etc/ssl/certs"));
}

} // namespace

QSslConfiguration systemTls()
{
    QSslConfiguration tls = QSslConfiguration::defaultConfiguration();
    tls.setProtocol(QSsl::TlsV1_2OrLater);
    tls.setPeerVerifyMode(QSslSocket::VerifyPeer);
    QList<QSslCertificate> added;
    const QString file = qEnvironmentVariable("SSL_CERT_FILE");
    if (!file.isEmpty() && !isSystemStore(file))
        added += QSslCertificate::fromPath(file, QSsl::Pem);
    const QStringList folders = qEnvironmentVariable("SSL_CERT_DIR").split(QLatin1Char(':'), Qt::SkipEmptyParts);
    for (const QString &folder : folders) {
        if (!isSystemStore(folder))
            added += QSslCertificate::fromPath(folder + QStringLiteral("/*"), QSsl::Pem,
                                               QSslCertificate::PatternSyntax::Wildcard);
    }
    // With a list of its own, Qt looks up no others when it needs them.
    if (!added.isEmpty())
        tls.setCaCertificates(QSslConfiguration::systemCaCertificates() + added);
    OPENSSL_thread_stop(); // what it keeps of this thread: the program may end sooner than the thread does
    return tls;
}

} // namespace kerlune
