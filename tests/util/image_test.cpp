// Run in the folder of the test data, which scripts/make-test-pictures made.
#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>

#include "Galdren_Util.h"
#include "tests/support/code_page.h"
#include "tests/support/spy.h"

using namespace std::string_literals;
using namespace std::string_view_literals;

namespace {

struct Outcome {
    int error;
    std::string size, pixels;  ///< size as width x height x channels
    std::string report;
};

bool Is_Sgi(std::string_view name) { return name.ends_with(".sgi"); }

Outcome Read(std::string_view name, const std::string& path) {
    galdren_test::Report_Catcher reports;
    IGB_Image unwritten;
    IGB_Image* image = &unwritten;
    errno = 0;
    const int result = (Is_Sgi(name) ? IGB_Read_Image : TGA_Read_Image)(path.c_str(), &image);
    EXPECT_EQ(result, image ? 1 : 0) << name;
    if (!image) return {errno, "", "", reports.Take()};
    const int width = image->width, height = image->height, channels = image->channels;
    const std::string pixels(reinterpret_cast<const char*>(image->pixels),
                             std::size_t(width * height * channels));
    IGB_Free(image);
    return {0, (std::ostringstream() << width << 'x' << height << 'x' << channels).str(), pixels,
            reports.Take()};
}

std::string Load(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file) << path;
    return {std::istreambuf_iterator<char>(file), {}};
}

/// A file for contents that are made up, gone when the test ends.
class Scratch_File {
  public:
    Scratch_File()
        : path((std::filesystem::temp_directory_path() / std::to_string(GetCurrentProcessId())).string()) {}
    ~Scratch_File() { std::filesystem::remove(path); }
    Scratch_File(const Scratch_File&) = delete;
    Scratch_File& operator=(const Scratch_File&) = delete;

    void Write(std::string_view bytes) const {
        std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }
    void Cut(std::size_t size) const { std::filesystem::resize_file(path, size); }

    const std::string path;
};

void Expect_Refused(const Outcome& outcome, std::string_view name, int error) {
    EXPECT_EQ(outcome.error, error) << outcome.report;
    const std::string head = Is_Sgi(name) ? "11:IGB_Read_Image(" : "11:TGA_Read_Image(";
    EXPECT_TRUE(outcome.report.starts_with(head)) << outcome.report;
}

}  // namespace

TEST(Image, Reads_What_Another_Program_Wrote) {
    for (const char* name : {"1", "3", "4", "top", "map"}) {
        for (const char* kind : {"_plain.sgi", "_packed.sgi", "_plain.tga", "_packed.tga"}) {
            const std::string path = std::string(name) + kind;
            if (Is_Sgi(path) && (*name == 't' || *name == 'm')) continue;
            SCOPED_TRACE(path);
            const Outcome outcome = Read(path, path);
            EXPECT_EQ(outcome.report, "");
            EXPECT_EQ(outcome.size, *name == '1' ? "131x2x1" : *name == '4' ? "131x2x4" : "131x2x3");
            EXPECT_TRUE(outcome.pixels == Load((*name == 't' ? "3"s : name) + ".raw"));
        }
    }
}

TEST(Image, Reads_What_Is_Rare) {
    const struct {
        const char* name;
        std::string bytes;
        const char *size, *pixels;
    } table[] = {
        {"two channels, rows in any order, shared and not ended by a zero.sgi",
         "\x01\xda\1\1\0\3\0\2\0\2\0\2"s + std::string(500, '\0') +
             "\0\0\2\x23\0\0\2\x20\0\0\2\x23\0\0\2\x23\0\0\0\3\0\0\0\3\0\0\0\2\0\0\0\3"
             "\x82\x61\x62\2\x7a\0"s,
         "2x2x2", "azbzzzzz"},
        {"one dimension.sgi", "\x01\xda\0\1\0\1\0\3\0\7\0\x09"s + std::string(500, '\0') + "abc", "3x1x1",
         "abc"},
        {"a packet over two rows, from the right, after identification and unused map.tga",
         "\4\1\x0a\0\0\1\0\x10\0\0\0\0\2\0\2\0\x18\x30noteMM\x82"
         "BGR\0bgr"s,
         "2x2x3", "BGRBGRbgrBGR"},
        {"colours from the fifth on.tga",
         "\0\1\1\5\0\2\0\x20\0\0\0\0\2\0\1\0\x08\0"
         "abcdefgh\6\5"s,
         "2x1x4", "efghabcd"},
    };
    const Scratch_File file;
    for (const auto& row : table) {
        SCOPED_TRACE(row.name);
        file.Write(row.bytes);
        const Outcome outcome = Read(row.name, file.path);
        EXPECT_EQ(outcome.report, "");
        EXPECT_EQ(outcome.size, row.size);
        EXPECT_EQ(outcome.pixels, row.pixels);
    }
}

TEST(Image, Refuses_Files_That_Cannot_Be) {
    constexpr std::size_t Size_Sgi = 6, Starts = 512, Lengths = 512 + 4 * 6, Row = 512 + 8 * 6, Size_Tga = 12;
    const struct {
        const char* name;
        std::size_t place;
        std::string_view bytes;
        int error;
    } table[] = {
        {"3_plain.sgi", 1, "\xdb", EINVAL},
        {"3_plain.sgi", 2, "\2", EINVAL},
        {"3_plain.sgi", 3, "\3", EINVAL},
        {"3_plain.sgi", 5, "\4", EINVAL},
        {"3_plain.sgi", 5, "\0"sv, EINVAL},
        {"3_plain.sgi", 11, "\0"sv, EINVAL},
        {"3_plain.sgi", 11, "\5", EINVAL},
        {"3_plain.sgi", 107, "\3", EINVAL},
        {"3_plain.sgi", Size_Sgi, "\0\0"sv, EILSEQ},
        {"3_plain.sgi", Size_Sgi, "\0\x84"sv, EILSEQ},
        {"3_plain.sgi", Size_Sgi, "\x20\0\x20\0"sv, EILSEQ},
        {"3_plain.sgi", Size_Sgi, "\xff\xff\xff\xff", EFBIG},
        {"3_packed.sgi", Size_Sgi, "\0\x82"sv, EILSEQ},
        {"3_packed.sgi", Size_Sgi, "\0\x84"sv, EILSEQ},
        {"3_packed.sgi", Size_Sgi, "\x20\0\x20\0"sv, EILSEQ},
        {"3_packed.sgi", Starts, "\0\0\0\0"sv, EILSEQ},
        {"3_packed.sgi", Starts, "\xff\xff\xff\xff", EILSEQ},
        {"3_packed.sgi", Lengths, "\xff\xff\xff\xff", EILSEQ},
        {"3_packed.sgi", Lengths, "\0\0\0\3"sv, EILSEQ},
        {"3_packed.sgi", Row, "\x7f", EILSEQ},
        {"3_packed.tga", 1, "\2", EINVAL},
        {"1_packed.tga", 2, "\x08", EINVAL},
        {"3_packed.tga", 2, "\x20", EINVAL},
        {"3_packed.tga", 16, "\x10", EINVAL},
        {"3_packed.tga", 17, "\x40", EINVAL},
        {"3_packed.tga", Size_Tga, "\0\0"sv, EILSEQ},
        {"3_packed.tga", Size_Tga, "\x82\0"sv, EILSEQ},
        {"3_packed.tga", Size_Tga, "\x84\0"sv, EILSEQ},
        {"3_packed.tga", Size_Tga, "\0\x20\0\x20"sv, EILSEQ},
        {"3_packed.tga", Size_Tga, "\xff\xff\xff\xff", EFBIG},
        {"map_packed.tga", 1, "\0"sv, EINVAL},
        {"map_packed.tga", 3, "\1", EILSEQ},
        {"map_packed.tga", 5, "\xff\xff", EILSEQ},
        {"map_packed.tga", 7, "\x10", EINVAL},
    };
    const Scratch_File file;
    for (const auto& row : table) {
        SCOPED_TRACE(row.name + " "s + std::to_string(row.place));
        file.Write(Load(row.name).replace(row.place, row.bytes.size(), row.bytes));
        Expect_Refused(Read(row.name, file.path), row.name, row.error);
    }
    const Outcome deep = Read("16_bits.sgi", "16_bits.sgi");
    Expect_Refused(deep, "16_bits.sgi", EINVAL);
    EXPECT_NE(deep.report.find("16 bits"), std::string::npos);
}

TEST(Image, Refuses_Files_Cut_Anywhere) {
    const Scratch_File file;
    for (const std::string name :
         {"1_plain.sgi", "1_packed.sgi", "1_plain.tga", "3_packed.tga", "map_packed.tga"}) {
        const std::string whole = Load(name);
        const std::size_t kind_known = Is_Sgi(name) ? 2 : 18;
        file.Write(whole);
        for (std::size_t size = whole.size(); size-- > 0;) {
            SCOPED_TRACE(name + " " + std::to_string(size));
            file.Cut(size);
            Expect_Refused(Read(name, file.path), name, size < kind_known ? EINVAL : EILSEQ);
        }
    }
}

TEST(Image, Is_Read_By_A_Name_In_The_Code_Page) {
    const galdren_test::Other_Page page(CP_UTF8);
    const std::filesystem::path place = std::filesystem::temp_directory_path() / L"\u65E5\u672C.sgi";
    std::filesystem::copy_file("3_plain.sgi", place, std::filesystem::copy_options::overwrite_existing);
    const std::u8string name = place.u8string();
    EXPECT_EQ(Read("3_plain.sgi", std::string(name.begin(), name.end())).pixels,
              Read("3_plain.sgi", "3_plain.sgi").pixels);
    std::filesystem::remove(place);
}

TEST(Image, Goes_Without_Memory) {
    for (const char* name : {"3_packed.sgi", "3_packed.tga"}) {
        int refused = 0;
        for (int passed = 0; passed < 20; ++passed) {
            galdren_test::Call_Spy spy("Galdren_Util.dll");
            spy.Fail_Allocation(passed);
            const Outcome outcome = Read(name, name);
            refused += outcome.error == ENOMEM;
            EXPECT_TRUE(outcome.error || outcome.pixels == Load("3.raw")) << passed;
        }
        EXPECT_GE(refused, 2) << name << ": for the image and for its pixels";
    }
}

TEST(Image, Leaves_Files_That_Do_Not_Open_To_The_Caller) {
    const Outcome missing = Read(".sgi", "no such file.sgi");
    EXPECT_EQ(missing.error, ENOENT);
    EXPECT_EQ(missing.report, "");
    IGB_Image* image = nullptr;
    EXPECT_EQ(TGA_Read_Image(nullptr, &image), 0);
    EXPECT_EQ(errno, EINVAL);
    EXPECT_EQ(IGB_Read_Image("3_plain.sgi", nullptr), 0);
    IGB_Free(nullptr);
}
