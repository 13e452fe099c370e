/// @file
/// An inspector for the window of a host. Who does not call this does not link it.
#pragma once

class Host;

/// Switches the inspector of a host on or off. While it is on, the part under the pointer has an outline, and
/// a small window beside it tells what the part is, and what the last event of pointer, wheel or keyboard has
/// cost: paints, copies, bytes. It follows what the application does with its controls, and ends with the
/// window or the host. What an event has made invalid is painted at once, so that it can be counted.
///
/// Nothing happens when it is on, or off, already, or when the window is gone. For the thread that runs the
/// window.
void Inspect(Host& host, bool on);

/// Whether the inspector of a host is on.
bool Is_Inspected(const Host& host);
