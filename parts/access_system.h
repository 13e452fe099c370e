/// @file
/// The system's functions for accessible objects. Their libraries are loaded with the first call, and stay.
#pragma once

#include <windows.h>

#include <oleacc.h>

#include <string>

namespace galdren {

/// What a window answers WM_GETOBJECT with to hand out an object; 0 when it cannot.
/// @param wparam  of the message
LRESULT Hand_Out(WPARAM wparam, IUnknown* object);

/// The system's own object of a window's frame.
HRESULT Frame_Object(HWND window, IDispatch** object);

/// Takes an object away from clients in other processes, and gives back what they held of it.
void Disconnect_Clients(IUnknown* object);

/// A text for a client, who frees it; null when there is no memory.
BSTR Make_Client_Text(const std::wstring& text);

}  // namespace galdren
