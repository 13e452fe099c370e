// make_icons [--check] DIRECTORY: writes the icons of the directory browser and the gallery, or checks that
// those in the directory are what it would write. The pictures are below; after a change build the target
// "icons".
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace {

constexpr int Side = 16;

/// How a character of a picture looks.
///
/// Icons are blended with signed colour bytes: a colour that is half clear has to be dark.
struct Paint {
    char sign;
    unsigned char red, green, blue;
    unsigned char clearness;  ///< 0 opaque, 255 clear
};

constexpr Paint Paints[] = {
    {'.', 0, 0, 0, 255},      // nothing
    {':', 0, 0, 0, 185},      // shadow
    {'o', 44, 50, 60, 130},   // softened corner of an outline
    {'k', 44, 50, 60, 0},     // outline
    {'W', 250, 250, 252, 0},  // light that falls on an edge
    {'L', 226, 230, 236, 0},  // face turned upward
    {'M', 196, 202, 212, 0},  // metal
    {'D', 142, 150, 164, 0},  // metal in the shade
    {'G', 64, 220, 84, 0},    // lamp
    {'g', 20, 140, 52, 0},    // rim of the lamp
    {'B', 46, 94, 196, 0},    // blue plastic, screen
    {'b', 30, 62, 142, 0},    // the same in the shade
    {'C', 96, 168, 246, 0},   // the same in the light
    {'c', 168, 226, 236, 0},  // colours of a disc
    {'v', 216, 190, 240, 0},  //
    {'y', 250, 236, 160, 0},  //
    {'R', 214, 62, 54, 0},    // printed line
    {'T', 250, 196, 52, 0},   // plug
    {'t', 190, 130, 20, 0},   // plug in the shade
};

struct Picture {
    const char* file;  ///< a Targa file if its name ends so, else an SGI image
    const char* rows[Side];
};

// clang-format off
constexpr Picture Pictures[] = {
    {"icon_floppy.rgb", {
        "................",
        ".kkkkkkkkkkkkko.",
        ".kCBkMWWWMDkBbkk",
        ".kCBkMWkkMDkBbbk",
        ".kCBkMWkkMDkBbbk",
        ".kCBkMMkkMDkBbbk",
        ".kCBkDDDDDDkBbbk",
        ".kCBBkkkkkkBBbbk",
        ".kCBBBBBBBBBBbbk",
        ".kCBWWWWWWWWWbbk",
        ".kCBWRRRRRRRWbbk",
        ".kCBWWWWWWWWWbbk",
        ".kCBWDDDDDDDWbbk",
        ".kCBWWWWWWWWWbbk",
        ".kkkkkkkkkkkkkkk",
        "..::::::::::::::",
    }},
    {"icon_fixed.rgb", {
        "................",
        "................",
        "................",
        "..okkkkkkkkkko..",
        "..kLLLLLLLLLLk..",
        ".kLLLLLLLLLLLLk.",
        ".kWLLLLLLLLLLMk.",
        "kWWWWWWWWWWWWWWk",
        "kWMMMMMMMMMMMMDk",
        "kWMMMMMMMMMgGMDk",
        "kWMkkkkkkMMggMDk",
        "kWMMMMMMMMMMMMDk",
        "kWDDDDDDDDDDDDDk",
        "okkkkkkkkkkkkkko",
        ".::::::::::::::.",
        "................",
    }},
    {"icon_remote.rgb", {
        "................",
        "..okkkkkkkkkko..",
        ".kLLLLLLLLLLLLk.",
        ".kWLLLLLLLLLLMk.",
        "kWWWWWWWWWWWWWWk",
        "kWMMMMMMMMMgGMDk",
        "kWMkkkkkkMMggMDk",
        "kWDDDDDDDDDDDDDk",
        "okkkkkkCBkkkkkko",
        "......kCBk......",
        "......kCBk......",
        "....okkkkkko....",
        "kkkkkTTTTTtkkkkk",
        "CCCCkTTTTTtkCCCC",
        "BBBBkttttttkBBBB",
        "kkkkkkkkkkkkkkkk",
    }},
    {"icon_cdrom.rgb", {
        ".....okkkko.....",
        "...okLWWWWLko...",
        "..kMLWWWWWLLMk..",
        ".kvMMWWWWLLMMLk.",
        ".kvvMMWWWLMMLLk.",
        "ocvvvMWWLMMLLLyo",
        "kccvvvkDDkLLyyyk",
        "kcccvvD..DyyyyMk",
        "kMyyyyD..DvvccMk",
        "kyyyLLkDDkvvvcck",
        "oyLLLMMLWWMvvvco",
        ".kLLMMLWWWMMvvk.",
        ".kLMMLLWWWWMMvk.",
        "..kMLLWWWWWLMk..",
        "...okLWWWWLko...",
        ".....okkkko.....",
    }},
    {"icon_mycomputer.rgb", {
        "okkkkkkkkkkkkkko",
        "kWWWWWWWWWWWWWMk",
        "kWkkkkkkkkkkkkDk",
        "kWkCCCCBBBBBBkDk",
        "kWkCCCBBBBBBBkDk",
        "kWkCCBBBBBBBBkDk",
        "kWkCBBBBBBBBbkDk",
        "kWkBBBBBBBBbbkDk",
        "kWkBBBBBBBbbbkDk",
        "kWkkkkkkkkkkkkDk",
        "kMDDDDDDDDDgGDDk",
        "okkkkkkkkkkkkkko",
        "....okMMMDko....",
        "..okkMMMMDDkko..",
        "..kWWWWWWWWMDk..",
        "..okkkkkkkkkko..",
    }},
    {"star.tga", {
        ".......kk.......",
        "......kyyk......",
        "......kyTk......",
        ".....kyyTTk.....",
        "kkkkkkyTTTkkkkkk",
        "kyyyyyyTTTTTTTTk",
        ".kyTTTTTTTTTTtk.",
        "..kyTTTTTTTTtk..",
        "...kyTTTTTTtk...",
        "...kyTTTTTTtk...",
        "..kyTTTTTTTTtk..",
        "..kyTTTttTTTtk..",
        ".kyTTtkkkktTTtk.",
        ".kTtkk....kkttk.",
        ".kkk::::::::kkk.",
        "...::::..::::...",
    }},
};
// clang-format on

const Paint& Paint_Of(char sign) {
    for (const Paint& paint : Paints) {
        if (paint.sign == sign) return paint;
    }
    return Paints[0];
}

/// The header of an SGI image: not packed, four channels of 8 bits. Numbers have their highest byte first.
std::string Sgi_Header() {
    std::string out;
    for (const int number : {474, 1, 3, Side, Side, 4, 0, 0, 0, 255}) {
        out += static_cast<char>(number >> 8);
        out += static_cast<char>(number);
    }
    out.resize(512, '\0');
    return out;
}

/// A channel of all rows, from the bottom up.
std::string Plane(const Picture& picture, unsigned char Paint::*channel) {
    std::string out;
    for (int row = Side - 1; row >= 0; --row) {
        for (const char sign : std::string_view(picture.rows[row]))
            out += static_cast<char>(Paint_Of(sign).*channel);
    }
    return out;
}

std::string Sgi(const Picture& picture) {
    std::string out = Sgi_Header();
    for (const auto channel : {&Paint::red, &Paint::green, &Paint::blue, &Paint::clearness})
        out += Plane(picture, channel);
    return out;
}

/// A Targa file, whose pixels are clear by as much as they are blue if they have no other colour.
std::string Targa(const Picture& picture) {
    std::string out(18, '\0');
    out[2] = 2;  // true colour, not packed
    out[12] = out[14] = Side;
    out[16] = 24;
    for (int row = Side - 1; row >= 0; --row) {
        for (const char sign : std::string_view(picture.rows[row])) {
            const Paint& paint = Paint_Of(sign);
            const bool clear = paint.clearness > 0;
            out += static_cast<char>(clear ? paint.clearness : paint.blue);
            out += static_cast<char>(clear ? 0 : paint.green);
            out += static_cast<char>(clear ? 0 : paint.red);
        }
    }
    return out;
}

bool Write(const std::string& path, const std::string& bytes) {
    std::ofstream file(path, std::ios::binary);
    return static_cast<bool>(file.write(bytes.data(), static_cast<std::streamsize>(bytes.size())).flush());
}

bool Holds(const std::string& path, const std::string& bytes) {
    std::ifstream file(path, std::ios::binary);
    return file && std::string(std::istreambuf_iterator<char>(file), {}) == bytes;
}

}  // namespace

int main(int count, char** arguments) {
    const bool check = count == 3 && std::strcmp(arguments[1], "--check") == 0;
    if (count != 2 && !check) {
        std::fputs("usage: make_icons [--check] DIRECTORY\n", stderr);
        return 2;
    }
    int faults = 0;
    for (const Picture& picture : Pictures) {
        const std::string path = std::string(arguments[count - 1]) + "/" + picture.file;
        const std::string bytes = std::strstr(picture.file, ".tga") ? Targa(picture) : Sgi(picture);
        if (check ? Holds(path, bytes) : Write(path, bytes)) continue;
        std::fprintf(stderr, "make_icons: %s %s\n", path.c_str(), check ? "differs" : "cannot be written");
        ++faults;
    }
    return faults ? 1 : 0;
}
