/// @file
/// What `Tools_Lib_Cleanup` calls, without knowing the units above.
#pragma once

namespace galdren {

/// Registers a function for `Tools_Lib_Cleanup`. Stands in static storage of the unit that has something to
/// release.
struct Cleanup {
    explicit Cleanup(void (*action)());
    Cleanup(const Cleanup&) = delete;
    Cleanup& operator=(const Cleanup&) = delete;

    void (*release)();
    const Cleanup* next;
};

}  // namespace galdren
