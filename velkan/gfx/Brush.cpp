#include "velkan/gfx/Brush.h"

namespace Velkan {

CBrush::CBrush(COLORREF colour) {
    CreateSolidBrush(colour);
}

CBrush::CBrush(HBITMAP pattern) {
    CreatePatternBrush(pattern);
}

CBrush::CBrush(HBRUSH brush) : CGdiObject(brush) {}

CBrush::~CBrush() = default;

HBRUSH CBrush::CreateSolidBrush(COLORREF colour) {
    Attach(::CreateSolidBrush(colour));
    return GetHbrush();
}

HBRUSH CBrush::CreatePatternBrush(HBITMAP pattern) {
    Attach(::CreatePatternBrush(pattern));
    return GetHbrush();
}

}  // namespace Velkan
