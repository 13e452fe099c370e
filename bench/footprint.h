/// @file
/// What this process holds: GDI objects and heap memory.
#pragma once

namespace bench {

/// Number of GDI objects that are alive.
int Count_Gdi_Objects();

/// Bytes allocated on all heaps of the process.
double Heap_Bytes();

struct Footprint {
    double objects;
    double bytes;
};

inline Footprint operator-(const Footprint& a, const Footprint& b) {
    return {a.objects - b.objects, a.bytes - b.bytes};
}

/// What the process holds now.
inline Footprint Present_Footprint() { return {static_cast<double>(Count_Gdi_Objects()), Heap_Bytes()}; }

}  // namespace bench
