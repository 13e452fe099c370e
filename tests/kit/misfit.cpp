// Compiled with another packing of structures than the library: the check at start-up has to notice.
// As C++17: only the host needs more.
#include <Galdren_Tools.h>

int main() { return Check_Tools_Layout() ? 1 : 0; }
