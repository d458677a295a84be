#pragma once

#include <windows.h>

#include <cstdarg>
#include <cstddef>
#include <iterator>
#include <string>
#include <vector>

#include "velkan/core/Export.h"

namespace Velkan {

/// UTF-16 text in an owned, exact-fit, NUL-terminated buffer.
///
/// A string is null (no buffer), empty (just the terminator) or holds text.
/// Nothing here throws: a failed allocation or conversion makes the string
/// null, and null is contagious (appending to a null string does nothing,
/// appending a null pointer makes the string null), so a chain of operations
/// is checked once with IsNull()/IsNullOrEmpty().
///
/// Capacity counts units including the terminator. Growth allocates exactly
/// what an operation needs and never shrinks: preallocate with CString(int)
/// or LockBuffer(int) when building long texts.
///
/// Narrow views (GetCString, GetUtf8String) live in a buffer owned by the
/// string and are replaced by the next narrow conversion, so even a const
/// string must not be read through them from two threads at once.
class VELKAN_API CString {
public:
    /// The line break that AppendLine adds.
    static constexpr const wchar_t* NEWLINE = L"\r\n";

    /// Pointer-like iterator over the units of the buffer.
    template <typename T>
    class Iterator {
    public:
        /// The standard traits of a random-access iterator.
        ///@{
        using iterator_category = std::random_access_iterator_tag;
        using value_type = std::remove_const_t<T>;
        using difference_type = std::ptrdiff_t;
        using pointer = T*;
        using reference = T&;
        ///@}

        Iterator() = default;                ///< A null iterator.
        explicit Iterator(T* p) : m_p(p) {}  ///< An iterator at p.
        /// The const iterator at the same unit.
        operator Iterator<const T>() const { return Iterator<const T>(m_p); }

        /// Access, arithmetic and comparison as on the unit pointer.
        ///@{
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
        ///@}

    private:
        T* m_p = nullptr;
    };

    /// Iterators over the units of the text, without the terminator.
    ///@{
    using iterator = Iterator<wchar_t>;
    using const_iterator = Iterator<const wchar_t>;
    using reverse_iterator = std::reverse_iterator<iterator>;
    using const_reverse_iterator = std::reverse_iterator<const_iterator>;
    ///@}

    // Construction and assignment. A negative count in the counted forms
    // takes the text up to its terminator.
    CString();                          ///< The null string.
    CString(const CString& other);      ///< A copy of other's text; a copy of null is null.
    CString(CString&& other) noexcept;  ///< Takes other's buffer; other becomes null.
    /// An empty string with room for capacity units plus the terminator;
    /// null for a negative capacity.
    explicit CString(int capacity);
    /// Text converted from the ANSI code page, whole or count bytes of it (a
    /// negative count takes it up to its terminator); null for a null
    /// pointer.
    ///@{
    CString(const char* text);
    CString(const char* text, int count);
    ///@}
    /// A copy of UTF-16 text, whole or at most count units of it, stopping at
    /// a NUL (a negative count takes it up to its terminator); null for a
    /// null pointer.
    ///@{
    CString(const wchar_t* text);
    CString(const wchar_t* text, int count);
    ///@}
    ~CString();  ///< Frees the buffer and the narrow views.

    /// Replaces the text as the matching constructor would make it.
    ///@{
    CString& operator=(const CString& other);
    CString& operator=(CString&& other) noexcept;
    CString& operator=(const char* text);
    CString& operator=(const wchar_t* text);
    ///@}

    /// Replaces the text with count UTF-16 units or count ANSI bytes; a
    /// negative count takes the text up to its terminator, a null pointer
    /// makes the string null.
    ///@{
    CString& SetString(const wchar_t* text, int count);
    CString& SetString(const char* text, int count);
    ///@}
    /// Replaces the text with UTF-8 text, whole or count bytes of it.
    ///@{
    CString& SetFromUtf8String(const char* text);
    CString& SetFromUtf8String(const char* text, int count);
    ///@}
    /// Frees the buffer: the string becomes null.
    CString& SetNull();
    /// Makes a string with text empty, keeping its buffer. A null string
    /// stays null.
    CString& SetEmpty();
    /// A string converted from UTF-8; null for a null pointer.
    static CString FromUtf8(const char* text);

    /// The UTF-16 text, or null for the null string; valid until the string
    /// changes.
    ///@{
    const wchar_t* GetString() const { return m_buffer; }
    const wchar_t* GetUtf16String() const { return m_buffer; }
    const wchar_t* GetWideString() const { return m_buffer; }
    operator const wchar_t*() const { return m_buffer; }
    ///@}
    int GetLength() const { return m_length; }      ///< Units before the terminator.
    int GetCapacity() const { return m_capacity; }  ///< Units of the buffer, terminator included.
    bool IsNull() const { return m_buffer == nullptr; }  ///< No buffer.
    bool IsEmpty() const { return m_length == 0; }       ///< No text; true for null too.
    bool IsNullOrEmpty() const { return m_buffer == nullptr || m_length == 0; }  ///< Null or empty.
    /// The unit at index, without range checks.
    ///@{
    wchar_t& operator[](int index) { return m_buffer[index]; }
    const wchar_t& operator[](int index) const { return m_buffer[index]; }
    ///@}

    const char* GetCString() const;     ///< ANSI code page; null for null or a failed conversion
    const char* GetUtf8String() const;  ///< UTF-8; null for null or a failed conversion
    operator std::string() const;       ///< UTF-8; empty for a null string
    /// Copies at most size - 1 units (ANSI bytes for char) and a terminator
    /// into dest; an empty text for the null string.
    ///@{
    void CopyToBuffer(char* dest, int size) const;
    void CopyToBuffer(wchar_t* dest, int size) const;
    ///@}

    /// Direct writing: LockBuffer ensures room for minChars units plus the
    /// terminator (keeping the text) and hands out the buffer; UnlockBuffer
    /// measures the text again. LockBuffer() passes the current capacity, so
    /// each call grows the buffer by one unit.
    ///@{
    wchar_t* LockBuffer(int minChars);
    wchar_t* LockBuffer();
    void UnlockBuffer();
    bool IsBufferLocked() const { return m_locked != FALSE; }
    ///@}

    /// Appends text (whole or count units or bytes of it) or ch (once or
    /// count times). ANSI text is converted; a null pointer makes the string
    /// null, and appending to a null string does nothing.
    ///@{
    CString& Append(const wchar_t* text, int count);
    CString& Append(const wchar_t* text);
    CString& Append(const char* text);
    CString& Append(const char* text, int count);
    CString& Append(wchar_t ch);
    CString& Append(wchar_t ch, int count);
    ///@}
    /// Appends text made as Format makes it; a failed format makes the
    /// string null.
    CString& AppendFormat(const wchar_t* format, ...);
    /// Appends the text, if any, then NEWLINE.
    ///@{
    CString& AppendLine();
    CString& AppendLine(const wchar_t* text);
    CString& AppendLine(const wchar_t* text, int count);
    ///@}
    /// Appends one char. A char is sign-extended, not converted: bytes
    /// 0x80-0xFF become the units 0xFF80-0xFFFF.
    CString& operator+=(char ch);
    /// Append, as an operator.
    ///@{
    CString& operator+=(const char* text) { return Append(text); }
    CString& operator+=(const wchar_t* text) { return Append(text); }
    CString& operator+=(wchar_t ch) { return Append(ch); }
    ///@}
    /// A copy with text appended.
    ///@{
    CString operator+(const char* text) const;
    CString operator+(const wchar_t* text) const;
    ///@}

    /// Formatting with the C runtime's wide printf: `%s` takes a wide
    /// string, `%S` a narrow one. A format the runtime rejects makes the
    /// string null. FormatS returns a new string.
    ///@{
    CString& Format(const wchar_t* format, ...);
    CString& FormatV(const wchar_t* format, va_list args);
    static CString FormatS(const wchar_t* format, ...);
    ///@}

    /// The first index of text or ch at or after start. Indexes count UTF-16
    /// units; -1 means not found, and an empty text is never found.
    ///@{
    int IndexOf(const wchar_t* text, int start = 0) const;
    int IndexOf(wchar_t ch, int start = 0) const;
    ///@}
    /// The last index of text or ch, or -1.
    ///@{
    int LastIndexOf(const wchar_t* text) const;
    int LastIndexOf(wchar_t ch) const;
    ///@}
    /// IndexOf finds text.
    bool Contains(const wchar_t* text) const { return IndexOf(text, 0) != -1; }
    /// The text begins with text or ch; false for a null or empty string.
    ///@{
    bool StartsWith(const wchar_t* text) const;
    bool StartsWith(wchar_t ch) const;
    ///@}
    bool EndsWith(const wchar_t* text) const;  ///< Case-sensitive; an empty text never matches
    bool EndsWith(wchar_t ch) const;           ///< The last unit is ch.

    /// Comparison. == is case-sensitive while < and > ignore case; null only
    /// equals null and is neither less nor greater than anything.
    ///@{
    bool operator==(const wchar_t* text) const;
    bool operator!=(const wchar_t* text) const { return !(*this == text); }
    bool operator==(const CString& other) const { return *this == other.m_buffer; }
    bool operator!=(const CString& other) const { return !(*this == other.m_buffer); }
    bool operator<(const wchar_t* text) const;
    bool operator>(const wchar_t* text) const;
    ///@}
    /// Equal ignoring case; null only equals null.
    bool EqualsIgnoreCase(const wchar_t* text) const;
    /// Sort key for ordered views: never 0 for texts that differ only in
    /// case, and a null operand sorts last in both directions.
    int Compare(const CString& other, bool ascending) const;

    // Editing in place.
    CString& Trim();       ///< Removes white space at both ends.
    CString& TrimStart();  ///< Removes leading white space.
    CString& TrimEnd();    ///< Removes trailing white space.
    CString& MakeUpper();  ///< Upper-cases in place (CharUpperBuff).
    CString& MakeLower();  ///< Lower-cases in place (CharLowerBuff).
    /// Replaces every unit from with to.
    CString& Replace(wchar_t from, wchar_t to);
    /// Replaces every occurrence of find: non-overlapping, left to right. A
    /// null replacement with at least one match makes the whole string null.
    CString& Replace(const wchar_t* find, const wchar_t* replacement);
    /// Removes count units (one without an argument) from the end, without
    /// range checks.
    ///@{
    CString& Chop(int count);
    CString& Chop() { return Chop(1); }
    ///@}

    /// The text from start, to the end or count units of it; null for the
    /// null string. Substring does no range checks.
    ///@{
    CString Substring(int start) const;
    CString Substring(int start, int count) const;
    ///@}
    CString ToUpper() const;  ///< An upper-cased copy.
    CString ToLower() const;  ///< A lower-cased copy.
    /// The pieces between separators, empty ones included unless skipEmpty;
    /// no pieces for a null or empty string.
    ///@{
    const std::vector<CString> Split(const wchar_t* separator, bool skipEmpty = false) const;
    const std::vector<CString> Split(wchar_t separator, bool skipEmpty = false) const;
    ///@}

    /// Iteration over the units, for range-for and the standard algorithms.
    ///@{
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
    ///@}

protected:
    /// Replaces the text with at most count units of text, stopping at a
    /// NUL; text may point into this string's own buffer. A null text makes
    /// the string null. 0 when the allocation failed (the string is then
    /// null), else 1.
    int InternalSetString(const wchar_t* text, int count);
    /// Replaces the text with count bytes converted from codePage; 0 when
    /// the conversion or the allocation failed (the string is then null).
    int InternalSetFromAnsiString(const char* text, int count, unsigned int codePage);
    /// Converts to codePage into the narrow view buffer, replacing the
    /// previous view; null for the null string or a failed conversion.
    const char* InternalGetCString(unsigned int codePage) const;
    /// Grows the buffer to at least units units, keeping the text when keep
    /// is non-zero (else the string becomes empty). 0 when the allocation
    /// failed (the string is then null).
    int EnsureCapacity(int units, int keep);
    /// Frees the buffers: the string becomes null.
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

/// Text on the left: compares as the string would, never as pointers.
///@{
inline bool operator==(const wchar_t* text, const CString& s) { return s == text; }
inline bool operator!=(const wchar_t* text, const CString& s) { return s != text; }
///@}

}  // namespace Velkan
