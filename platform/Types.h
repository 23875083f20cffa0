#pragma once

// The plain types that the engine's interfaces carry: handles, message parameters, rectangles and points of the desktop
// and the single-precision values of the canvas. Only what is used is declared.

#include <cstdint>

namespace platform {
class Window;
}

using HINSTANCE = void*;        ///< the program itself; nothing is ever read through it
using HWND = platform::Window*; ///< a window of the desktop, owned by it
using UINT = std::uint32_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;
using TCHAR = wchar_t;
using HRESULT = std::int32_t; ///< negative: failed

constexpr HRESULT S_OK = 0;
constexpr HRESULT E_FAIL = static_cast<HRESULT>(0x80004005U);
constexpr HRESULT E_NOTIMPL = static_cast<HRESULT>(0x80004001U);
constexpr HRESULT D2DERR_RECREATE_TARGET = static_cast<HRESULT>(0x8899000CU);

/// A rectangle of whole pixels; right and bottom are exclusive.
struct RECT {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    friend constexpr bool operator==(RECT, RECT) = default;
};

struct POINT {
    int x = 0;
    int y = 0;
    friend constexpr bool operator==(POINT, POINT) = default;
};

struct D2D1_POINT_2F {
    float x = 0.0F;
    float y = 0.0F;
    friend constexpr bool operator==(D2D1_POINT_2F, D2D1_POINT_2F) = default;
};

/// Width and height, or two radii.
struct D2D1_SIZE_F {
    float width = 0.0F;
    float height = 0.0F;
};

struct D2D1_RECT_F {
    float left = 0.0F;
    float top = 0.0F;
    float right = 0.0F;
    float bottom = 0.0F;
    friend constexpr bool operator==(D2D1_RECT_F, D2D1_RECT_F) = default;
};

/// Channels from 0 to 1, not premultiplied.
struct D2D1_COLOR_F {
    float r = 0.0F;
    float g = 0.0F;
    float b = 0.0F;
    float a = 1.0F;
};

/// An affine transform for row vectors: (x, y, 1) times these three rows. The default is the identity.
struct D2D1_MATRIX_3X2_F {
    float m11 = 1.0F;
    float m12 = 0.0F;
    float m21 = 0.0F;
    float m22 = 1.0F;
    float dx = 0.0F;
    float dy = 0.0F;
    friend constexpr bool operator==(const D2D1_MATRIX_3X2_F&, const D2D1_MATRIX_3X2_F&) = default;
};
