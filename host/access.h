/// @file
/// Screen readers for a host. Who does not call this does not link it.
#pragma once

class Host;

/// Lets screen readers read and work the controls of a host through the system's accessibility interface, and
/// tells them what changes, as long as the host lives. To be called once, before or after controls are added.
void Serve_Screen_Readers(Host& host);
