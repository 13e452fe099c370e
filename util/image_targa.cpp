#include <algorithm>
#include <array>
#include <cstring>
#include <limits>

#include "util/image_decode.h"

namespace galdren {

namespace {

constexpr std::size_t Header_Size = 18;

/// The most pixels that a packet of a run-length encoded file stands for.
constexpr std::size_t Longest_Packet = 128;

/// Image types. Run-length encoded ones have this bit set as well.
constexpr unsigned Mapped = 1;
constexpr unsigned True_Color = 2;
constexpr unsigned Grey = 3;
constexpr unsigned Packed = 8;

/// Bits of the descriptor.
constexpr unsigned Right_To_Left = 0x10;
constexpr unsigned Top_Down = 0x20;
constexpr unsigned Interleaved = 0xC0;

/// Numbers are stored with their lowest byte first.
std::size_t Read_16(Bytes file, std::size_t place) {
    return static_cast<std::size_t>(file[place + 1]) << 8 | file[place];
}

/// The colours that the pixels of a mapped picture choose from.
struct Color_Map {
    std::size_t first = 0;   ///< index of the first colour stored
    std::size_t length = 0;  ///< number of colours
    std::size_t entry = 0;   ///< bytes of a colour
    Bytes colors;
};

struct Header {
    bool mapped = false;
    bool packed = false;
    bool top_down = false;
    bool right_to_left = false;
    std::size_t width = 0;
    std::size_t height = 0;
    std::size_t pixel = 0;  ///< bytes of a pixel in the file
    Color_Map map;
    Bytes pixels;

    std::size_t Channels() const { return mapped ? map.entry : pixel; }
};

/// The format has no magic: what makes a file a Targa file is that the fields of its header go together.
Fault Read_Kind(Bytes file, Header& header) {
    const unsigned map_type = file[1];
    const unsigned type = file[2] & ~Packed;
    const unsigned bits = file[16];
    const unsigned descriptor = file[17];
    if (map_type > 1 || type < Mapped || type > Grey || (file[2] & ~Packed) != type)
        return Unsupported("is not a Targa image");
    if (descriptor & Interleaved) return Unsupported("has interleaved rows");
    if (type == True_Color ? bits != 24 && bits != 32 : bits != 8)
        return Unsupported("has an unsupported number of bits a pixel");
    if (type == Mapped && (map_type == 0 || (file[7] != 24 && file[7] != 32)))
        return Unsupported("has no colour map of 24 or 32 bits");
    header.mapped = type == Mapped;
    header.packed = (file[2] & Packed) != 0;
    header.top_down = (descriptor & Top_Down) != 0;
    header.right_to_left = (descriptor & Right_To_Left) != 0;
    header.width = Read_16(file, 12);
    header.height = Read_16(file, 14);
    header.pixel = bits / 8;
    return Check_Size(header.width, header.height);
}

/// After the header come an identification, the colour map, and the pixels.
Fault Find_Parts(Bytes file, Header& header) {
    const std::size_t identification = file[0];
    if (file[1] != 0) {
        header.map.first = Read_16(file, 3);
        header.map.length = Read_16(file, 5);
        header.map.entry = (file[7] + std::size_t{7}) / 8;
    }
    const std::size_t map_start = Header_Size + identification;
    const std::size_t map_size = header.map.length * header.map.entry;
    if (map_start + map_size > file.size()) return Damaged("ends before its pixels");
    header.map.colors = file.subspan(map_start, map_size);
    header.pixels = file.subspan(map_start + map_size);
    return {};
}

Fault Read_Header(Bytes file, Header& header) {
    if (file.size() < Header_Size) return Unsupported("is not a Targa image");
    if (const Fault fault = Read_Kind(file, header)) return fault;
    if (const Fault fault = Find_Parts(file, header)) return fault;
    const std::size_t count = header.width * header.height;
    const std::size_t packets = (count + Longest_Packet - 1) / Longest_Packet;
    const std::size_t least = header.packed ? packets * (1 + header.pixel) : count * header.pixel;
    if (header.pixels.size() < least) return Damaged("ends before its last pixel");
    return {};
}

/// Reads pixels of `Size` bytes one after the other. Packets may go on from one row to the next.
template <std::size_t Size>
class Pixel_Reader {
  public:
    /// Pixels that are not packed are one packet without end.
    Pixel_Reader(Bytes pixels, bool packed)
        : rest(pixels), left(packed ? 0 : std::numeric_limits<std::size_t>::max()) {}

    /// @return false when the file ends before
    bool Read(unsigned char* out, std::size_t count) {
        while (count > 0) {
            if (left == 0 && !Next_Packet()) return false;
            const std::size_t part = std::min(left, count);
            if (repeated) {
                Repeat(out, part);
            } else if (!Copy(out, part)) {
                return false;
            }
            out += part * Size;
            count -= part;
            left -= part;
        }
        return true;
    }

    /// Whether the last packet that was begun has pixels left.
    bool In_Packet() const { return left > 0; }

  private:
    /// A packet begins with a byte that counts its pixels, less one, in its lower seven bits. With the
    /// highest bit set one pixel follows, which is repeated, otherwise all of them.
    bool Next_Packet() {
        if (rest.size() < 1 + Size) return false;
        repeated = (rest[0] & 0x80) != 0;
        left = (rest[0] & std::size_t{0x7F}) + 1;
        rest = rest.subspan(1);
        if (!repeated) return true;
        std::copy_n(rest.begin(), Size, value.begin());
        rest = rest.subspan(Size);
        return true;
    }

    bool Copy(unsigned char* out, std::size_t count) {
        if (rest.size() < count * Size) return false;
        std::memcpy(out, rest.data(), count * Size);
        rest = rest.subspan(count * Size);
        return true;
    }

    void Repeat(unsigned char* out, std::size_t count) const {
        const std::array<unsigned char, Size> pixel = value;  // not changed by what is written
        for (std::size_t i = 0; i < count; ++i)
            std::memcpy(out + i * Size, pixel.data(), Size);
    }

    Bytes rest;
    std::size_t left;  ///< pixels of the current packet
    bool repeated = false;
    std::array<unsigned char, Size> value{};
};

/// Turns the indices at the end of a row into colours from its beginning on. No colour reaches an index that
/// has not been looked up yet.
/// @return false when an index is not in the map
bool Look_Up(const Color_Map& map, unsigned char* row, std::size_t width) {
    const unsigned char* indices = row + width * (map.entry - 1);
    for (std::size_t i = 0; i < width; ++i) {
        const std::size_t index = indices[i];
        if (index < map.first || index - map.first >= map.length) return false;
        std::copy_n(&map.colors[(index - map.first) * map.entry], map.entry, row + i * map.entry);
    }
    return true;
}

void Mirror(unsigned char* row, std::size_t width, std::size_t channels) {
    for (std::size_t left = 0, right = width - 1; left < right; ++left, --right)
        std::swap_ranges(row + left * channels, row + (left + 1) * channels, row + right * channels);
}

template <std::size_t Size>
Fault Decode_Pixels(const Header& header, unsigned char* pixels) {
    const std::size_t channels = header.Channels();
    Pixel_Reader<Size> reader(header.pixels, header.packed);
    for (std::size_t i = 0; i < header.height; ++i) {
        const std::size_t line = header.top_down ? i : header.height - 1 - i;
        unsigned char* row = pixels + line * header.width * channels;
        unsigned char* read_to = row + header.width * (channels - Size);  // indices to the row's end
        if (!reader.Read(read_to, header.width)) return Damaged("ends before its last pixel");
        if (header.mapped && !Look_Up(header.map, row, header.width))
            return Damaged("has pixels that are not in its colour map");
        if (header.right_to_left) Mirror(row, header.width, channels);
    }
    if (header.packed && reader.In_Packet()) return Damaged("has more pixels than its size says");
    return {};
}

}  // namespace

Fault Decode_Targa(Bytes file, Image_Owner& image) {
    Header header;
    if (const Fault fault = Read_Header(file, header)) return fault;
    if (const Fault fault = Make_Image(header.width, header.height, header.Channels(), image)) return fault;
    switch (header.pixel) {
        case 1:
            return Decode_Pixels<1>(header, image->pixels);
        case 3:
            return Decode_Pixels<3>(header, image->pixels);
        default:
            return Decode_Pixels<4>(header, image->pixels);
    }
}

}  // namespace galdren
