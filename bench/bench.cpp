#include "bench.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace bench {

namespace {

constexpr int Full_Repetitions = 51;
constexpr int Quick_Repetitions = 15;

struct Options {
    const char* filter = "";
    bool quick = false;
    bool check = false;
};

Options options;

int Repetitions() { return options.quick ? Quick_Repetitions : Full_Repetitions; }

std::vector<Row>& Rows() {
    static std::vector<Row> rows;
    return rows;
}

double Microseconds() {
    static const double frequency = [] {
        LARGE_INTEGER counts_per_second;
        QueryPerformanceFrequency(&counts_per_second);
        return static_cast<double>(counts_per_second.QuadPart);
    }();
    LARGE_INTEGER counts;
    QueryPerformanceCounter(&counts);
    return static_cast<double>(counts.QuadPart) * 1e6 / frequency;
}

double Time_Once(const Work& work) {
    if (work.prepare) work.prepare();
    const double start = Microseconds();
    work.run();
    return (Microseconds() - start) / work.units;
}

/// After the other side's turn nothing of this one is left in the caches, which one run brings back.
double Time_Warm(const Work& work) {
    Time_Once(work);
    return Time_Once(work);
}

/// The value below which the fraction `part` of the sorted samples lies.
double Percentile(const std::vector<double>& sorted, double part) {
    const double place = part * static_cast<double>(sorted.size() - 1);
    const auto below = static_cast<std::size_t>(place);
    const std::size_t above = std::min(below + 1, sorted.size() - 1);
    return std::lerp(sorted[below], sorted[above], place - static_cast<double>(below));
}

Summary Summarize(std::vector<double> samples) {
    std::sort(samples.begin(), samples.end());
    return {Percentile(samples, 0.5), Percentile(samples, 0.1), Percentile(samples, 0.9)};
}

/// Asks the display for a pixel: after the answer all it had to tell about the windows has arrived.
void Wait_For_Display() {
    Flush();
    const HDC screen = GetDC(nullptr);
    GetPixel(screen, 0, 0);
    ReleaseDC(nullptr, screen);
}

std::string Format_Number(double value) {
    char text[32];
    const int decimals = std::abs(value) >= 100  ? 0
                         : std::abs(value) >= 10 ? 1
                         : std::abs(value) >= 1  ? 2
                                                 : 3;
    std::snprintf(text, sizeof text, "%.*f", value == 0 ? 0 : decimals, value);
    return text;
}

std::string Format_Summary(const std::optional<Summary>& summary) {
    if (!summary) return "-";
    std::string text = Format_Number(summary->median);
    if (summary->low < summary->high) {
        text += " (" + Format_Number(summary->low) + ".." + Format_Number(summary->high) + ")";
    }
    return text;
}

std::string Format_Limit(double value) {
    char text[32];
    std::snprintf(text, sizeof text, "%g", value);
    return text;
}

std::string Format_Target(const Row& row) {
    const std::string limit = Format_Limit(row.target.limit);
    switch (row.target.kind) {
        case Target::Kind::None:
            return "-";
        case Target::Kind::At_Most:
            return "<= " + limit;
        case Target::Kind::At_Least:
            return ">= " + limit;
        case Target::Kind::Beyond_Native:
            return "native + " + limit;
        case Target::Kind::Of_Native:
            break;
    }
    return "ratio " + limit + (row.target.aim > 0 ? ", aim " + Format_Limit(row.target.aim) : "");
}

double Ratio(const Result& result) { return result.ours.median / result.native->median; }

/// Whether `result` is within `limit`, taken the way the target's kind says.
bool Reaches(const Result& result, Target::Kind kind, double limit) {
    switch (kind) {
        case Target::Kind::None:
            return true;
        case Target::Kind::At_Most:
            return result.ours.median <= limit;
        case Target::Kind::At_Least:
            return result.ours.median >= limit;
        case Target::Kind::Beyond_Native:
            return result.native && result.ours.median - result.native->median <= limit;
        case Target::Kind::Of_Native:
            break;
    }
    return result.native && Ratio(result) <= limit;
}

std::string Judge(const Row& row, const Result& result) {
    if (row.target.kind == Target::Kind::None) return "-";
    if (!Reaches(result, row.target.kind, row.target.limit)) return "MISSED";
    const bool aim_met = row.target.aim > 0 && Reaches(result, row.target.kind, row.target.aim);
    return aim_met ? "met, and the aim" : "met";
}

/// One line of the table, which is also a table where Markdown is shown.
void Print_Cells(const std::array<std::string, 7>& cells) {
    constexpr std::array<int, 7> Widths{45, 7, 22, 18, 6, 20, 16};
    for (std::size_t i = 0; i < cells.size(); ++i)
        std::printf("| %-*s ", Widths[i], cells[i].c_str());
    std::puts("|");
    std::fflush(stdout);
}

void Print_Heading() {
    std::printf("Median (10th to 90th percentile) of %d repetitions, ours and native in turns.\n",
                Repetitions());
    std::printf("Ratio: median of ours to median of native. Times are for one control or one move.\n");
    std::printf(
        "On display: a repetition ends when an idle message loop has brought what was drawn to the "
        "display; ");
    std::printf("calls alone: when they have returned.\n");
    std::printf("Native: controls of user32, not themed (no manifest asks for the themed ones).\n\n");
    Print_Cells({"What", "Unit", "Ours", "Native", "Ratio", "Target", "Verdict"});
    Print_Cells({"---", "---", "---", "---", "---", "---", "---"});
}

/// Measures and prints one row.
/// @return false when the target is missed or the measurement failed
bool Run(const Row& row) {
    try {
        const Result result = row.measure();
        Print_Cells({row.name, row.unit, Format_Summary(result.ours), Format_Summary(result.native),
                     result.native ? Format_Number(Ratio(result)) : "-", Format_Target(row),
                     Judge(row, result)});
        return Reaches(result, row.target.kind, row.target.limit);
    } catch (const std::runtime_error& failure) {
        Print_Cells({row.name, row.unit, "-", "-", "-", Format_Target(row),
                     std::string("FAILED: ") + failure.what()});
        return false;
    }
}

std::string Subject(const Row& row) { return {row.name, std::strcspn(row.name, ":")}; }

bool Read_Options(int count, char** words) {
    for (int i = 1; i < count; ++i) {
        const std::string word = words[i];
        if (word == "--quick") {
            options.quick = true;
        } else if (word == "--check") {
            options.check = true;
        } else if (word == "--filter" && i + 1 < count) {
            options.filter = words[++i];
        } else {
            return false;
        }
    }
    return true;
}

/// @return the number of rows that missed their target
int Run_All() {
    std::vector<Row>& rows = Rows();
    std::stable_sort(rows.begin(), rows.end(),
                     [](const Row& a, const Row& b) { return Subject(a) < Subject(b); });
    Print_Heading();
    int missed = 0;
    for (const Row& row : rows) {
        if (std::strstr(row.name, options.filter) && !Run(row)) ++missed;
    }
    return missed;
}

}  // namespace

Register::Register(const Row& row) { Rows().push_back(row); }

Summary Time(const Work& work) {
    return Repeat([&] { return Time_Once(work); });
}

Result Compare(const Work& ours, const Work& native, int repetitions) {
    std::vector<double> our_times;
    std::vector<double> native_times;
    if (repetitions == 0) repetitions = Repetitions();
    for (int i = 0; i < repetitions; ++i) {
        our_times.push_back(Time_Warm(ours));
        native_times.push_back(Time_Warm(native));
    }
    return {Summarize(our_times), Summarize(native_times)};
}

Summary Repeat(const std::function<double()>& measure) {
    std::vector<double> samples;
    samples.reserve(static_cast<std::size_t>(Repetitions()));
    measure();
    for (int i = 0; i < Repetitions(); ++i)
        samples.push_back(measure());
    return Summarize(samples);
}

void Require(bool holds, const char* what) {
    if (!holds) throw std::runtime_error(what);
}

void Flush() {
    MSG message;
    PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE);
}

void Drain_Messages() {
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE))
        DispatchMessageA(&message);
}

Stage::Stage(Handler message_handler) : handler(std::move(message_handler)) {
    static const HBRUSH brush = CreateSolidBrush(Background);
    static const ATOM window_class = [] {
        WNDCLASSA description{};
        description.lpfnWndProc = Procedure;
        description.hInstance = GetModuleHandleA(nullptr);
        description.hbrBackground = brush;
        description.lpszClassName = "Galdren_Bench";
        return RegisterClassA(&description);
    }();
    window = CreateWindowExA(WS_EX_TOOLWINDOW, MAKEINTATOM(window_class), "", WS_POPUP | WS_CLIPCHILDREN, 0,
                             0, Width, Height, nullptr, nullptr, GetModuleHandleA(nullptr), nullptr);
    SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

Stage::~Stage() { DestroyWindow(window); }

void Stage::Raise() const {
    SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
    Wait_For_Display();
    Drain_Messages();
}

void Stage::Repaint() const {
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW | RDW_ALLCHILDREN);
}

void Stage::Repaint(const RECT& area) const {
    RedrawWindow(window, &area, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW | RDW_ALLCHILDREN);
}

COLORREF Stage::Pixel(int x, int y) const {
    const HDC dc = GetDC(window);
    const COLORREF color = GetPixel(dc, x, y);
    ReleaseDC(window, dc);
    return color;
}

LRESULT CALLBACK Stage::Procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    const auto* stage = reinterpret_cast<const Stage*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    LRESULT result = 0;
    if (stage && stage->handler && stage->handler(message, wparam, lparam, result)) return result;
    return DefWindowProcA(window, message, wparam, lparam);
}

}  // namespace bench

int main(int count, char** words) {
    if (!bench::Read_Options(count, words)) {
        std::fprintf(stderr, "usage: bench [--filter TEXT] [--quick] [--check]\n");
        return 2;
    }
    const int missed = bench::Run_All();
    return bench::options.check && missed > 0 ? 1 : 0;
}
