// Owners of Windows handles: each is closed, deleted, released or put back where its owner ends.
#pragma once

#include <utility>

#include "platform/win32/WindowsApi.h"

namespace plinth {

// Owns a handle that `Close` takes back; both nullptr and INVALID_HANDLE_VALUE count as none.
template <class Handle, auto Close>
class OwnedHandle {
 public:
  explicit OwnedHandle(Handle handle = nullptr) : handle_(handle) {}
  ~OwnedHandle() { reset(); }
  OwnedHandle(OwnedHandle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
  OwnedHandle& operator=(OwnedHandle&& other) noexcept {
    std::swap(handle_, other.handle_);
    return *this;
  }
  Handle get() const { return handle_; }
  explicit operator bool() const {
    return handle_ != nullptr && reinterpret_cast<void*>(handle_) != INVALID_HANDLE_VALUE;
  }
  void reset() {
    if (*this) Close(handle_);
    handle_ = nullptr;
  }

 private:
  Handle handle_;
};

using KernelHandle = OwnedHandle<HANDLE, ::CloseHandle>;  // files, processes, events
using SearchHandle = OwnedHandle<HANDLE, ::FindClose>;
using RegistryKey = OwnedHandle<HKEY, ::RegCloseKey>;
using FontHandle = OwnedHandle<HFONT, ::DeleteObject>;
using PenHandle = OwnedHandle<HPEN, ::DeleteObject>;
using BrushHandle = OwnedHandle<HBRUSH, ::DeleteObject>;
using BitmapHandle = OwnedHandle<HBITMAP, ::DeleteObject>;
using MenuHandle = OwnedHandle<HMENU, ::DestroyMenu>;
using MemoryDc = OwnedHandle<HDC, ::DeleteDC>;  // also printer and display contexts that were created

// An object selected into a device context; the one before it comes back at the end.
class Selected {
 public:
  Selected(HDC dc, HGDIOBJ object) : dc_(dc), before_(::SelectObject(dc, object)) {}
  ~Selected() { ::SelectObject(dc_, before_); }
  Selected(const Selected&) = delete;
  Selected& operator=(const Selected&) = delete;

 private:
  HDC dc_;
  HGDIOBJ before_;
};

// A window's device context: of its client area, or of all of it with frame and title.
class WindowDc {
 public:
  enum class Part { client, whole };
  explicit WindowDc(HWND window, Part part = Part::client)
      : window_(window), dc_(part == Part::client ? ::GetDC(window) : ::GetWindowDC(window)) {}
  ~WindowDc() {
    if (dc_) ::ReleaseDC(window_, dc_);
  }
  WindowDc(const WindowDc&) = delete;
  WindowDc& operator=(const WindowDc&) = delete;
  HDC get() const { return dc_; }

 private:
  HWND window_;
  HDC dc_;
};

// Owns one reference to a COM object.
template <class Interface>
class ComPtr {
 public:
  ComPtr() = default;
  ~ComPtr() {
    if (object_) object_->Release();
  }
  ComPtr(ComPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  ComPtr& operator=(ComPtr&& other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  Interface* get() const { return object_; }
  Interface* operator->() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }
  // Where a call puts the object it hands out. REQUIRES none held.
  Interface** receive() { return &object_; }
  void** receiveVoid() { return reinterpret_cast<void**>(&object_); }

 private:
  Interface* object_ = nullptr;
};

}  // namespace plinth
