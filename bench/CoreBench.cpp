#include "CoreBench.h"

#include <windows.h>
#include <shlwapi.h>
#include <wincrypt.h>

#include <vector>

#include "velkan/core/File.h"
#include "velkan/core/Md5.h"
#include "velkan/core/PathString.h"

using namespace Velkan;

namespace Bench {

namespace {

const size_t kMegabytes = 64;

size_t CryptoApiMd5(const std::vector<unsigned char>& data) {
    HCRYPTPROV provider = 0;
    HCRYPTHASH hash = 0;
    ::CryptAcquireContextW(&provider, nullptr, nullptr, PROV_RSA_FULL, CRYPT_VERIFYCONTEXT);
    ::CryptCreateHash(provider, CALG_MD5, 0, 0, &hash);
    ::CryptHashData(hash, data.data(), static_cast<DWORD>(data.size()), 0);
    BYTE digest[16];
    DWORD size = 16;
    ::CryptGetHashParam(hash, HP_HASHVAL, digest, &size, 0);
    ::CryptDestroyHash(hash);
    ::CryptReleaseContext(provider, 0);
    return digest[0];
}

// The same file read whole and hashed by CryptoAPI.
size_t CryptoApiFileMd5(const wchar_t* path) {
    long status = 0;
    return CryptoApiMd5(CFile::ReadFileContents(path, status));
}

}  // namespace

void RunCoreBenchmarks(Suite& suite) {
    std::vector<unsigned char> data(kMegabytes << 20);
    uint32_t seed = 88172645u;
    for (unsigned char& b : data) {
        seed = seed * 1664525u + 1013904223u;
        b = static_cast<unsigned char>(seed >> 24);
    }
    suite.Compare(
        "MD5 64 MiB in memory",
        [&] { return static_cast<size_t>(CMd5(data.data(), static_cast<unsigned long>(data.size())).HexDigest()[0]); },
        [&] { return CryptoApiMd5(data); });

    const CPathString file = CPathString::WithTempFileName(L"vlb", 0);
    CFile::WriteBytesToFile(file, data.data(), static_cast<unsigned long>(data.size()));
    suite.Compare(
        "Md5Hash of a 64 MiB file", [&] { return static_cast<size_t>(CFile::Md5Hash(file).GetLength()); },
        [&] { return CryptoApiFileMd5(file); });
    CFile::Delete(file);

    const int paths = 20000;
    const CPathString longPath(L"C:\\Users\\someone\\Documents\\Projects\\velkan\\examples\\gallery\\GalleryWnd.cpp");
    suite.Compare(
        "AbbreviatePath(40) x20000",
        [&] {
            size_t total = 0;
            for (int i = 0; i < paths; ++i) total += static_cast<size_t>(longPath.AbbreviatePath(40).GetLength());
            return total;
        },
        [&] {
            size_t total = 0;
            wchar_t out[MAX_PATH];
            for (int i = 0; i < paths; ++i) {
                ::PathCompactPathExW(out, longPath, 40, 0);
                total += static_cast<size_t>(lstrlenW(out));
            }
            return total;
        });
    suite.Compare(
        "AppendPath x20000",
        [&] {
            size_t total = 0;
            for (int i = 0; i < paths; ++i) {
                CPathString path(L"C:\\Users\\someone\\Documents");
                total += static_cast<size_t>(path.AppendPath(L"velkan\\file.txt").GetLength());
            }
            return total;
        },
        [&] {
            size_t total = 0;
            wchar_t out[MAX_PATH];
            for (int i = 0; i < paths; ++i) {
                lstrcpyW(out, L"C:\\Users\\someone\\Documents");
                ::PathAppendW(out, L"velkan\\file.txt");
                total += static_cast<size_t>(lstrlenW(out));
            }
            return total;
        });
}

}  // namespace Bench
