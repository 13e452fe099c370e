/// @file
/// The choice of the code page of texts, without reports. Not public.
#pragma once

namespace galdren {

enum class Page_Choice { Used, Unknown, No_Memory };

/// Has texts be read with a page from now on; see `Set_Text_Code_Page`. Where that cannot be, the page before
/// stays.
Page_Choice Use_Page(unsigned number);

}  // namespace galdren
