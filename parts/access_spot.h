/// @file
/// What screen readers ask about: the child of an object, at the moment of a question.
#pragma once

#include <windows.h>

#include <string>

#include "parts/access_link.h"

namespace galdren {

/// A window's client area, a control or a part of one, as it is while a question is answered: no longer than
/// until a call that changes the window. For the thread of the window.
class Access_Spot {
  public:
    /// The client area, until something is found.
    Access_Spot(Access_Link& window_link, Part_Window& served) : link(window_link), window(served) {}

    /// @param serial  of the control whose object is asked; 0 for the object of the client area
    /// @param child   CHILDID_SELF, or the number of a control or a part from 1 on
    /// @return S_OK; CO_E_OBJNOTCONNECTED when the control has been removed; E_INVALIDARG without such a
    /// child
    HRESULT Find(unsigned serial, long child);

    /// Whether it is the client area, which has no owner.
    bool Is_Client() const { return place.control < 0; }
    const Part_Owner& Owner() const { return owner; }
    const Part_Place& Place() const { return place; }
    Access_Link& Link() const { return link; }

    std::wstring Name() const;
    /// What of a field's text is selected.
    std::wstring Description() const;
    long Role() const;
    /// STATE_SYSTEM_ bits.
    long State() const;
    /// On the screen; empty for what is out of view.
    RECT Location() const;
    /// @return an error for what has no value, and when it is not to be shown
    HRESULT Value(Access_Answer& answer) const;
    /// What a press does now, in a word; null when it does nothing.
    const wchar_t* Action() const;
    /// Key that goes with Alt; 0 without one.
    wchar_t Mnemonic() const;
    /// Number of parts of a control or of controls of the client area.
    int Children() const;
    /// The object of the client area or of a control that has parts; nothing for others.
    Access_Answer Object() const;
    /// The object of the client area, whatever this is.
    Access_Answer Client_Object() const;

    /// The child that has the focus or is chosen, that lies at a point on the screen or in a direction, as a
    /// client names it.
    /// @return S_FALSE when there is none
    /// @{
    HRESULT Focus(Access_Answer& answer) const;
    HRESULT Selection(Access_Answer& answer) const;
    HRESULT Hit(POINT point, Access_Answer& answer) const;
    HRESULT Navigate(long direction, Access_Answer& answer) const;
    /// @}

    /// Changes the window, after which this object means nothing any more.
    /// @{
    HRESULT Take_Focus() const;
    HRESULT Take_Selection() const;
    HRESULT Press() const;
    HRESULT Set_Value(const std::wstring& value) const;
    /// @}

  private:
    Part Described() const { return owner.parts->Describe(*owner.control, place.part); }
    int Parts() const { return owner.parts->Count(*owner.control); }
    bool Can_Have_Focus(const Part& part) const;
    Access_Answer Control(int number) const;
    HRESULT Go_To_End(bool last, Access_Answer& answer) const;
    HRESULT Go_To_Sibling(int step, Access_Answer& answer) const;

    Access_Link& link;
    Part_Window& window;
    Part_Place place{};  // no control for the client area
    Part_Owner owner{};
};

}  // namespace galdren
