#include "check_decoder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    return fuzz::Check_Decoder(galdren::Decode_Targa, data, size);
}
