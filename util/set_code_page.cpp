// Choosing the code page of texts: what is wrong is reported, and the name of the program is written anew.
#include "util/code_page.h"
#include "util/error.h"
#include "util/page_in_use.h"
#include "util/program.h"
#include "util/program_name.h"

void Set_Text_Code_Page(unsigned number) {
    const galdren::Page_Choice choice = galdren::Use_Page(number);
    if (choice == galdren::Page_Choice::Unknown) {
        Error_Fct(hwnd, ERROR_LEVEL_WARNING, "Set_Text_Code_Page(%u): there is no such code page", number);
    } else if (choice == galdren::Page_Choice::No_Memory) {
        Error_Fct(hwnd, ERROR_LEVEL_MEMORY, "Set_Text_Code_Page(%u): no memory", number);
    }
    galdren::Name_Program();
}
