#pragma once

#include <windows.h>

#include <utility>

namespace Velkan {

// Thin values over POINT, SIZE and RECT: they pass wherever the Win32
// structure is expected (by pointer or reference) and add the usual helpers.

/// A SIZE with comparison and arithmetic; passes wherever a SIZE is
/// expected.
class CSize : public SIZE {
public:
    CSize() : SIZE{0, 0} {}                                ///< 0 x 0.
    CSize(LONG width, LONG height) : SIZE{width, height} {}  ///< width x height.
    CSize(const SIZE& s) : SIZE(s) {}                        ///< A copy of s.

    /// Member-wise comparison and arithmetic.
    ///@{
    bool operator==(const SIZE& o) const { return cx == o.cx && cy == o.cy; }
    bool operator!=(const SIZE& o) const { return !(*this == o); }
    CSize operator+(const SIZE& o) const { return CSize(cx + o.cx, cy + o.cy); }
    CSize operator-(const SIZE& o) const { return CSize(cx - o.cx, cy - o.cy); }
    ///@}
};

/// A POINT with comparison and offsets; passes wherever a POINT is
/// expected.
class CPoint : public POINT {
public:
    CPoint() : POINT{0, 0} {}                        ///< (0, 0).
    CPoint(LONG x0, LONG y0) : POINT{x0, y0} {}      ///< (x0, y0).
    CPoint(const POINT& p) : POINT(p) {}             ///< A copy of p.
    /// The packed coordinates of mouse messages and GetMessagePos, as signed
    /// 16-bit values.
    explicit CPoint(LPARAM packed)
        : POINT{static_cast<short>(LOWORD(packed)), static_cast<short>(HIWORD(packed))} {}

    /// Moves the point by (dx, dy).
    void Offset(LONG dx, LONG dy) { x += dx; y += dy; }
    /// Member-wise comparison.
    ///@{
    bool operator==(const POINT& o) const { return x == o.x && y == o.y; }
    bool operator!=(const POINT& o) const { return !(*this == o); }
    ///@}
    /// The point moved by a size.
    ///@{
    CPoint operator+(const SIZE& s) const { return CPoint(x + s.cx, y + s.cy); }
    CPoint operator-(const SIZE& s) const { return CPoint(x - s.cx, y - s.cy); }
    ///@}
    /// The distance from o to this point.
    CSize operator-(const POINT& o) const { return CSize(x - o.x, y - o.y); }
};

/// A RECT with the usual helpers; passes wherever a RECT or a pointer to
/// one is expected. Right and bottom are exclusive, as in Win32.
class CRect : public RECT {
public:
    CRect() : RECT{0, 0, 0, 0} {}                                  ///< All zero.
    CRect(LONG l, LONG t, LONG r, LONG b) : RECT{l, t, r, b} {}    ///< The four edges.
    CRect(const RECT& r) : RECT(r) {}                              ///< A copy of r.
    /// The rectangle of the given size at topLeft.
    CRect(const POINT& topLeft, const SIZE& size)
        : RECT{topLeft.x, topLeft.y, topLeft.x + size.cx, topLeft.y + size.cy} {}

    LONG Width() const { return right - left; }    ///< right - left.
    LONG Height() const { return bottom - top; }   ///< bottom - top.
    CSize Size() const { return CSize(Width(), Height()); }  ///< Width by height.
    CPoint TopLeft() const { return CPoint(left, top); }      ///< (left, top).
    CPoint BottomRight() const { return CPoint(right, bottom); }  ///< (right, bottom).
    /// The middle, rounded toward zero.
    CPoint CenterPoint() const { return CPoint((left + right) / 2, (top + bottom) / 2); }

    /// No area (IsRectEmpty): zero or negative width or height.
    bool IsEmpty() const { return ::IsRectEmpty(this) != FALSE; }
    /// All four edges zero.
    bool IsNull() const { return left == 0 && top == 0 && right == 0 && bottom == 0; }
    /// PtInRect: left and top edges inside, right and bottom outside.
    bool Contains(const POINT& p) const { return ::PtInRect(this, p) != FALSE; }

    /// Edits through the Win32 rectangle functions of the same meaning
    /// (SetRect, SetRectEmpty, OffsetRect, InflateRect).
    ///@{
    void SetRect(LONG l, LONG t, LONG r, LONG b) { ::SetRect(this, l, t, r, b); }
    void SetEmpty() { ::SetRectEmpty(this); }
    void Offset(LONG dx, LONG dy) { ::OffsetRect(this, dx, dy); }
    void Offset(const POINT& p) { ::OffsetRect(this, p.x, p.y); }
    ///@}
    /// Moves the top-left corner to (x, y), keeping the size.
    void MoveTo(LONG x, LONG y) { Offset(x - left, y - top); }
    /// Grows each side outward by dx and dy (InflateRect).
    void Inflate(LONG dx, LONG dy) { ::InflateRect(this, dx, dy); }
    /// Shrinks each side inward by dx and dy.
    void Deflate(LONG dx, LONG dy) { ::InflateRect(this, -dx, -dy); }
    /// Swaps edges so that left <= right and top <= bottom.
    void Normalize() {
        if (left > right) std::swap(left, right);
        if (top > bottom) std::swap(top, bottom);
    }
    /// Sets this to the intersection or the union of a and b. Each returns
    /// FALSE (and leaves this empty) when the result is empty.
    ///@{
    BOOL Intersect(const RECT& a, const RECT& b) { return ::IntersectRect(this, &a, &b); }
    BOOL Union(const RECT& a, const RECT& b) { return ::UnionRect(this, &a, &b); }
    ///@}

    /// EqualRect comparison.
    ///@{
    bool operator==(const RECT& o) const { return ::EqualRect(this, &o) != FALSE; }
    bool operator!=(const RECT& o) const { return !(*this == o); }
    ///@}
    /// The rectangle as a Win32 pointer.
    ///@{
    operator LPRECT() { return this; }
    operator LPCRECT() const { return this; }
    ///@}
};

}  // namespace Velkan
