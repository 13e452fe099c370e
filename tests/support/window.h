/// @file
/// A window to paint in, and pictures read from it.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

namespace galdren_test {

/// A rectangle in logical pixels, y upward; all four edges belong to it.
struct Area {
    int left, right, bottom, top;
    bool operator==(const Area&) const = default;
    friend void PrintTo(const Area& area, std::ostream* out);
};

constexpr Area Nothing{0, -1, 0, -1};
constexpr std::uint32_t Loud = 0xFF00FE;  ///< 0xRRGGBB; no control paints in this colour

/// The pixels of a client area as 0xRRGGBB.
class Picture {
  public:
    /// Reads what `window` shows.
    explicit Picture(HWND window);
    /// Reads an area of a context, in device pixels.
    Picture(HDC source, const RECT& area);
    /// Takes rows from the top down.
    Picture(int width, int height, std::vector<std::uint32_t> pixels)
        : width_(width), height_(height), pixels_(std::move(pixels)) {}
    int Width() const { return width_; }
    int Height() const { return height_; }
    /// Rows from the top down.
    const std::vector<std::uint32_t>& Pixels() const { return pixels_; }
    /// The pixel at logical (x, y): y is 0 in the bottom row.
    std::uint32_t At(int x, int y) const;
    /// Smallest area that holds every pixel that is not loud.
    Area Painted() const;
    /// Passes when both are equal; otherwise tells where they differ first and how often.
    friend testing::AssertionResult Same(const Picture& got, const Picture& wanted);

  private:
    int width_, height_;
    std::vector<std::uint32_t> pixels_;
};

/// What the screen shows of the client area of a window, which may be one of another program.
Picture On_Screen(HWND window);

/// A visible window of a wanted client size. It never takes the focus, so that it does not disturb tests of
/// real input that run beside.
class Test_Window {
  public:
    explicit Test_Window(int width, int height, UINT class_style = 0);
    ~Test_Window() { Close(); }
    Test_Window(const Test_Window&) = delete;
    Test_Window& operator=(const Test_Window&) = delete;

    operator HWND() const { return window_; }
    void Resize(int width, int height);
    void Close();
    /// Paints the whole client area loud.
    void Refill();
    /// What the window shows when `paint` ran on a loud one.
    template <class Paint>
    Picture After(Paint paint) {
        Refill();
        paint();
        return Picture(window_);
    }
    template <class Paint>
    Area Changed(Paint paint) {
        return After(paint).Painted();
    }
    /// Puts the pointer position that the controls read over logical (x, y) of this window.
    void Point_At(int x, int y) const;

  private:
    HWND window_;
};

/// Handles the messages that the windows of this thread have.
void Pump();
/// Handles messages until `done` answers true; false after ten seconds, when something is wrong.
bool Pump_Until(const std::function<bool()>& done);

}  // namespace galdren_test
