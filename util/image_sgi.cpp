#include "util/image_decode.h"

namespace galdren {

namespace {

constexpr std::size_t Header_Size = 512;
constexpr unsigned Magic = 474;

/// The most bytes that a packet of a run-length encoded row stands for.
constexpr std::size_t Longest_Packet = 127;

/// Numbers are stored with their highest byte first.
unsigned Read_16(Bytes file, std::size_t place) {
    return static_cast<unsigned>(file[place]) << 8 | file[place + 1];
}

std::size_t Read_32(Bytes file, std::size_t place) {
    return static_cast<std::size_t>(Read_16(file, place)) << 16 | Read_16(file, place + 2);
}

struct Header {
    bool packed = false;  ///< run-length encoded
    std::size_t width = 1;
    std::size_t height = 1;
    std::size_t channels = 1;
};

Fault Read_Header(Bytes file, Header& header) {
    if (file.size() < 2 || Read_16(file, 0) != Magic) return Unsupported("is not an SGI image");
    if (file.size() < Header_Size) return Damaged("ends within its header");
    const unsigned storage = file[2];
    const unsigned channel_bytes = file[3];
    const unsigned dimensions = Read_16(file, 4);
    const std::size_t pixel_kind = Read_32(file, 104);
    if (storage > 1) return Unsupported("is stored in an unknown way");
    if (channel_bytes == 2) return Unsupported("has 16 bits a channel; 8 are read");
    if (channel_bytes != 1) return Unsupported("has an unknown number of bits a channel");
    if (pixel_kind != 0) return Unsupported("has indices or packed colours for pixels");
    if (dimensions < 1 || dimensions > 3) return Unsupported("has not one to three dimensions");
    header.packed = storage == 1;
    header.width = Read_16(file, 6);
    if (dimensions >= 2) header.height = Read_16(file, 8);
    if (dimensions >= 3) header.channels = Read_16(file, 10);
    if (header.channels < 1 || header.channels > 4) return Unsupported("has not one to four channels");
    return Check_Size(header.width, header.height);
}

/// The rows of a file. Each holds one channel of one row of the picture; all rows of a channel follow each
/// other, from the bottom up.
class Rows {
  public:
    Rows(Bytes whole_file, const Header& its_header)
        : file(whole_file), header(its_header), count(header.height * header.channels) {}

    Fault Check() const {
        if (First_Row() > file.size()) return Damaged("ends within its tables of rows");
        for (std::size_t index = 0; index < count; ++index) {
            const std::size_t start = Start(index);
            const std::size_t length = Length(index);
            if (start < First_Row() || start > file.size() || length > file.size() - start)
                return Damaged("has rows that lie outside of it");
            if (length < Least_Length()) return Damaged("has rows that are too short");
        }
        return {};
    }

    /// The bytes of a row as they are stored. The rows must have been checked.
    Bytes Stored(std::size_t index) const { return file.subspan(Start(index), Length(index)); }

  private:
    /// Where run-length encoded rows start and how long they are stands in two tables after the header. Rows
    /// may lie in any order, and equal ones in the same place.
    static constexpr std::size_t Table_Entry = 4;
    std::size_t Start(std::size_t index) const {
        return header.packed ? Read_32(file, Header_Size + index * Table_Entry)
                             : Header_Size + index * header.width;
    }
    std::size_t Length(std::size_t index) const {
        return header.packed ? Read_32(file, Header_Size + (count + index) * Table_Entry) : header.width;
    }
    std::size_t First_Row() const { return Header_Size + (header.packed ? 2 * count * Table_Entry : 0); }

    /// The shortest that a row can be is runs of one value, two bytes each.
    std::size_t Least_Length() const {
        return header.packed ? (header.width + Longest_Packet - 1) / Longest_Packet * 2 : header.width;
    }

    Bytes file;
    const Header& header;
    std::size_t count;
};

/// The bytes of one channel in a row of pixels.
class Channel {
  public:
    /// @param first  the channel's byte of the first pixel
    /// @param step   bytes from one pixel to the next
    Channel(unsigned char* first, std::size_t step, std::size_t width)
        : next(first), distance(step), left(width) {}

    std::size_t Left() const { return left; }

    void Copy(Bytes values) {
        for (std::size_t i = 0; i < values.size(); ++i)
            next[i * distance] = values[i];
        Advance(values.size());
    }
    void Repeat(unsigned char value, std::size_t count) {
        for (std::size_t i = 0; i < count; ++i)
            next[i * distance] = value;
        Advance(count);
    }

  private:
    void Advance(std::size_t count) {
        next += count * distance;
        left -= count;
    }

    unsigned char* next;
    std::size_t distance;
    std::size_t left;
};

/// A packet begins with a byte that counts the values in its lower seven bits. With the highest bit set that
/// many bytes follow, otherwise one byte that is repeated. A count of 0 ends the row.
/// @return false when the packets do not make exactly one row
bool Unpack(Bytes packets, Channel channel) {
    std::size_t at = 0;
    while (at < packets.size()) {
        const unsigned head = packets[at++];
        const std::size_t count = head & 0x7F;
        if (count == 0) break;
        const bool repeated = (head & 0x80) == 0;
        const std::size_t length = repeated ? 1 : count;
        if (count > channel.Left() || length > packets.size() - at) return false;
        if (repeated) {
            channel.Repeat(packets[at], count);
        } else {
            channel.Copy(packets.subspan(at, count));
        }
        at += length;
    }
    return channel.Left() == 0;
}

/// Place of a file's channel in a pixel: files have red, green, blue.
std::size_t Place_Of(std::size_t channel, std::size_t channels) {
    return channels >= 3 && channel < 3 ? 2 - channel : channel;
}

}  // namespace

Fault Decode_SGI(Bytes file, Image_Owner& image) {
    Header header;
    if (const Fault fault = Read_Header(file, header)) return fault;
    const auto [packed, width, height, channels] = header;
    const Rows rows(file, header);
    if (const Fault fault = rows.Check()) return fault;
    if (const Fault fault = Make_Image(width, height, channels, image)) return fault;

    unsigned char* out = image->pixels;
    for (std::size_t row = height; row-- > 0; out += width * channels) {
        for (std::size_t i = 0; i < channels; ++i) {
            const Bytes stored = rows.Stored(i * height + row);
            Channel channel(out + Place_Of(i, channels), channels, width);
            if (!packed) {
                channel.Copy(stored);
            } else if (!Unpack(stored, channel)) {
                return Damaged("has a row that does not unpack to its width");
            }
        }
    }
    return {};
}

}  // namespace galdren
