/// @file
/// The template of a dialog that has no native controls, in the form that the dialog manager reads.
#pragma once

#include <windows.h>

namespace galdren {

/// Owns the template for the time of one dialog.
class Dialog_Template {
  public:
    static constexpr int Longest_Title = 49;  ///< UTF-16 characters

    /// @param title   in the code page of texts; cut when it is too long; null means none
    /// @param width   of the client area in pixels, rounded to dialog units; 0 means 300
    /// @param height  of the client area in pixels, rounded to dialog units; 0 means 150
    /// @param scale   in percent, of both; 0 means 100
    Dialog_Template(const char* title, short width, short height, unsigned short scale);
    ~Dialog_Template();
    Dialog_Template(const Dialog_Template&) = delete;
    Dialog_Template& operator=(const Dialog_Template&) = delete;

    /// Null when the memory could not be had.
    const DLGTEMPLATE* Get() const { return static_cast<const DLGTEMPLATE*>(block); }

  private:
    HGLOBAL block;
};

}  // namespace galdren
