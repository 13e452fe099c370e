/// @file
/// What this process holds: GDI objects and heap memory.
#pragma once

namespace bench {

/// Number of GDI objects that are alive.
int Count_Gdi_Objects();

/// Bytes allocated on all heaps of the process.
double Heap_Bytes();

}  // namespace bench
