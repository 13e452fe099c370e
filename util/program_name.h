/// @file
/// Name and place of the program. Not public.
#pragma once

namespace galdren {

/// Writes what `Inst_Path` and `Prog_Name` point at after load, in the code page in use.
void Name_Program();

}  // namespace galdren
