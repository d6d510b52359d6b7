#include "Support/Sha256.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <vector>

namespace kerlune {
namespace {

// The examples that NIST publishes with FIPS 180-4.
TEST(Sha256, GivesThePublishedDigests)
{
    EXPECT_EQ(sha256Hex(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
    EXPECT_EQ(sha256Hex("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(sha256Hex("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq"),
              "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
}

TEST(Sha256, DoesNotDependOnThePiecesThatTheBytesComeIn)
{
    const std::vector<std::uint8_t> bytes(3'000'001, 'a'); // the digest is the one that sha256sum prints
    Sha256 sha;
    constexpr std::array<std::size_t, 6> kPieces{1, 63, 64, 65, 4'097, 2'000'000};
    for (const std::size_t piece : kPieces) {
        for (std::size_t at = 0; at < bytes.size(); at += piece)
            sha.update(std::span(bytes).subspan(at, std::min(piece, bytes.size() - at)));
        EXPECT_EQ(sha.hexDigest(), "71b1401c2645810a611615bae0fce7b308f0ed904a54af8ec8be0fe435581611") << piece;
    }
}

} // namespace
} // namespace kerlune
