// Reading of image files.

#include <cstdio>
#include <string>

#include "Galdren_Util.h"
#include "bench.h"

namespace {

constexpr std::size_t Side = 1024;
constexpr std::size_t Channels = 4;

/// The picture is made of strips, each other one a single colour: half of it packs, half does not.
constexpr std::size_t Strip = 16;

char Value(std::size_t x, std::size_t y, std::size_t channel) {
    const std::size_t place = x / Strip % 2 ? x : x / Strip;
    return static_cast<char>(place * 37 + y * 11 + channel * 64);
}

/// Highest byte first.
std::string Number(std::size_t value, std::size_t bytes) {
    std::string text;
    while (bytes-- > 0)
        text += static_cast<char>(value >> bytes * 8);
    return text;
}

std::string Sgi_Header(bool packed) {
    std::string header = Number(474, 2) + Number(packed, 1) + Number(1, 1) + Number(3, 2) + Number(Side, 2) +
                         Number(Side, 2) + Number(Channels, 2);
    header.resize(512);
    return header;
}

std::string Targa_Header(bool packed) {
    std::string header(18, '\0');
    header[2] = packed ? 10 : 2;
    header[13] = header[15] = Side >> 8;
    header[16] = 8 * Channels;
    header[17] = 8;  // bits of alpha
    return header;
}

std::string Sgi_Row(bool packed, std::size_t y, std::size_t channel) {
    std::string row;
    for (std::size_t x = 0; x < Side; ++x) {
        const bool run = packed && x / Strip % 2 == 0;
        if (packed && x % Strip == 0) row += static_cast<char>(run ? Strip : Strip | 0x80);
        if (!run || x % Strip == 0) row += Value(x, y, channel);
    }
    return packed ? row + '\0' : row;
}

std::string Sgi_File(bool packed) {
    std::string starts;
    std::string lengths;
    std::string rows;
    for (std::size_t channel = 0; channel < Channels; ++channel) {
        for (std::size_t y = 0; y < Side; ++y) {
            const std::string row = Sgi_Row(packed, y, channel);
            starts += Number(512 + Side * Channels * 2 * 4 + rows.size(), 4);
            lengths += Number(row.size(), 4);
            rows += row;
        }
    }
    return Sgi_Header(packed) + (packed ? starts + lengths : "") + rows;
}

std::string Targa_File(bool packed) {
    std::string file = Targa_Header(packed);
    for (std::size_t y = 0; y < Side; ++y) {
        for (std::size_t x = 0; x < Side; ++x) {
            const bool run = packed && x / Strip % 2 == 0;
            if (packed && x % Strip == 0) file += static_cast<char>((Strip - 1) | (run ? 0x80 : 0));
            if (run && x % Strip != 0) continue;
            for (const std::size_t channel : {2U, 1U, 0U, 3U})
                file += Value(x, y, channel);
        }
    }
    return file;
}

/// A file that is there for one row of the table.
class Scratch_File {
  public:
    explicit Scratch_File(const std::string& contents) {
        char folder[MAX_PATH];
        GetTempPathA(MAX_PATH, folder);
        GetTempFileNameA(folder, "img", 0, name);
        std::FILE* file = std::fopen(name, "wb");
        bench::Require(file && std::fwrite(contents.data(), 1, contents.size(), file) == contents.size(),
                       "no file could be written");
        std::fclose(file);
    }
    ~Scratch_File() { DeleteFileA(name); }
    Scratch_File(const Scratch_File&) = delete;
    Scratch_File& operator=(const Scratch_File&) = delete;

    const char* Name() const { return name; }

  private:
    char name[MAX_PATH];
};

bool Is_The_Picture(const IGB_Image* image) {
    if (!image || image->width != Side || image->height != Side || image->channels != Channels) return false;
    for (std::size_t i = 0; i < Side * Side; ++i) {
        for (std::size_t channel = 0; channel < Channels; ++channel) {
            const std::size_t place = channel < 3 ? 2 - channel : channel;
            const auto read = static_cast<char>(image->pixels[i * Channels + place]);
            if (read != Value(i % Side, Side - 1 - i / Side, channel)) return false;
        }
    }
    return true;
}

using Reader = int (*)(const char* path, IGB_Image** image);

bench::Result Read_File(Reader read, const std::string& contents) {
    const Scratch_File file(contents);
    IGB_Image* image = nullptr;
    const bench::Work work{[&] { read(file.Name(), &image); }, 1,
                           [&] {
                               IGB_Free(image);
                               image = nullptr;
                           }};
    const bench::Summary time = bench::Time(work);
    const bool right = Is_The_Picture(image);
    IGB_Free(image);
    bench::Require(right, "the picture is not the one that was written");
    const auto rate = [](double microseconds) { return double{Side * Side * Channels} / microseconds; };
    return {{rate(time.median), rate(time.high), rate(time.low)}, {}};
}

constexpr bench::Target Rate = bench::At_Least(100);

const bench::Register rows[] = {
    bench::Register({"image: SGI of 1024 x 1024, verbatim", "MB/s", Rate,
                     [] { return Read_File(IGB_Read_Image, Sgi_File(false)); }}),
    bench::Register({"image: SGI of 1024 x 1024, run-length", "MB/s", Rate,
                     [] { return Read_File(IGB_Read_Image, Sgi_File(true)); }}),
    bench::Register({"image: Targa of 1024 x 1024, plain", "MB/s", Rate,
                     [] { return Read_File(TGA_Read_Image, Targa_File(false)); }}),
    bench::Register({"image: Targa of 1024 x 1024, run-length", "MB/s", Rate,
                     [] { return Read_File(TGA_Read_Image, Targa_File(true)); }}),
};

}  // namespace
