#include "util/error.h"

#include <atomic>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string_view>

#include "util/program.h"
#include "util/wide.h"

namespace {

using galdren::Longest_Character;

constexpr int Default_Level = ERROR_LEVEL_WARNING;
constexpr std::size_t Longest_Report = 2048;
constexpr std::size_t Longest_Format = 2 * Longest_Report;

int Level_From_Environment() {
    const char* text = std::getenv("GALDREN_ERROR_LEVEL");
    return text && *text ? std::atoi(text) : Default_Level;
}

std::atomic<int> Level{Level_From_Environment()};
std::atomic<Error_Handler> Handler{nullptr};

/// Ends a format before a conversion that is cut off.
void Drop_Cut_Conversion(char* format) {
    for (char* at = format; (at = std::strchr(at, '%')) != nullptr; ++at) {
        char* const conversion = at++;
        at += std::strspn(at, " -+#0123456789.*hlLjztqwI");
        if (*at) continue;
        *conversion = '\0';
        return;
    }
}

/// Copies a format without its style bytes, and cuts what is longer than any report. In letters of several
/// bytes, and in names and paths, which are among the arguments, the same bytes are no styles.
void Strip_Styles(const char* format, char (&plain)[Longest_Format]) {
    constexpr unsigned char Style = 0xF1;  // followed by the code of the style
    constexpr unsigned char Plain = 0x01;
    constexpr unsigned char Strong = 0x02;
    std::size_t length = 0;
    const char* in = format;
    for (; *in && length < Longest_Format - Longest_Character; ++in) {
        const auto byte = static_cast<unsigned char>(*in);
        const int bytes = Text_Decode(in, static_cast<int>(strnlen(in, Longest_Character)), nullptr);
        if (bytes > 1) {
            std::memcpy(plain + length, in, static_cast<std::size_t>(bytes));
            length += static_cast<std::size_t>(bytes);
            in += bytes - 1;
        } else if (byte == Style) {
            if (in[1]) ++in;
        } else if (byte != Plain && byte != Strong) {
            plain[length++] = *in;
        }
    }
    plain[length] = '\0';
    if (*in) Drop_Cut_Conversion(plain);
}

/// Cuts a text at a whole character.
void Cut(char* text) {
    constexpr int Longest = Longest_Report - 1;
    const auto length = static_cast<int>(std::strlen(text));
    int at = 0;
    while (length > Longest && at < length) {
        const int next = at + Text_Decode(text + at, length - at, nullptr);
        if (next > Longest) break;
        at = next;
    }
    if (length > Longest) text[at] = '\0';
}

void Write_To_Debugger(std::string_view line) try {
    OutputDebugStringW(galdren::To_Wide(line).c_str());
} catch (const std::bad_alloc&) {
    return;  // it stands on standard error
}

void Report_Standard(const char* text) {
    const char* program = Prog_Name ? Prog_Name : "";
    const std::size_t length = std::strlen(text);
    const char* line_end = length && text[length - 1] == '\n' ? "" : "\n";
    char line[Longest_Report + MAX_PATH];
    std::snprintf(line, sizeof line, "%s: %s%s", program, text, line_end);
    std::fputs(line, stderr);
    std::fflush(stderr);  // a crash that follows must not take it along
    Write_To_Debugger(line);
}

}  // namespace

void Error_Fct(HWND window, int level, const char* format, ...) {
    if (!format || level > Level.load()) return;
    char plain[Longest_Format];
    Strip_Styles(format, plain);
    char text[Longest_Report + Longest_Character];
    va_list arguments;
    va_start(arguments, format);
    const int length = std::vsnprintf(text, sizeof text, plain, arguments);
    va_end(arguments);
    if (length < 0) return;
    Cut(text);
    if (const Error_Handler handler = Handler.load()) {
        handler(window, level, text);
    } else {
        Report_Standard(text);
    }
}

const char* Error_Perror(int error) { return std::strerror(error); }

int Error_Set_Level(int level) { return Level.exchange(level); }

Error_Handler Error_Set_Handler(Error_Handler handler) { return Handler.exchange(handler); }
