#pragma once

class QSslConfiguration;

namespace kerlune {

// TLS 1.2 or later with the system's certificate authorities; those of SSL_CERT_FILE and SSL_CERT_DIR are trusted too,
// as every program that uses OpenSSL does. Certificates are always verified.
//
// Thread: any; blocks while it reads them, a tenth of a second for hundreds. Ends what OpenSSL keeps of the thread.
QSslConfiguration systemTls();

} // namespace kerlune
