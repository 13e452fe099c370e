/// @file
/// Galdren_Host: forwards the messages of a window to the controls in it. Include this one header.
#pragma once

#include "host/access.h"
#include "host/host.h"
#include "host/inspector.h"
#include "host/layout.h"
#include "host/main_window.h"
#include "host/pixels.h"
#include "parts/by_name.h"
