#pragma once

#include "Support/Handle.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

struct evp_md_ctx_st;
extern "C" void EVP_MD_CTX_free(evp_md_ctx_st *);

namespace kerlune {

// The SHA-256 digest (FIPS 180-4) of bytes that come piece by piece.
//
// Thread: one at a time.
class Sha256 final {
public:
    Sha256();

    void update(std::span<const std::uint8_t> bytes);
    std::string hexDigest(); // 64 lower-case hexadecimal digits; what comes afterwards counts from the start again

private:
    void begin();

    Handle<evp_md_ctx_st, EVP_MD_CTX_free> m_context;
};

// The digest of a text's bytes, written alike.
std::string sha256Hex(std::string_view text);

} // namespace kerlune
