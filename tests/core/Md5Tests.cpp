#include <gtest/gtest.h>

#include <windows.h>
#include <wincrypt.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "TestText.h"
#include "support/Fuzz.h"
#include "velkan/core/Md5.h"

using Velkan::CMd5;
using Velkan::CString;
using Testing::W;

namespace {

std::wstring Md5Of(const std::string& bytes) {
    return W(CMd5(reinterpret_cast<const unsigned char*>(bytes.data()), static_cast<unsigned long>(bytes.size())).HexDigest());
}

// The same digest through CryptoAPI.
class SystemMd5 {
public:
    SystemMd5() {
        ::CryptAcquireContextW(&m_provider, nullptr, nullptr, PROV_RSA_FULL, CRYPT_VERIFYCONTEXT);
        ::CryptCreateHash(m_provider, CALG_MD5, 0, 0, &m_hash);
    }
    ~SystemMd5() {
        ::CryptDestroyHash(m_hash);
        ::CryptReleaseContext(m_provider, 0);
    }
    void Update(const unsigned char* data, DWORD length) { ::CryptHashData(m_hash, data, length, 0); }
    std::wstring Hex() {
        BYTE digest[16];
        DWORD size = 16;
        ::CryptGetHashParam(m_hash, HP_HASHVAL, digest, &size, 0);
        wchar_t text[33];
        for (int i = 0; i < 16; ++i) swprintf(text + 2 * i, 3, L"%02x", digest[i]);
        return std::wstring(text, 32);
    }

private:
    HCRYPTPROV m_provider = 0;
    HCRYPTHASH m_hash = 0;
};

}  // namespace

TEST(Md5, Rfc1321TestSuite) {
    EXPECT_EQ(L"d41d8cd98f00b204e9800998ecf8427e", Md5Of(""));
    EXPECT_EQ(L"0cc175b9c0f1b6a831c399e269772661", Md5Of("a"));
    EXPECT_EQ(L"900150983cd24fb0d6963f7d28e17f72", Md5Of("abc"));
    EXPECT_EQ(L"f96b697d7cb7938d525a2f31aaf161d0", Md5Of("message digest"));
    EXPECT_EQ(L"c3fcd3d76192e4007dfb496cca67e13b", Md5Of("abcdefghijklmnopqrstuvwxyz"));
    EXPECT_EQ(L"d174ab98d277d9f5a5611c2c9f419d9f",
              Md5Of("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789"));
    EXPECT_EQ(L"57edf4a22be3c955ac49da2e2107b67a",
              Md5Of("12345678901234567890123456789012345678901234567890123456789012345678901234567890"));
    EXPECT_EQ(L"900150983cd24fb0d6963f7d28e17f72", W(CMd5(CString(L"abc")).HexDigest()));
}

TEST(Md5, NoBytesHashLikeNothing) {
    // A null pointer with a length is no input at all, not a crash.
    const unsigned char none[1] = {0};
    EXPECT_STREQ(CMd5(none, 0).HexDigest(), CMd5(nullptr, 1000).HexDigest());
}

TEST(Md5, StreamingMatchesOneShotAndFinalizeIsFinal) {
    std::vector<unsigned char> bytes(1000);
    for (size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<unsigned char>(i * 7 + 3);
    const CString whole = CMd5(bytes.data(), 1000).HexDigest();
    CMd5 pieces;
    EXPECT_EQ(L"", W(pieces.HexDigest()));
    for (unsigned char b : bytes) pieces.Update(&b, 1);
    pieces.Finalize();
    EXPECT_EQ(W(whole), W(pieces.HexDigest()));

    // Input after Finalize never changes the digest.
    pieces.Update("more", 4);
    pieces.Finalize();
    EXPECT_EQ(W(whole), W(pieces.HexDigest()));

    // Lengths around the padding boundary, against the system's MD5.
    for (size_t length : {55u, 56u, 57u, 63u, 64u, 65u, 119u, 120u, 128u}) {
        SystemMd5 system;
        system.Update(bytes.data(), static_cast<DWORD>(length));
        EXPECT_EQ(system.Hex(), W(CMd5(bytes.data(), static_cast<unsigned long>(length)).HexDigest())) << length;
    }
}

TEST(Md5, HundredMegabyteStreamMatchesCryptoApi) {
    std::vector<unsigned char> chunk(1 << 20);
    uint32_t seed = 2463534242u;
    CMd5 ours;
    SystemMd5 system;
    for (int i = 0; i < 100; ++i) {
        for (unsigned char& b : chunk) {
            seed ^= seed << 13;
            seed ^= seed >> 17;
            seed ^= seed << 5;
            b = static_cast<unsigned char>(seed);
        }
        // Odd piece sizes so that blocks straddle the updates.
        ours.Update(chunk.data(), 1000);
        ours.Update(chunk.data() + 1000, static_cast<unsigned long>(chunk.size() - 1000));
        system.Update(chunk.data(), static_cast<DWORD>(chunk.size()));
    }
    EXPECT_EQ(system.Hex(), W(ours.Finalize().HexDigest()));
}

// Random lengths cut into random pieces (empty ones included) give the
// system's digest; Finalize is called at the end, with or without a copy.
TEST(Md5, RandomLengthsAndChunkingsMatchCryptoApi) {
    const Testing::FuzzRun run = Testing::FuzzSettings("MD5 differential", 2000);
    std::mt19937 random(run.seed);
    std::vector<unsigned char> bytes;
    for (int round = 0; round < run.rounds; ++round) {
        // Mostly short lengths, where the block and padding edges are.
        const size_t length = random() % 4 == 0 ? random() % 5000 : random() % 200;
        bytes.resize(length);
        for (unsigned char& b : bytes) b = static_cast<unsigned char>(random());
        SystemMd5 system;
        system.Update(bytes.data(), static_cast<DWORD>(length));
        CMd5 ours;
        for (size_t at = 0; at < length || random() % 8 == 0;) {
            const size_t piece = std::min<size_t>(length - at, random() % 3 == 0 ? 0 : random() % 130);
            ours.Update(bytes.data() + at, static_cast<unsigned long>(piece));
            at += piece;
            if (at == length && random() % 2 == 0) break;
        }
        ASSERT_EQ(system.Hex(), W(ours.Finalize().HexDigest()))
            << "seed " << run.seed << ", round " << round << ", length " << length;
    }
}
