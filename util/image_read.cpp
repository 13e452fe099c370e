// Image files: from their bytes on the disk to a picture or a report.
#include <io.h>

#include <cerrno>
#include <cstdio>
#include <memory>
#include <new>

#include "util/error.h"
#include "util/image.h"
#include "util/image_decode.h"
#include "util/open_file.h"
#include "util/program.h"

namespace {

using namespace galdren;

/// Twice the bytes of the largest picture that is read.
constexpr long long Largest_File = 1LL << 29;

/// All bytes of a file.
class Contents {
  public:
    Fault Read(std::FILE* file) {
        const long long length = _filelengthi64(_fileno(file));
        if (length < 0) return {EIO, "cannot be read"};
        if (length > Largest_File) return {EFBIG, "is too large"};
        const auto room = static_cast<std::size_t>(length);
        bytes.reset(new (std::nothrow) unsigned char[room]);
        if (!bytes) return {ENOMEM, "no memory to read it"};
        size = std::fread(bytes.get(), 1, room, file);
        if (std::ferror(file)) return {EIO, "cannot be read"};
        return {};
    }
    Bytes Get() const { return {bytes.get(), size}; }

  private:
    std::unique_ptr<unsigned char[]> bytes;
    std::size_t size = 0;
};

/// A file that cannot be opened is no news: the fault has no text, for the caller knows better what to say.
Fault Read_And_Decode(const char* path, Decoder decode, Image_Owner& image) {
    const File file = Open_To_Read(path);
    if (!file) return {errno, ""};
    Contents contents;
    if (const Fault fault = contents.Read(file.get())) return fault;
    return decode(contents.Get(), image);
}

int Read_Image(const char* reader, const char* path, Decoder decode, IGB_Image** result) {
    if (result) *result = nullptr;
    if (!result || !path) {
        errno = EINVAL;
        return 0;
    }
    Image_Owner image;
    if (const Fault fault = Read_And_Decode(path, decode, image)) {
        const int level = fault.error == ENOMEM ? ERROR_LEVEL_MEMORY : ERROR_LEVEL_WARNING;
        if (*fault.text) Error_Fct(hwnd, level, "%s(%s): %s", reader, path, fault.text);
        image.reset();
        errno = fault.error;
        return 0;
    }
    *result = image.release();
    return 1;
}

}  // namespace

int IGB_Read_Image(const char* path, IGB_Image** image) {
    return Read_Image("IGB_Read_Image", path, Decode_SGI, image);
}

int TGA_Read_Image(const char* path, IGB_Image** image) {
    return Read_Image("TGA_Read_Image", path, Decode_Targa, image);
}

void IGB_Free(IGB_Image* image) { Image_Deleter{}(image); }
