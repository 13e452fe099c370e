/// @file
/// Lines and polygons row by row, pixel for pixel as GDI paints them with a pen of one pixel.
#pragma once

#include <windows.h>

#include <cstddef>
#include <span>

namespace galdren {

/// Pixels of one row, both ends included.
struct Pixel_Run {
    int left;
    int right;
};

/// A line between two points, both included, from its upper end down. Where it passes between two pixels, it
/// takes the left or the upper one.
class Edge {
  public:
    Edge() = default;
    Edge(POINT from, POINT to);

    int Top() const { return top; }
    int Bottom() const { return bottom; }

    /// The pixels of the next row, from `Top` to `Bottom`.
    Pixel_Run Next() { return columns > rows ? Next_Flat() : Next_Steep(); }

    /// Widens runs by the pixels of as many rows.
    void Widen(std::span<Pixel_Run> runs);

  private:
    Pixel_Run Next_Flat();
    Pixel_Run Next_Steep() {
        const Pixel_Run run{x, x};
        const int tie = step < 0 ? -1 : 0;
        if (error > tie) {
            x += step;
            error -= 2 * rows;
        }
        error += 2 * columns;
        return run;
    }

    int top;
    int bottom;
    int x;
    int step;     // to the next column
    int columns;  // from one end to the other
    int rows;
    int columns_left;
    int error;
};

/// Corners of the polygons and lines that are traced here.
constexpr std::size_t Most_Corners = 6;

/// Whether the outline goes down once and up once, so that each of its rows is one run.
bool Has_Single_Runs(std::span<const POINT> corners);

/// The edges of a polygon, walked together from the top down, each of them over several rows at once.
class Polygon_Rows {
  public:
    explicit Polygon_Rows(std::span<const POINT> corners);

    int Top() const { return top; }
    int Bottom() const { return bottom; }

    /// The pixels of the next row, from `Top` to `Bottom`, outline included.
    Pixel_Run Next() {
        if (next == Rows_At_Once) Walk();
        return runs[next++];
    }

  private:
    static constexpr int Rows_At_Once = 32;
    void Walk();

    Edge edges[Most_Corners];
    std::size_t count;
    int top;
    int bottom;
    int y;  // where the next walk begins
    Pixel_Run runs[Rows_At_Once];
    int next = Rows_At_Once;
};

}  // namespace galdren
