#include "velkan/core/String.h"

#include <climits>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <cwctype>

#include "velkan/core/detail/WidePrintf.h"

namespace Velkan {

namespace {

// Non-throwing allocation of units; null for sizes the process cannot have.
wchar_t* AllocUnits(int units) {
    if (units <= 0) return nullptr;
    return static_cast<wchar_t*>(std::malloc(static_cast<std::size_t>(units) * sizeof(wchar_t)));
}

// Units before the first NUL among the first count units.
int BoundedLength(const wchar_t* text, int count) {
    const wchar_t* nul = std::wmemchr(text, L'\0', static_cast<std::size_t>(count));
    return nul != nullptr ? static_cast<int>(nul - text) : count;
}

int SafeLength(const wchar_t* text) {
    return text != nullptr ? static_cast<int>(std::wcslen(text)) : 0;
}

}  // namespace

// ---------------------------------------------------------------------------
// Construction and assignment

CString::CString() = default;

CString::CString(const CString& other) {
    InternalSetString(other.m_buffer, other.m_length);
}

CString::CString(CString&& other) noexcept {
    TakeOver(other);
}

CString::CString(int capacity) {
    // capacity + 1 must stay a representable unit count.
    if (capacity < 0 || capacity == INT_MAX) return;
    m_buffer = AllocUnits(capacity + 1);
    if (m_buffer == nullptr) return;
    m_buffer[0] = L'\0';
    m_capacity = capacity + 1;
}

CString::CString(const char* text) {
    if (text != nullptr) InternalSetFromAnsiString(text, static_cast<int>(std::strlen(text)), CP_ACP);
}

CString::CString(const char* text, int count) {
    SetString(text, count);
}

CString::CString(const wchar_t* text) {
    if (text != nullptr) InternalSetString(text, SafeLength(text));
}

CString::CString(const wchar_t* text, int count) {
    SetString(text, count);
}

CString::~CString() {
    std::free(m_buffer);
    ReleaseNarrow();
}

CString& CString::operator=(const CString& other) {
    if (this != &other) InternalSetString(other.m_buffer, other.m_length);
    return *this;
}

CString& CString::operator=(CString&& other) noexcept {
    if (this == &other) return *this;
    std::free(m_buffer);
    ReleaseNarrow();
    TakeOver(other);
    return *this;
}

// Moves other's buffers into this string (whose own are already released)
// and leaves other null.
void CString::TakeOver(CString& other) noexcept {
    m_buffer = other.m_buffer;
    m_capacity = other.m_capacity;
    m_length = other.m_length;
    m_narrow = other.m_narrow;
    m_narrow2 = other.m_narrow2;
    m_locked = other.m_locked;
    other.m_buffer = nullptr;
    other.m_capacity = 0;
    other.m_length = 0;
    other.m_narrow = nullptr;
    other.m_narrow2 = nullptr;
    other.m_locked = FALSE;
}

CString& CString::operator=(const char* text) {
    if (text == nullptr) {
        InternalSetString(nullptr, 0);
    } else {
        InternalSetFromAnsiString(text, static_cast<int>(std::strlen(text)), CP_ACP);
    }
    return *this;
}

CString& CString::operator=(const wchar_t* text) {
    InternalSetString(text, SafeLength(text));
    return *this;
}

CString& CString::SetString(const wchar_t* text, int count) {
    if (text != nullptr && count < 0) count = SafeLength(text);
    InternalSetString(text, count);
    return *this;
}

CString& CString::SetString(const char* text, int count) {
    if (text != nullptr && count < 0) count = static_cast<int>(std::strlen(text));
    InternalSetFromAnsiString(text, count, CP_ACP);
    return *this;
}

CString& CString::SetFromUtf8String(const char* text) {
    return SetFromUtf8String(text, text != nullptr ? static_cast<int>(std::strlen(text)) : 0);
}

CString& CString::SetFromUtf8String(const char* text, int count) {
    if (text != nullptr && count < 0) count = static_cast<int>(std::strlen(text));
    InternalSetFromAnsiString(text, count, CP_UTF8);
    return *this;
}

CString& CString::SetNull() {
    MakeNull();
    return *this;
}

CString& CString::SetEmpty() {
    if (m_length >= 1) {
        m_buffer[0] = L'\0';
        m_length = 0;
    }
    return *this;
}

CString CString::FromUtf8(const char* text) {
    CString s;
    s.SetFromUtf8String(text);
    return s;
}

// ---------------------------------------------------------------------------
// Narrow views

const char* CString::GetCString() const {
    return InternalGetCString(CP_ACP);
}

const char* CString::GetUtf8String() const {
    return InternalGetCString(CP_UTF8);
}

CString::operator std::string() const {
    const char* utf8 = GetUtf8String();
    return utf8 != nullptr ? std::string(utf8) : std::string();
}

void CString::CopyToBuffer(char* dest, int size) const {
    const char* narrow = m_buffer != nullptr ? GetCString() : nullptr;
    if (narrow == nullptr) {
        dest[0] = '\0';
        return;
    }
    lstrcpynA(dest, narrow, size);
}

void CString::CopyToBuffer(wchar_t* dest, int size) const {
    if (m_buffer == nullptr) {
        dest[0] = L'\0';
        return;
    }
    lstrcpynW(dest, m_buffer, size);
}

// ---------------------------------------------------------------------------
// Locking

wchar_t* CString::LockBuffer(int minChars) {
    if (minChars < 0 || minChars == INT_MAX) {
        MakeNull();
        return nullptr;
    }
    if (!EnsureCapacity(minChars + 1, 1)) return nullptr;
    m_locked = TRUE;
    return m_buffer;
}

wchar_t* CString::LockBuffer() {
    return LockBuffer(m_capacity);
}

void CString::UnlockBuffer() {
    m_length = SafeLength(m_buffer);
    m_locked = FALSE;
}

// ---------------------------------------------------------------------------
// Appending

CString& CString::Append(const wchar_t* text, int count) {
    if (m_buffer == nullptr) return *this;
    if (text == nullptr) {
        MakeNull();
        return *this;
    }
    if (count <= 0) return *this;
    // The copy stops at a NUL inside text, like lstrcpyn.
    int n = BoundedLength(text, count);
    if (count > INT_MAX - 1 - m_length) {
        MakeNull();
        return *this;
    }
    // Text from our own buffer moves with it when the buffer grows.
    const bool own = text >= m_buffer && text < m_buffer + m_capacity;
    const std::ptrdiff_t offset = own ? text - m_buffer : 0;
    if (!EnsureCapacity(m_length + 1 + count, 1)) return *this;
    if (own) text = m_buffer + offset;
    std::wmemmove(m_buffer + m_length, text, static_cast<std::size_t>(n));
    m_length += n;
    m_buffer[m_length] = L'\0';
    return *this;
}

CString& CString::Append(const wchar_t* text) {
    if (text == nullptr) {
        MakeNull();
        return *this;
    }
    return Append(text, SafeLength(text));
}

CString& CString::Append(const char* text) {
    CString temp(text);
    if (temp.IsNull()) {
        MakeNull();
        return *this;
    }
    return Append(temp.m_buffer, temp.m_length);
}

CString& CString::Append(const char* text, int count) {
    CString temp(text, count);
    if (temp.IsNull()) {
        MakeNull();
        return *this;
    }
    return Append(temp.m_buffer, temp.m_length);
}

CString& CString::Append(wchar_t ch) {
    if (m_buffer == nullptr) return *this;
    if (m_length > INT_MAX - 2) {
        MakeNull();
        return *this;
    }
    if (!EnsureCapacity(m_length + 2, 1)) return *this;
    m_buffer[m_length] = ch;
    m_buffer[m_length + 1] = L'\0';
    m_length += 1;
    return *this;
}

CString& CString::Append(wchar_t ch, int count) {
    if (m_buffer == nullptr || count <= 0) return *this;
    if (count > INT_MAX - 1 - m_length) {
        MakeNull();
        return *this;
    }
    if (!EnsureCapacity(m_length + count + 1, 1)) return *this;
    std::wmemset(m_buffer + m_length, ch, static_cast<std::size_t>(count));
    m_length += count;
    m_buffer[m_length] = L'\0';
    return *this;
}

CString& CString::AppendFormat(const wchar_t* format, ...) {
    if (m_buffer == nullptr) return *this;
    if (format == nullptr) {
        MakeNull();
        return *this;
    }
    CString temp;
    va_list args;
    va_start(args, format);
    temp.FormatV(format, args);
    va_end(args);
    // A failed format leaves temp null, and appending null makes us null.
    return Append(temp.m_buffer, temp.m_length);
}

CString& CString::AppendLine() {
    return Append(NEWLINE);
}

CString& CString::AppendLine(const wchar_t* text) {
    Append(text);
    return Append(NEWLINE);
}

CString& CString::AppendLine(const wchar_t* text, int count) {
    Append(text, count);
    return Append(NEWLINE);
}

CString& CString::operator+=(char ch) {
    return Append(static_cast<wchar_t>(static_cast<short>(static_cast<signed char>(ch))));
}

CString CString::operator+(const char* text) const {
    CString result(*this);
    result.Append(text);
    return result;
}

CString CString::operator+(const wchar_t* text) const {
    CString result(*this);
    result.Append(text);
    return result;
}

// ---------------------------------------------------------------------------
// Formatting

CString& CString::Format(const wchar_t* format, ...) {
    va_list args;
    va_start(args, format);
    FormatV(format, args);
    va_end(args);
    return *this;
}

CString& CString::FormatV(const wchar_t* format, va_list args) {
    int needed = Detail::CountWideFormat(format, args);
    if (needed < 0 || needed == INT_MAX) {
        // The runtime rejected the format; writing it would fail too.
        MakeNull();
        return *this;
    }
    int n = needed + 1;
    wchar_t* target = m_buffer;
    if (m_capacity < n) {
        target = AllocUnits(n);
        if (target == nullptr) {
            MakeNull();
            return *this;
        }
    }
    // When the buffer grows, the old text is released only after formatting,
    // so the string's own text can be one of the arguments.
    int written = Detail::FormatWide(target, static_cast<std::size_t>(n), format, args);
    if (target != m_buffer) {
        std::free(m_buffer);
        m_buffer = target;
        m_capacity = n;
    }
    if (written < 0) {
        MakeNull();
        return *this;
    }
    m_buffer[needed] = L'\0';
    m_length = SafeLength(m_buffer);
    return *this;
}

CString CString::FormatS(const wchar_t* format, ...) {
    CString s;
    va_list args;
    va_start(args, format);
    s.FormatV(format, args);
    va_end(args);
    return s;
}

// ---------------------------------------------------------------------------
// Searching

int CString::IndexOf(const wchar_t* text, int start) const {
    if (IsNullOrEmpty() || text == nullptr || text[0] == L'\0' || start >= m_length) return -1;
    if (start < 0) start = 0;  // every position is at or after a negative start
    const int n = SafeLength(text);
    const wchar_t first = text[0];
    const wchar_t* const end = m_buffer + m_length;
    for (const wchar_t* p = m_buffer + start; p < end;) {
        p = std::wmemchr(p, first, static_cast<std::size_t>(end - p));
        if (p == nullptr || end - p < n) return -1;
        if (std::wmemcmp(p, text, static_cast<std::size_t>(n)) == 0) return static_cast<int>(p - m_buffer);
        ++p;
    }
    return -1;
}

int CString::IndexOf(wchar_t ch, int start) const {
    if (IsNullOrEmpty() || start >= m_length) return -1;
    if (start < 0) start = 0;
    const wchar_t* p = std::wmemchr(m_buffer + start, ch, static_cast<std::size_t>(m_length - start));
    return p != nullptr ? static_cast<int>(p - m_buffer) : -1;
}

int CString::LastIndexOf(const wchar_t* text) const {
    if (IsNullOrEmpty() || text == nullptr || text[0] == L'\0') return -1;
    const int n = SafeLength(text);
    if (n > m_length) return -1;
    for (int pos = m_length - n; pos >= 0; --pos) {
        if (m_buffer[pos] == text[0] && std::wmemcmp(m_buffer + pos, text, static_cast<std::size_t>(n)) == 0) {
            return pos;
        }
    }
    return -1;
}

int CString::LastIndexOf(wchar_t ch) const {
    if (IsNullOrEmpty()) return -1;
    for (int pos = m_length - 1; pos >= 0; --pos) {
        if (m_buffer[pos] == ch) return pos;
    }
    return -1;
}

bool CString::StartsWith(const wchar_t* text) const {
    if (IsNullOrEmpty() || text == nullptr) return false;
    const int n = SafeLength(text);
    if (m_length < n) return false;
    return std::wmemcmp(m_buffer, text, static_cast<std::size_t>(n)) == 0;
}

bool CString::StartsWith(wchar_t ch) const {
    return !IsNullOrEmpty() && m_buffer[0] == ch;
}

bool CString::EndsWith(const wchar_t* text) const {
    if (m_buffer == nullptr || text == nullptr) return false;
    const int n = SafeLength(text);
    if (m_length < n) return false;
    return LastIndexOf(text) == m_length - n;
}

bool CString::EndsWith(wchar_t ch) const {
    return !IsNullOrEmpty() && m_buffer[m_length - 1] == ch;
}

// ---------------------------------------------------------------------------
// Comparison

bool CString::operator==(const wchar_t* text) const {
    if (m_buffer == nullptr || text == nullptr) return m_buffer == nullptr && text == nullptr;
    return lstrcmpW(m_buffer, text) == 0;
}

bool CString::operator<(const wchar_t* text) const {
    if (m_buffer == nullptr || text == nullptr) return false;
    return lstrcmpiW(m_buffer, text) < 0;
}

bool CString::operator>(const wchar_t* text) const {
    if (m_buffer == nullptr || text == nullptr) return false;
    return lstrcmpiW(m_buffer, text) > 0;
}

bool CString::EqualsIgnoreCase(const wchar_t* text) const {
    if (m_buffer == nullptr || text == nullptr) return m_buffer == nullptr && text == nullptr;
    return lstrcmpiW(text, m_buffer) == 0;
}

int CString::Compare(const CString& other, bool ascending) const {
    const wchar_t* a = m_buffer;
    const wchar_t* b = other.m_buffer;
    if (a == nullptr && b == nullptr) return 0;
    if (a != nullptr && b != nullptr && lstrcmpW(a, b) == 0) return 0;
    // Kept asymmetric: a null operand on either side sorts last, and texts
    // that differ only in case never compare equal.
    if (ascending) {
        if (a == nullptr || b == nullptr) return 1;
        return lstrcmpiW(a, b) < 0 ? -1 : 1;
    }
    if (a == nullptr || b == nullptr) return -1;
    return lstrcmpiW(a, b) < 0 ? 1 : -1;
}

// ---------------------------------------------------------------------------
// Editing

CString& CString::Trim() {
    TrimStart();
    return TrimEnd();
}

CString& CString::TrimStart() {
    if (IsNullOrEmpty()) return *this;
    int skip = 0;
    while (skip < m_length && std::iswspace(m_buffer[skip])) ++skip;
    if (skip > 0) {
        std::wmemmove(m_buffer, m_buffer + skip, static_cast<std::size_t>(m_length - skip + 1));
        m_length = SafeLength(m_buffer);
    }
    return *this;
}

CString& CString::TrimEnd() {
    if (IsNullOrEmpty()) return *this;
    int pos = m_length - 1;
    while (pos > 0 && std::iswspace(m_buffer[pos])) --pos;
    // pos stops on the first unit when the whole text is blank.
    if (std::iswspace(m_buffer[pos])) {
        m_buffer[pos] = L'\0';
    } else {
        m_buffer[pos + 1] = L'\0';
    }
    m_length = SafeLength(m_buffer);
    return *this;
}

CString& CString::MakeUpper() {
    if (m_length >= 1) CharUpperBuffW(m_buffer, static_cast<DWORD>(m_length));
    return *this;
}

CString& CString::MakeLower() {
    if (m_length >= 1) CharLowerBuffW(m_buffer, static_cast<DWORD>(m_length));
    return *this;
}

CString& CString::Replace(wchar_t from, wchar_t to) {
    if (IsNullOrEmpty()) return *this;
    for (int i = 0; i < m_length; ++i) {
        if (m_buffer[i] == from) m_buffer[i] = to;
    }
    return *this;
}

CString& CString::Replace(const wchar_t* find, const wchar_t* replacement) {
    if (IsNullOrEmpty()) return *this;
    const int findLength = SafeLength(find);
    int position = IndexOf(find, 0);
    if (position == -1) return *this;

    // Size the result once so that many matches do not regrow it each time.
    const int replacementLength = SafeLength(replacement);
    long long total = m_length;
    for (int p = position; p != -1; p = IndexOf(find, p + findLength)) {
        total += replacementLength - findLength;
    }
    CString result(total < INT_MAX ? static_cast<int>(total) : 0);
    if (result.IsNull()) {
        MakeNull();
        return *this;
    }

    int last = 0;
    while (position != -1) {
        if (position != last) result.Append(m_buffer + last, position - last);
        if (replacement != nullptr) {
            result.Append(replacement, replacementLength);
        } else {
            result.MakeNull();
        }
        last = position + findLength;
        position = IndexOf(find, last);
    }
    if (last != m_length) result.Append(m_buffer + last, m_length - last);
    InternalSetString(result.m_buffer, result.m_length);
    return *this;
}

CString& CString::Chop(int count) {
    if (m_buffer == nullptr) return *this;
    m_length -= count;
    m_buffer[m_length] = L'\0';
    return *this;
}

// ---------------------------------------------------------------------------
// New strings

CString CString::Substring(int start) const {
    if (m_buffer == nullptr) return CString();
    return CString(m_buffer + start, m_length - start);
}

CString CString::Substring(int start, int count) const {
    if (m_buffer == nullptr) return CString();
    return CString(m_buffer + start, count);
}

CString CString::ToUpper() const {
    CString copy(*this);
    return std::move(copy.MakeUpper());
}

CString CString::ToLower() const {
    CString copy(*this);
    return std::move(copy.MakeLower());
}

const std::vector<CString> CString::Split(const wchar_t* separator, bool skipEmpty) const {
    std::vector<CString> pieces;
    if (IsNullOrEmpty()) return pieces;
    const int separatorLength = SafeLength(separator);
    int start = 0;
    for (int position = IndexOf(separator, 0); position != -1; position = IndexOf(separator, start)) {
        if (!skipEmpty || position > start) pieces.emplace_back(m_buffer + start, position - start);
        start = position + separatorLength;
    }
    if (!skipEmpty || m_length > start) pieces.emplace_back(m_buffer + start, m_length - start);
    return pieces;
}

const std::vector<CString> CString::Split(wchar_t separator, bool skipEmpty) const {
    const wchar_t text[2] = {separator, L'\0'};
    return Split(text, skipEmpty);
}

// ---------------------------------------------------------------------------
// Protected core

int CString::InternalSetString(const wchar_t* text, int count) {
    if (text == nullptr) {
        MakeNull();
        return 1;
    }
    if (count > 0) {
        count = BoundedLength(text, count);
    } else {
        count = 0;
    }
    const int need = count + 1;
    if (m_capacity < need) {
        wchar_t* fresh = AllocUnits(need);
        if (fresh == nullptr) {
            MakeNull();
            return 0;
        }
        // The source may point into our own buffer: copy before releasing.
        std::wmemcpy(fresh, text, static_cast<std::size_t>(count));
        std::free(m_buffer);
        m_buffer = fresh;
        m_capacity = need;
    } else {
        std::wmemmove(m_buffer, text, static_cast<std::size_t>(count));
    }
    m_buffer[count] = L'\0';
    m_length = count;
    return 1;
}

int CString::InternalSetFromAnsiString(const char* text, int count, unsigned int codePage) {
    if (text == nullptr) {
        MakeNull();
        return 1;
    }
    if (count == 0) {
        if (m_capacity < 1) {
            wchar_t* fresh = AllocUnits(1);
            if (fresh == nullptr) {
                MakeNull();
                return 0;
            }
            std::free(m_buffer);
            m_buffer = fresh;
            m_capacity = 1;
        }
        m_buffer[0] = L'\0';
        m_length = 0;
        return 1;
    }
    const int units = MultiByteToWideChar(codePage, 0, text, count, nullptr, 0);
    if (units <= 0 || units == INT_MAX || !EnsureCapacity(units + 1, 0)) {
        MakeNull();
        return 0;
    }
    const int converted = MultiByteToWideChar(codePage, 0, text, count, m_buffer, units);
    if (converted == 0) {
        MakeNull();
        return 0;
    }
    m_buffer[converted] = L'\0';
    m_length = converted;
    return 1;
}

const char* CString::InternalGetCString(unsigned int codePage) const {
    if (m_buffer == nullptr) return nullptr;
    std::free(m_narrow);
    m_narrow = nullptr;
    int bytes = 1;
    if (m_length > 0) {
        bytes = WideCharToMultiByte(codePage, 0, m_buffer, -1, nullptr, 0, nullptr, nullptr);
        if (bytes == 0) return nullptr;
    }
    char* narrow = static_cast<char*>(std::malloc(static_cast<std::size_t>(bytes)));
    if (narrow == nullptr) return nullptr;
    if (m_length == 0) {
        narrow[0] = '\0';
    } else if (WideCharToMultiByte(codePage, 0, m_buffer, -1, narrow, bytes, nullptr, nullptr) == 0) {
        std::free(narrow);
        return nullptr;
    }
    m_narrow = narrow;
    return m_narrow;
}

int CString::EnsureCapacity(int units, int keep) {
    if (m_capacity >= units) return 1;
    wchar_t* fresh = AllocUnits(units);
    if (fresh == nullptr) {
        MakeNull();
        return 0;
    }
    if (keep && m_buffer != nullptr) {
        std::wmemcpy(fresh, m_buffer, static_cast<std::size_t>(m_length) + 1);
    } else {
        fresh[0] = L'\0';
        m_length = 0;
    }
    std::free(m_buffer);
    m_buffer = fresh;
    m_capacity = units;
    return 1;
}

void CString::MakeNull() {
    std::free(m_buffer);
    ReleaseNarrow();
    m_buffer = nullptr;
    m_capacity = 0;
    m_length = 0;
}

void CString::ReleaseNarrow() const {
    std::free(m_narrow);
    std::free(m_narrow2);
    m_narrow = nullptr;
    m_narrow2 = nullptr;
}

}  // namespace Velkan
