#pragma once

#include <cstdint>

#include "velkan/core/Export.h"
#include "velkan/core/String.h"

namespace Velkan {

/// The MD5 message digest (RFC 1321), fed in pieces and read as lower-case
/// hexadecimal. Finalize closes the digest once; later input changes nothing
/// that HexDigest reports.
class VELKAN_API CMd5 {
public:
    /// An open digest, ready for Update.
    CMd5();
    /// The finalized digest of length bytes (of nothing for null data).
    CMd5(const unsigned char* data, unsigned long length);
    /// The finalized digest of a text. Hashes the text's ANSI form, but only
    /// as many bytes as the text has UTF-16 units: the same for single-byte
    /// code pages, a prefix for multi-byte ones. Kept that way for the
    /// digests already stored.
    explicit CMd5(const CString& text);

    /// Feeds length more bytes.
    ///@{
    void Update(const unsigned char* data, unsigned long length);
    void Update(const char* data, unsigned long length) {
        Update(reinterpret_cast<const unsigned char*>(data), length);
    }
    ///@}
    /// Closes the digest; later calls do nothing.
    CMd5& Finalize();
    /// The 32 lower-case hexadecimal digits. Empty until finalized.
    CString HexDigest() const;

private:
    static uint32_t F(uint32_t x, uint32_t y, uint32_t z) { return (x & y) | (~x & z); }
    static uint32_t G(uint32_t x, uint32_t y, uint32_t z) { return (x & z) | (y & ~z); }
    static uint32_t H(uint32_t x, uint32_t y, uint32_t z) { return x ^ y ^ z; }
    static uint32_t I(uint32_t x, uint32_t y, uint32_t z) { return y ^ (x | ~z); }
    static uint32_t RotateLeft(uint32_t x, int n) { return (x << n) | (x >> (32 - n)); }
    static void FF(uint32_t& a, uint32_t b, uint32_t c, uint32_t d, uint32_t x, int s, uint32_t ac) {
        a = RotateLeft(a + F(b, c, d) + x + ac, s) + b;
    }
    static void GG(uint32_t& a, uint32_t b, uint32_t c, uint32_t d, uint32_t x, int s, uint32_t ac) {
        a = RotateLeft(a + G(b, c, d) + x + ac, s) + b;
    }
    static void HH(uint32_t& a, uint32_t b, uint32_t c, uint32_t d, uint32_t x, int s, uint32_t ac) {
        a = RotateLeft(a + H(b, c, d) + x + ac, s) + b;
    }
    static void II(uint32_t& a, uint32_t b, uint32_t c, uint32_t d, uint32_t x, int s, uint32_t ac) {
        a = RotateLeft(a + I(b, c, d) + x + ac, s) + b;
    }
    static void Encode(unsigned char* output, const uint32_t* input, unsigned length);
    static void Decode(uint32_t* output, const unsigned char* input, unsigned length);
    static void Transform(uint32_t state[4], const unsigned char block[64]);
    void Init();

    bool m_finalized;
    unsigned char m_buffer[64];
    uint32_t m_count[2];
    uint32_t m_state[4];
    unsigned char m_digest[16];
};

}  // namespace Velkan
