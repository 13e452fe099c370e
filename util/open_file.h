/// @file
/// Files by names in the code page of texts. Not public.
#pragma once

#include <cerrno>
#include <cstdio>
#include <memory>
#include <new>

#include "util/wide.h"

namespace galdren {

struct File_Closer {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, File_Closer>;

/// Opens a file to read its bytes; null, with `errno` set, when it cannot be opened.
inline File Open_To_Read(const char* path) try {
    return File(_wfopen(To_Wide(path).c_str(), L"rb"));
} catch (const std::bad_alloc&) {
    errno = ENOMEM;
    return nullptr;
}

}  // namespace galdren
