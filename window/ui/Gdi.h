/**
 * @file Gdi.h
 * Owners of GDI objects.
 */
#pragma once

#include <windows.h>

#include <utility>

namespace jsw::window {

/** Owns a GDI object (font, brush, bitmap, ...) or null. */
template <typename Handle>
class GdiObject {
  public:
    GdiObject() = default;
    explicit GdiObject(Handle handle) : handle_(handle) {}
    GdiObject(GdiObject&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    GdiObject& operator=(GdiObject&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }
    ~GdiObject() {
        if (handle_) DeleteObject(handle_);
    }
    [[nodiscard]] Handle get() const { return handle_; }

  private:
    Handle handle_ = nullptr;
};

/** Selects an object into a device context for a scope. */
class Selection {
  public:
    Selection(HDC dc, HGDIOBJ object) : dc_(dc), previous_(SelectObject(dc, object)) {}
    ~Selection() { SelectObject(dc_, previous_); }
    Selection(const Selection&) = delete;
    Selection& operator=(const Selection&) = delete;

  private:
    HDC dc_;
    HGDIOBJ previous_;
};

/** A device context in memory; null if memory is exhausted. */
class MemoryDc {
  public:
    explicit MemoryDc(HDC like) : dc_(CreateCompatibleDC(like)) {}
    ~MemoryDc() {
        if (dc_) DeleteDC(dc_);
    }
    MemoryDc(const MemoryDc&) = delete;
    MemoryDc& operator=(const MemoryDc&) = delete;
    [[nodiscard]] HDC get() const { return dc_; }

  private:
    HDC dc_;
};

}  // namespace jsw::window
