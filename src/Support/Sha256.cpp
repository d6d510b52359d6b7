#include "Support/Sha256.h"

#include <openssl/crypto.h>
#include <openssl/evp.h>

#include <array>
#include <cstdlib>
#include <new>

namespace kerlune {

namespace {

void require(int result)
{
    if (result != 1)
        std::abort(); // OpenSSL without SHA-256: the installation is broken
}

// Looked up once. OpenSSL must not clean up when the process exits: threads that are still there then would keep what
// it holds for them, which the leak sanitizer reports.
const EVP_MD *algorithm()
{
    static const EVP_MD *const sha256 = [] {
        require(OPENSSL_init_crypto(OPENSSL_INIT_NO_ATEXIT, nullptr));
        return EVP_MD_fetch(nullptr, "SHA256", nullptr);
    }();
    return sha256;
}

} // namespace

Sha256::Sha256()
    : m_context(EVP_MD_CTX_new())
{
    if (m_context == nullptr)
        throw std::bad_alloc();
    begin();
}

void Sha256::begin()
{
    require(EVP_DigestInit_ex2(m_context.get(), algorithm(), nullptr));
}

void Sha256::update(std::span<const std::uint8_t> bytes)
{
    require(EVP_DigestUpdate(m_context.get(), bytes.data(), bytes.size()));
}

std::string Sha256::hexDigest()
{
    std::array<std::uint8_t, 32> digest{};
    require(EVP_DigestFinal_ex(m_context.get(), digest.data(), nullptr));
    begin();

    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string text;
    for (const std::uint8_t byte : digest) {
        text += kDigits[byte >> 4];
        text += kDigits[byte & 0xF];
    }
    return text;
}

std::string sha256Hex(std::string_view text)
{
    Sha256 sha;
    sha.update({reinterpret_cast<const std::uint8_t *>(text.data()), text.size()});
    return sha.hexDigest();
}

} // namespace kerlune
