#include "dirtree/icon_file.h"

#include <io.h>

#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <memory>
#include <new>

#include "tools/image_file.h"
#include "util/error.h"
#include "util/open_file.h"
#include "util/program.h"

namespace galdren {

namespace {

/// What a reader says of itself in its reports.
struct Reader {
    const char* name;
    int open_line;
    int kind_line;
    const char* kind;  ///< of pixels that it wants
};
constexpr char Source_Name[] = ".\\icon.cpp";
constexpr Reader Sgi{"Icon_Read_RGB", 604, 613, "RGBA"};
constexpr Reader Targa{"Icon_Read_TGA", 703, 721, "RGB"};

void Report_Unreadable(const Reader& reader, const char* path, int error) {
    Error_Fct(hwnd, ERROR_LEVEL_WARNING, "%s() File:%s Line:%d ", reader.name, Source_Name, reader.open_line);
    Error_Fct(hwnd, ERROR_LEVEL_FAILURE, "\xF1\x05WARNING:\x02 Unable to open \x01%s", path);
    Error_Fct(hwnd, ERROR_LEVEL_FAILURE, "\xF1\x09 %s", Error_Perror(error));
}

void Report_Wrong_Kind(const Reader& reader, const char* path) {
    Error_Fct(hwnd, ERROR_LEVEL_WARNING, "%s() File:%s Line:%d", reader.name, Source_Name, reader.kind_line);
    Error_Fct(hwnd, ERROR_LEVEL_WARNING, "%s should be %s", path, reader.kind);
}

/// Where icons lie, as found when it is first asked for.
struct Icon_Directory {
    static constexpr std::size_t Longest = 1024;
    char text[Longest];

    Icon_Directory() {
        const bool installed = Inst_Path && *Inst_Path;
        std::snprintf(text, sizeof text, "%sIcons\\", installed ? Inst_Path : R"(c:\Program Files\Galdren\)");
    }
};

/// The path of an icon. One that is longer than any file's is cut, and then names no file.
struct Icon_Path {
    char text[2 * Icon_Directory::Longest];
    bool whole;

    Icon_Path(const Icon_Directory& directory, const char* name) {
        const int length = std::snprintf(text, sizeof text, "%s%s", directory.text, name);
        whole = length >= 0 && static_cast<std::size_t>(length) < sizeof text;
    }
};

/// The two forms of an icon's pixels while they are made.
class Icon_Pixels {
  public:
    Icon_Pixels(unsigned short columns, unsigned short rows)
        : width(columns),
          height(rows),
          plain(new (std::nothrow) unsigned long[Count()]),
          swapped(new (std::nothrow) unsigned long[Count()]) {}

    std::size_t Count() const { return std::size_t{width} * height; }

    /// @return false, after a report, when the memory could not be had
    bool Usable(const Reader& reader, const char* path) const {
        if (plain && swapped) return true;
        Error_Fct(hwnd, ERROR_LEVEL_WARNING, "%s(%s) failed in new", reader.name, path);
        return false;
    }

    void Set(std::size_t at, unsigned char blue, unsigned char green, unsigned char red,
             unsigned char weight) {
        plain[at] = Pack(blue, green, red, weight);
        swapped[at] = Pack(red, green, blue, weight);
    }

    void Move_To(Icon_Entry& entry) {
        entry.width = width;
        entry.height = height;
        entry.pixels = plain.release();
        entry.swapped = swapped.release();
    }

  private:
    static unsigned long Pack(unsigned long first, unsigned long second, unsigned long third,
                              unsigned long fourth) {
        return first | second << 8 | third << 16 | fourth << 24;
    }

    unsigned short width;
    unsigned short height;
    std::unique_ptr<unsigned long[]> plain;
    std::unique_ptr<unsigned long[]> swapped;
};

Image Read_Sgi_Image(const Icon_Path& path) {
    if (path.whole) return Read_Image(path.text, false);
    errno = ENAMETOOLONG;
    return {nullptr, IGB_Free};
}

/// An SGI image, whose fourth channel is the complement of the weight.
void Read_Sgi(Icon_Entry& entry) {
    static const Icon_Directory directory;
    static bool reported = false;
    const Icon_Path path(directory, entry.name);
    Error_Fct(hwnd, ERROR_LEVEL_TRACE, "%s(%s)", Sgi.name, path.text);
    const Image image = Read_Sgi_Image(path);
    if (!image) {
        if (!reported) Report_Unreadable(Sgi, path.text, errno);
        reported = true;
        return;
    }
    if (image->channels != 4) return Report_Wrong_Kind(Sgi, path.text);
    Icon_Pixels pixels(image->width, image->height);
    if (!pixels.Usable(Sgi, path.text)) return;
    const unsigned char* from = image->pixels;
    for (std::size_t at = 0; at < pixels.Count(); ++at, from += 4)
        pixels.Set(at, from[0], from[1], from[2], static_cast<unsigned char>(~from[3]));
    pixels.Move_To(entry);
}

File Open(const Icon_Path& path) {
    errno = ENAMETOOLONG;
    return path.whole ? Open_To_Read(path.text) : nullptr;
}

/// What an icon reads of the head of a Targa file; the pixels follow it at once.
struct Targa_Header {
    static constexpr std::size_t Size = 18;
    unsigned char bytes[Size];

    unsigned short Word(int at) const { return static_cast<unsigned short>(bytes[at] | bytes[at + 1] << 8); }
    unsigned short Width() const { return Word(12); }
    unsigned short Height() const { return Word(14); }
    int Depth() const { return bytes[16]; }
    std::size_t Row_Size() const { return std::size_t{3} * Width(); }
};

/// Whether the file holds the rows that its header promises, so that no memory is taken for others.
bool Holds_Rows(std::FILE* file, const Targa_Header& header) {
    const long long rows = 3LL * header.Width() * header.Height();
    return _filelengthi64(_fileno(file)) >= static_cast<long long>(Targa_Header::Size) + rows;
}

void Report_Cut_Short(const char* path) {
    Error_Fct(hwnd, ERROR_LEVEL_WARNING, "%s(%s) is cut short", Targa.name, path);
}

/// Where red and green are both 0, blue tells how clear the pixel is.
void Set_Keyed(Icon_Pixels& pixels, std::size_t at, const unsigned char* bgr) {
    if (bgr[1] == 0 && bgr[2] == 0) return pixels.Set(at, 0, 0, 0, static_cast<unsigned char>(~bgr[0]));
    pixels.Set(at, bgr[0], bgr[1], bgr[2], 255);
}

/// A Targa file of 24 bits, its rows bottom-up. Only size and depth of its header count.
void Read_Targa(Icon_Entry& entry) {
    static const Icon_Directory directory;
    const Icon_Path path(directory, entry.name);
    const File file = Open(path);
    if (!file) return Report_Unreadable(Targa, path.text, errno);
    Targa_Header header;
    if (std::fread(header.bytes, Targa_Header::Size, 1, file.get()) != 1) return Report_Cut_Short(path.text);
    if (header.Depth() != 24) return Report_Wrong_Kind(Targa, path.text);
    if (!Holds_Rows(file.get(), header)) return Report_Cut_Short(path.text);

    const std::unique_ptr<unsigned char[]> row(new (std::nothrow) unsigned char[header.Row_Size()]);
    if (!row) return;
    Icon_Pixels pixels(header.Width(), header.Height());
    if (!pixels.Usable(Targa, path.text)) return;
    for (std::size_t at = pixels.Count(); at > 0;) {
        if (std::fread(row.get(), header.Row_Size(), 1, file.get()) != 1) return Report_Cut_Short(path.text);
        at -= header.Width();
        for (std::size_t column = 0; column < header.Width(); ++column)
            Set_Keyed(pixels, at + column, row.get() + 3 * column);
    }
    pixels.Move_To(entry);
}

}  // namespace

void Read_Icon_File(Icon_Entry& entry) {
    const auto read = std::strstr(entry.name, ".tga") ? Read_Targa : Read_Sgi;
    read(entry);
}

}  // namespace galdren
