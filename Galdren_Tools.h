/// @file
/// Galdren_Tools: custom-drawn controls for Windows applications. Include this one header.
#pragma once

#include "tools/colors.h"
#include "tools/cursor.h"
#include "tools/dimensions.h"
#include "tools/font.h"
#include "tools/input.h"
#include "tools/keyboard.h"
#include "tools/library.h"
#include "tools/paint.h"
#include "tools/surface.h"
#include "tools/tools.h"
#include "widgets/box.h"
#include "widgets/button.h"
#include "widgets/checklist.h"
#include "widgets/label.h"
#include "widgets/list.h"
#include "widgets/selector.h"
#include "widgets/slider.h"
#include "widgets/text.h"
#include "widgets/valuator.h"
