// Owners of handles, and RAII scopes of GDI calls.
#pragma once

#include "base/owned.h"

#include <windows.h>

namespace kelvane::win {

using Bitmap = Owned<HBITMAP, DeleteObject>;
using Pen = Owned<HPEN, DeleteObject>;
using Menu = Owned<HMENU, DestroyMenu>;
using Icon = Owned<HICON, DestroyIcon>;
using Font = Owned<HFONT, DeleteObject>;
using AcceleratorTable = Owned<HACCEL, DestroyAcceleratorTable>;
using Module = Owned<HMODULE, FreeLibrary>;
/// A device context from CreateCompatibleDC.
using MemoryContext = Owned<HDC, DeleteDC>;

/// Selects an object into a device context and restores the previous one in the destructor.
class Selected {
  public:
    Selected(HDC context, HGDIOBJ object)
        : context_(context), previous_(SelectObject(context, object)) {}
    ~Selected() { SelectObject(context_, previous_); }
    Selected(const Selected&) = delete;
    Selected& operator=(const Selected&) = delete;

  private:
    HDC context_;
    HGDIOBJ previous_;
};

/// The device context of a window's client area, or of the screen for null.
class WindowContext {
  public:
    explicit WindowContext(HWND window) : window_(window), context_(GetDC(window)) {}
    ~WindowContext() { ReleaseDC(window_, context_); }
    WindowContext(const WindowContext&) = delete;
    WindowContext& operator=(const WindowContext&) = delete;
    HDC get() const { return context_; }

  private:
    HWND window_;
    HDC context_;
};

/// BeginPaint to EndPaint.
class Paint {
  public:
    explicit Paint(HWND window) : window_(window), context_(BeginPaint(window, &paint_)) {}
    ~Paint() { EndPaint(window_, &paint_); }
    Paint(const Paint&) = delete;
    Paint& operator=(const Paint&) = delete;
    HDC context() const { return context_; }
    const RECT& area() const { return paint_.rcPaint; }

  private:
    HWND window_;
    PAINTSTRUCT paint_{};
    HDC context_;
};

/// The bytes of a global memory block while it is locked; null when that failed.
template <class T> class LockedBlock {
  public:
    explicit LockedBlock(HGLOBAL block)
        : block_(block), data_(static_cast<T*>(GlobalLock(block))) {}
    ~LockedBlock() {
        if (data_ != nullptr) GlobalUnlock(block_);
    }
    LockedBlock(const LockedBlock&) = delete;
    LockedBlock& operator=(const LockedBlock&) = delete;
    T* data() const { return data_; }

  private:
    HGLOBAL block_;
    T* data_;
};

} // namespace kelvane::win
