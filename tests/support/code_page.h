/// @file
/// Another code page for a test, and names in many scripts.
#pragma once

#include "Galdren_Util.h"

namespace galdren_test {

/// Texts are in another code page while it lives.
class Other_Page {
  public:
    explicit Other_Page(unsigned page) { Set_Text_Code_Page(page); }
    ~Other_Page() { Set_Text_Code_Page(0); }
    Other_Page(const Other_Page&) = delete;
    Other_Page& operator=(const Other_Page&) = delete;
};

/// In UTF-8: twelve scripts, the last two beyond the first plane and mixed.
constexpr const char* Scripts[] = {
    "Espa\303\261a",
    "\xCE\x91\xCE\xB8\xCE\xAE\xCE\xBD\xCE\xB1",
    "\xD0\x9C\xD0\xBE\xD1\x81\xD0\xBA\xD0\xB2\xD0\xB0",
    "\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D",
    "\xD8\xB3\xD9\x84\xD8\xA7\xD9\x85",
    "\xE0\xB8\x81\xE0\xB8\xB4\xE0\xB8\x99",
    "\xE0\xA4\xB9\xE0\xA4\xBF\xE0\xA4\xA8",
    "\xE4\xB8\xAD\xE6\x96\x87",
    "\xE6\x97\xA5\xE6\x9C\xAC\xE3\x82\xA2",
    "\xED\x95\x9C\xEA\xB8\x80",
    "\xF0\x9F\x98\x80\xF0\xA0\x80\x8B",
    "e\xCC\x81 \xD7\x90 \xE2\x82\xAC",
};

}  // namespace galdren_test
