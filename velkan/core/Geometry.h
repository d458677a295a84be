#pragma once

#include <windows.h>

#include <utility>

namespace Velkan {

// Thin values over POINT, SIZE and RECT: they pass wherever the Win32
// structure is expected (by pointer or reference) and add the usual helpers.

class CSize : public SIZE {
public:
    CSize() : SIZE{0, 0} {}
    CSize(LONG width, LONG height) : SIZE{width, height} {}
    CSize(const SIZE& s) : SIZE(s) {}

    bool operator==(const SIZE& o) const { return cx == o.cx && cy == o.cy; }
    bool operator!=(const SIZE& o) const { return !(*this == o); }
    CSize operator+(const SIZE& o) const { return CSize(cx + o.cx, cy + o.cy); }
    CSize operator-(const SIZE& o) const { return CSize(cx - o.cx, cy - o.cy); }
};

class CPoint : public POINT {
public:
    CPoint() : POINT{0, 0} {}
    CPoint(LONG x0, LONG y0) : POINT{x0, y0} {}
    CPoint(const POINT& p) : POINT(p) {}
    // The packed coordinates of mouse messages and GetMessagePos.
    explicit CPoint(LPARAM packed)
        : POINT{static_cast<short>(LOWORD(packed)), static_cast<short>(HIWORD(packed))} {}

    void Offset(LONG dx, LONG dy) { x += dx; y += dy; }
    bool operator==(const POINT& o) const { return x == o.x && y == o.y; }
    bool operator!=(const POINT& o) const { return !(*this == o); }
    CPoint operator+(const SIZE& s) const { return CPoint(x + s.cx, y + s.cy); }
    CPoint operator-(const SIZE& s) const { return CPoint(x - s.cx, y - s.cy); }
    CSize operator-(const POINT& o) const { return CSize(x - o.x, y - o.y); }
};

class CRect : public RECT {
public:
    CRect() : RECT{0, 0, 0, 0} {}
    CRect(LONG l, LONG t, LONG r, LONG b) : RECT{l, t, r, b} {}
    CRect(const RECT& r) : RECT(r) {}
    CRect(const POINT& topLeft, const SIZE& size)
        : RECT{topLeft.x, topLeft.y, topLeft.x + size.cx, topLeft.y + size.cy} {}

    LONG Width() const { return right - left; }
    LONG Height() const { return bottom - top; }
    CSize Size() const { return CSize(Width(), Height()); }
    CPoint TopLeft() const { return CPoint(left, top); }
    CPoint BottomRight() const { return CPoint(right, bottom); }
    CPoint CenterPoint() const { return CPoint((left + right) / 2, (top + bottom) / 2); }

    bool IsEmpty() const { return ::IsRectEmpty(this) != FALSE; }
    bool IsNull() const { return left == 0 && top == 0 && right == 0 && bottom == 0; }
    bool Contains(const POINT& p) const { return ::PtInRect(this, p) != FALSE; }

    void SetRect(LONG l, LONG t, LONG r, LONG b) { ::SetRect(this, l, t, r, b); }
    void SetEmpty() { ::SetRectEmpty(this); }
    void Offset(LONG dx, LONG dy) { ::OffsetRect(this, dx, dy); }
    void Offset(const POINT& p) { ::OffsetRect(this, p.x, p.y); }
    void MoveTo(LONG x, LONG y) { Offset(x - left, y - top); }
    void Inflate(LONG dx, LONG dy) { ::InflateRect(this, dx, dy); }
    void Deflate(LONG dx, LONG dy) { ::InflateRect(this, -dx, -dy); }
    void Normalize() {
        if (left > right) std::swap(left, right);
        if (top > bottom) std::swap(top, bottom);
    }
    // Each returns FALSE (and leaves this empty) when the result is empty.
    BOOL Intersect(const RECT& a, const RECT& b) { return ::IntersectRect(this, &a, &b); }
    BOOL Union(const RECT& a, const RECT& b) { return ::UnionRect(this, &a, &b); }

    bool operator==(const RECT& o) const { return ::EqualRect(this, &o) != FALSE; }
    bool operator!=(const RECT& o) const { return !(*this == o); }
    operator LPRECT() { return this; }
    operator LPCRECT() const { return this; }
};

}  // namespace Velkan
