#include "Support/Sha256.h"

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
    require(EVP_DigestInit_ex(m_context.get(), EVP_sha256(), nullptr));
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
