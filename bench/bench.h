/// @file
/// Harness of the benchmarks: timing, statistics, windows to paint in, and the table with its targets.
///
/// A subject is one file, bench_SUBJECT.cpp, that defines a `bench::Register` for each row of the table.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>

namespace bench {

/// Median of the repetitions of a measurement, with the range that holds the middle eight of ten.
struct Summary {
    double median = 0;
    double low = 0;
    double high = 0;
};

/// What a row has to reach.
struct Target {
    enum class Kind { None, At_Most, At_Least, Of_Native, Beyond_Native };
    Kind kind = Kind::None;
    double limit = 0;
    double aim = 0;  ///< the better figure that is hoped for; 0 when there is none
};

/// No target: the row is for the reader.
constexpr Target No_Target() { return {}; }
/// Ours is to be at most `limit`.
constexpr Target At_Most(double limit) { return {Target::Kind::At_Most, limit, 0}; }
/// Ours is to be at least `limit`.
constexpr Target At_Least(double limit) { return {Target::Kind::At_Least, limit, 0}; }
/// Ours is to be at most the fraction `limit` of the native control, and better `aim`.
constexpr Target Of_Native(double limit, double aim = 0) { return {Target::Kind::Of_Native, limit, aim}; }
/// Ours is to be at most `limit` more than the native side.
constexpr Target Beyond_Native(double limit) { return {Target::Kind::Beyond_Native, limit, 0}; }

/// What a row measured.
struct Result {
    Summary ours;
    std::optional<Summary> native;
};

/// A row of the table. `measure` throws `std::runtime_error` when it finds that it does not measure what it
/// is meant to, such as a window that was not painted.
struct Row {
    const char* name;  ///< "subject: what is measured"
    const char* unit;
    Target target;
    Result (*measure)();
};

/// Adds a row when the program starts. Rows stand in the order of their definition, subjects by name.
class Register {
  public:
    explicit Register(const Row& row);
};

/// A piece of work whose time is taken once per repetition.
struct Work {
    std::function<void()> run;        ///< what is timed
    int units = 1;                    ///< how many of what the row counts `run` does
    std::function<void()> prepare{};  ///< done before each repetition, not timed
};

/// Times of one unit, in microseconds. The first, unmeasured run warms up.
Summary Time(const Work& work);

/// Times ours and the native counterpart in turns, so that what disturbs the machine meets both alike. A turn
/// is two runs, of which the second is measured.
/// @param repetitions  for work that takes long; 0 is the usual number
Result Compare(const Work& ours, const Work& native, int repetitions = 0);

/// Repeats a measurement that is not a time, such as a count.
Summary Repeat(const std::function<double()>& measure);

/// Ends the measurement of the row unless `holds`.
void Require(bool holds, const char* what);

/// Brings what was drawn to the display, as a message loop does that has nothing more to do.
void Flush();

/// Handles all messages that are waiting.
void Drain_Messages();

/// A window without a frame for one side of a comparison, hidden until it is raised.
class Stage {
  public:
    static constexpr int Width = 860;
    static constexpr int Height = 700;
    static constexpr COLORREF Background = RGB(170, 170, 170);

    /// What a stage does with a message: true when the window procedure is to answer `result`.
    using Handler = std::function<bool(UINT message, WPARAM wparam, LPARAM lparam, LRESULT& result)>;

    explicit Stage(Handler handler = {});
    ~Stage();
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    HWND Get() const { return window; }
    /// Shows the window in front of all others, for what is covered is not painted.
    void Raise() const;
    /// Has the window and its children painted at once.
    void Repaint() const;
    /// Has a part of the client area painted at once, with the children in it.
    void Repaint(const RECT& area) const;
    /// Colour of a pixel of the client area.
    COLORREF Pixel(int x, int y) const;

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam);

    Handler handler;
    HWND window = nullptr;
};

}  // namespace bench
