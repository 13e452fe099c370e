/// @file
/// What a host tells a handler of a control.
#pragma once

/// What has happened to a control.
struct Host_Event {
    /// Kinds of event.
    enum Kind {
        Press,  ///< a mouse button went down on it, or a key or a screen reader has pressed it
        Drag,   ///< the pointer moved with a button held that went down on it
        Wheel,  ///< the wheel has scrolled it
        Key,    ///< a key has changed it, or was typed into it
        Set     ///< a screen reader or a test has given it a value
    };

    Kind kind = Press;  ///< what it was
    int answer = 0;  ///< what `Select` answered; for a key into a text field 1 when `Update` reported a line
                     ///< or a change; else 1
    int button = 0;  ///< mouse button of a press or drag: 1 left, 2 middle, 3 right; else 0
    bool second = false;  ///< a press that is the second of a double click; the window needs CS_DBLCLKS
    int key = 0;          ///< code of the key, as `Parse_Keyboard` gives it; else 0
    int steps = 0;  ///< steps of the wheel, positive when it was turned away from the user or to the right
};
