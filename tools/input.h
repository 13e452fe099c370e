/// @file
/// Pointer position, mouse buttons and modifier keys. Plain state of the process, for the thread that runs
/// the windows; nothing is locked.
#pragma once

#include "api.h"

/// Pointer position in screen coordinates (y down), written by the window procedure before `Select`.
extern GALDREN_TOOLS_API int ZCursor_X;
/// See `ZCursor_X`.
extern GALDREN_TOOLS_API int ZCursor_Y;

/// Mask of the buttons held: 1 left, 2 right, 4 middle. Kept by the three functions below.
extern GALDREN_TOOLS_API unsigned int Button_State;

/// Notes that a button went down: 1 left, 2 middle, 3 right. Any other number is ignored.
GALDREN_TOOLS_API void BUTTON_PRESS(int button);
/// Notes that a button went up; numbers as for `BUTTON_PRESS`.
GALDREN_TOOLS_API void BUTTON_RELEASE(int button);
/// Sets `Button_State` as a whole.
GALDREN_TOOLS_API void STATE_MASK(int mask);

/// 1 while the mouse button is down now, else 0.
/// @param vk  1 left, 2 right, 4 middle; any other number gives 0
GALDREN_TOOLS_API int getbutton(int vk);

/// Non-zero while the modifier key was down when the message being handled was sent.
/// @param key  16, 64, 160, 161 shift; 17, 32, 162, 163 control; 18, 164, 165 alt; any other number gives 0
GALDREN_TOOLS_API int getkey(int key);
