#include "StringBench.h"

#include <cwchar>
#include <string>
#include <vector>

#include "velkan/core/String.h"

using Velkan::CString;

namespace Bench {

namespace {

const int kAppends = 200000;
const int kFormats = 50000;
const int kRepeats = 200;

// A line of comma-separated fields, the kind of text Split and Replace meet.
std::wstring MakeCsv(int fields)
{
    std::wstring text;
    for (int i = 0; i < fields; ++i) {
        if (i)
            text += L',';
        text += L"field";
        text += std::to_wstring(i % 97);
    }
    return text;
}

std::vector<std::wstring> SplitStd(const std::wstring& text, const std::wstring& sep)
{
    std::vector<std::wstring> parts;
    size_t start = 0;
    for (;;) {
        size_t pos = text.find(sep, start);
        if (pos == std::wstring::npos) {
            parts.push_back(text.substr(start));
            return parts;
        }
        parts.push_back(text.substr(start, pos - start));
        start = pos + sep.size();
    }
}

void ReplaceStd(std::wstring& text, const std::wstring& find, const std::wstring& with)
{
    std::wstring out;
    out.reserve(text.size());
    size_t start = 0;
    for (size_t pos; (pos = text.find(find, start)) != std::wstring::npos;
         start = pos + find.size()) {
        out.append(text, start, pos - start);
        out += with;
    }
    out.append(text, start, std::wstring::npos);
    text.swap(out);
}

}  // namespace

void RunStringBenchmarks(Suite& suite)
{
    suite.Compare(
        "Append (preallocated)",
        [] {
            CString s(kAppends * 6);
            for (int i = 0; i < kAppends; ++i)
                s.Append(L"abcde", 5).Append(L';');
            return static_cast<size_t>(s.GetLength());
        },
        [] {
            std::wstring s;
            s.reserve(kAppends * 6);
            for (int i = 0; i < kAppends; ++i)
                s.append(L"abcde", 5).push_back(L';');
            return s.size();
        });

    suite.Compare(
        "Append short texts",
        [] {
            size_t total = 0;
            for (int i = 0; i < kAppends / 10; ++i) {
                CString s(L"key");
                s.Append(L'=').Append(L"value").Append(L"; ");
                total += s.GetLength();
            }
            return total;
        },
        [] {
            size_t total = 0;
            for (int i = 0; i < kAppends / 10; ++i) {
                std::wstring s(L"key");
                s.append(1, L'=').append(L"value").append(L"; ");
                total += s.size();
            }
            return total;
        });

    suite.Compare(
        "Format",
        [] {
            size_t total = 0;
            CString s;
            for (int i = 0; i < kFormats; ++i) {
                s.Format(L"%s #%d at %.2f", L"item", i, i * 0.5);
                total += s.GetLength();
            }
            return total;
        },
        [] {
            size_t total = 0;
            wchar_t buffer[128];
            std::wstring s;
            for (int i = 0; i < kFormats; ++i) {
                int n = std::swprintf(buffer, 128, L"%ls #%d at %.2f", L"item", i, i * 0.5);
                s.assign(buffer, n);
                total += s.size();
            }
            return total;
        });

    const std::wstring csv = MakeCsv(2000);
    const CString csvV(csv.c_str());

    suite.Compare(
        "Split",
        [&] {
            size_t total = 0;
            for (int i = 0; i < kRepeats; ++i)
                total += csvV.Split(L",").size();
            return total;
        },
        [&] {
            size_t total = 0;
            for (int i = 0; i < kRepeats; ++i)
                total += SplitStd(csv, L",").size();
            return total;
        });

    suite.Compare(
        "Replace",
        [&] {
            size_t total = 0;
            for (int i = 0; i < kRepeats; ++i) {
                CString s(csvV);
                s.Replace(L"field", L"column");
                total += s.GetLength();
            }
            return total;
        },
        [&] {
            size_t total = 0;
            for (int i = 0; i < kRepeats; ++i) {
                std::wstring s(csv);
                ReplaceStd(s, L"field", L"column");
                total += s.size();
            }
            return total;
        });

    suite.Compare(
        "IndexOf (text, walk)",
        [&] {
            size_t total = 0;
            for (int i = 0; i < kRepeats; ++i)
                for (int pos = csvV.IndexOf(L"d9", 0); pos != -1; pos = csvV.IndexOf(L"d9", pos + 1))
                    ++total;
            return total;
        },
        [&] {
            size_t total = 0;
            for (int i = 0; i < kRepeats; ++i)
                for (size_t pos = csv.find(L"d9"); pos != std::wstring::npos;
                     pos = csv.find(L"d9", pos + 1))
                    ++total;
            return total;
        });

    suite.Compare(
        "IndexOf (char, walk)",
        [&] {
            size_t total = 0;
            for (int i = 0; i < kRepeats; ++i)
                for (int pos = csvV.IndexOf(L',', 0); pos != -1; pos = csvV.IndexOf(L',', pos + 1))
                    ++total;
            return total;
        },
        [&] {
            size_t total = 0;
            for (int i = 0; i < kRepeats; ++i)
                for (size_t pos = csv.find(L','); pos != std::wstring::npos;
                     pos = csv.find(L',', pos + 1))
                    ++total;
            return total;
        });
}

}  // namespace Bench
