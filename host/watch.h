/// @file
/// Whether a host is still there after the application was called.
#pragma once

#include <memory>

#include "host.h"

/// @cond
// Remembers a host, and perhaps a control of it, across calls of the application.
class Host::Watch {
  public:
    explicit Watch(Host& watched) : host(watched), life(watched.life) {}
    Watch(Host& watched, const Entry& entry) : host(watched), life(watched.life), serial(entry.serial) {}

    bool Has_Host() const { return !life.expired(); }
    // The control; null when it has been removed, or the host is gone.
    Entry* Control() const { return Has_Host() ? host.entries.With_Serial(serial) : nullptr; }

  private:
    Host& host;
    std::weak_ptr<const int> life;
    unsigned serial = 0;
};
/// @endcond
