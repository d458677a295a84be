#pragma once

#include <windows.h>

#include <cstdarg>
#include <cstddef>
#include <iterator>
#include <string>
#include <vector>

#include "velkan/core/Export.h"

namespace Velkan {

// UTF-16 text in an owned, exact-fit, NUL-terminated buffer.
//
// A string is null (no buffer), empty (just the terminator) or holds text.
// Nothing here throws: a failed allocation or conversion makes the string
// null, and null is contagious (appending to a null string does nothing,
// appending a null pointer makes the string null), so a chain of operations
// is checked once with IsNull()/IsNullOrEmpty().
//
// Capacity counts units including the terminator. Growth allocates exactly
// what an operation needs and never shrinks: preallocate with CString(int)
// or LockBuffer(int) when building long texts.
//
// Narrow views (GetCString, GetUtf8String) live in a buffer owned by the
// string and are replaced by the next narrow conversion, so even a const
// string must not be read through them from two threads at once.
class VELKAN_API CString {
public:
    static constexpr const wchar_t* NEWLINE = L"\r\n";

    // Pointer-like iterator over the units of the buffer.
    template <typename T>
    class Iterator {
    public:
        using iterator_category = std::random_access_iterator_tag;
        using value_type = std::remove_const_t<T>;
        using difference_type = std::ptrdiff_t;
        using pointer = T*;
        using reference = T&;

        Iterator() = default;
        explicit Iterator(T* p) : m_p(p) {}
        operator Iterator<const T>() const { return Iterator<const T>(m_p); }

        T& operator*() const { return *m_p; }
        T* operator->() const { return m_p; }
        T& operator[](difference_type n) const { return m_p[n]; }
        Iterator& operator++() { ++m_p; return *this; }
        Iterator operator++(int) { Iterator old(*this); ++m_p; return old; }
        Iterator& operator--() { --m_p; return *this; }
        Iterator operator--(int) { Iterator old(*this); --m_p; return old; }
        Iterator& operator+=(difference_type n) { m_p += n; return *this; }
        Iterator& operator-=(difference_type n) { m_p -= n; return *this; }
        Iterator operator+(difference_type n) const { return Iterator(m_p + n); }
        Iterator operator-(difference_type n) const { return Iterator(m_p - n); }
        difference_type operator-(const Iterator& o) const { return m_p - o.m_p; }
        bool operator==(const Iterator& o) const { return m_p == o.m_p; }
        bool operator!=(const Iterator& o) const { return m_p != o.m_p; }
        bool operator<(const Iterator& o) const { return m_p < o.m_p; }
        bool operator>(const Iterator& o) const { return m_p > o.m_p; }
        bool operator<=(const Iterator& o) const { return m_p <= o.m_p; }
        bool operator>=(const Iterator& o) const { return m_p >= o.m_p; }

    private:
        T* m_p = nullptr;
    };

    using iterator = Iterator<wchar_t>;
    using const_iterator = Iterator<const wchar_t>;
    using reverse_iterator = std::reverse_iterator<iterator>;
    using const_reverse_iterator = std::reverse_iterator<const_iterator>;

    // Construction and assignment. A negative count in the counted forms
    // takes the text up to its terminator.
    CString();
    CString(const CString& other);
    CString(CString&& other) noexcept;
    explicit CString(int capacity);
    CString(const char* text);
    CString(const char* text, int count);
    CString(const wchar_t* text);
    CString(const wchar_t* text, int count);
    ~CString();

    CString& operator=(const CString& other);
    CString& operator=(CString&& other) noexcept;
    CString& operator=(const char* text);
    CString& operator=(const wchar_t* text);

    CString& SetString(const wchar_t* text, int count);
    CString& SetString(const char* text, int count);
    CString& SetFromUtf8String(const char* text);
    CString& SetFromUtf8String(const char* text, int count);
    CString& SetNull();
    CString& SetEmpty();
    static CString FromUtf8(const char* text);

    // Access.
    const wchar_t* GetString() const { return m_buffer; }
    const wchar_t* GetUtf16String() const { return m_buffer; }
    const wchar_t* GetWideString() const { return m_buffer; }
    operator const wchar_t*() const { return m_buffer; }
    int GetLength() const { return m_length; }
    int GetCapacity() const { return m_capacity; }
    bool IsNull() const { return m_buffer == nullptr; }
    bool IsEmpty() const { return m_length == 0; }
    bool IsNullOrEmpty() const { return m_buffer == nullptr || m_length == 0; }
    wchar_t& operator[](int index) { return m_buffer[index]; }
    const wchar_t& operator[](int index) const { return m_buffer[index]; }

    const char* GetCString() const;     // ANSI code page
    const char* GetUtf8String() const;  // UTF-8
    operator std::string() const;       // UTF-8; empty for a null string
    void CopyToBuffer(char* dest, int size) const;
    void CopyToBuffer(wchar_t* dest, int size) const;

    // Direct writing: LockBuffer ensures room for minChars units plus the
    // terminator (keeping the text) and hands out the buffer; UnlockBuffer
    // measures the text again. LockBuffer() passes the current capacity, so
    // each call grows the buffer by one unit.
    wchar_t* LockBuffer(int minChars);
    wchar_t* LockBuffer();
    void UnlockBuffer();
    bool IsBufferLocked() const { return m_locked != FALSE; }

    // Appending.
    CString& Append(const wchar_t* text, int count);
    CString& Append(const wchar_t* text);
    CString& Append(const char* text);
    CString& Append(const char* text, int count);
    CString& Append(wchar_t ch);
    CString& Append(wchar_t ch, int count);
    CString& AppendFormat(const wchar_t* format, ...);
    CString& AppendLine();
    CString& AppendLine(const wchar_t* text);
    CString& AppendLine(const wchar_t* text, int count);
    // A char is sign-extended, not converted: bytes 0x80-0xFF become the
    // units 0xFF80-0xFFFF.
    CString& operator+=(char ch);
    CString& operator+=(const char* text) { return Append(text); }
    CString& operator+=(const wchar_t* text) { return Append(text); }
    CString& operator+=(wchar_t ch) { return Append(ch); }
    CString operator+(const char* text) const;
    CString operator+(const wchar_t* text) const;

    // Formatting with the C runtime's wide printf: "%s" takes a wide
    // string, "%S" a narrow one.
    CString& Format(const wchar_t* format, ...);
    CString& FormatV(const wchar_t* format, va_list args);
    static CString FormatS(const wchar_t* format, ...);

    // Searching; indexes count UTF-16 units, -1 means not found.
    int IndexOf(const wchar_t* text, int start = 0) const;
    int IndexOf(wchar_t ch, int start = 0) const;
    int LastIndexOf(const wchar_t* text) const;
    int LastIndexOf(wchar_t ch) const;
    bool Contains(const wchar_t* text) const { return IndexOf(text, 0) != -1; }
    bool StartsWith(const wchar_t* text) const;
    bool StartsWith(wchar_t ch) const;
    bool EndsWith(const wchar_t* text) const;  // an empty text never matches
    bool EndsWith(wchar_t ch) const;

    // Comparison. == is case-sensitive while < and > ignore case; null only
    // equals null and is neither less nor greater than anything.
    bool operator==(const wchar_t* text) const;
    bool operator!=(const wchar_t* text) const { return !(*this == text); }
    bool operator==(const CString& other) const { return *this == other.m_buffer; }
    bool operator!=(const CString& other) const { return !(*this == other.m_buffer); }
    bool operator<(const wchar_t* text) const;
    bool operator>(const wchar_t* text) const;
    bool EqualsIgnoreCase(const wchar_t* text) const;
    // Sort key for ordered views: never 0 for texts that differ only in
    // case, and a null operand sorts last in both directions.
    int Compare(const CString& other, bool ascending) const;

    // Editing in place.
    CString& Trim();
    CString& TrimStart();
    CString& TrimEnd();
    CString& MakeUpper();
    CString& MakeLower();
    CString& Replace(wchar_t from, wchar_t to);
    // Non-overlapping, left to right. A null replacement with at least one
    // match makes the whole string null.
    CString& Replace(const wchar_t* find, const wchar_t* replacement);
    CString& Chop(int count);
    CString& Chop() { return Chop(1); }

    // New strings. Substring does no range checks.
    CString Substring(int start) const;
    CString Substring(int start, int count) const;
    CString ToUpper() const;
    CString ToLower() const;
    const std::vector<CString> Split(const wchar_t* separator, bool skipEmpty = false) const;
    const std::vector<CString> Split(wchar_t separator, bool skipEmpty = false) const;

    iterator begin() { return iterator(m_buffer); }
    const_iterator begin() const { return const_iterator(m_buffer); }
    const_iterator cbegin() const { return const_iterator(m_buffer); }
    iterator end() { return iterator(m_buffer + m_length); }
    const_iterator end() const { return const_iterator(m_buffer + m_length); }
    const_iterator cend() const { return const_iterator(m_buffer + m_length); }
    reverse_iterator rbegin() { return reverse_iterator(end()); }
    const_reverse_iterator rbegin() const { return const_reverse_iterator(end()); }
    const_reverse_iterator crbegin() const { return const_reverse_iterator(cend()); }
    reverse_iterator rend() { return reverse_iterator(begin()); }
    const_reverse_iterator rend() const { return const_reverse_iterator(begin()); }
    const_reverse_iterator crend() const { return const_reverse_iterator(cbegin()); }

protected:
    int InternalSetString(const wchar_t* text, int count);
    int InternalSetFromAnsiString(const char* text, int count, unsigned int codePage);
    const char* InternalGetCString(unsigned int codePage) const;
    int EnsureCapacity(int units, int keep);
    void MakeNull();

private:
    void ReleaseNarrow() const;
    void TakeOver(CString& other) noexcept;

    wchar_t* m_buffer = nullptr;
    int m_capacity = 0;
    int m_length = 0;
    mutable char* m_narrow = nullptr;
    mutable char* m_narrow2 = nullptr;  // reserved; released with the first
    BOOL m_locked = FALSE;
};

// Text on the left: compares as the string would, never as pointers.
inline bool operator==(const wchar_t* text, const CString& s) { return s == text; }
inline bool operator!=(const wchar_t* text, const CString& s) { return s != text; }

}  // namespace Velkan
