/// @file
/// The object that a screen reader holds of a window, or of a control that has parts.
#pragma once

#include <windows.h>

#include <oleacc.h>

#include <atomic>
#include <functional>
#include <memory>

#include "parts/access_spot.h"

namespace galdren {

/// Answers for a window's client area, whose children are the controls in their order, or for a control,
/// whose children are its parts. A control that has parts is a child with an object of its own.
///
/// May be called on every thread; questions are answered on that of the window. After the control or the
/// window is gone they are answered with CO_E_OBJNOTCONNECTED.
class Access_Object final : public IAccessible {
  public:
    using Question = std::function<HRESULT(const Access_Spot& spot, Access_Answer& answer)>;

    /// With one use, that of whoever makes it.
    /// @param control  serial number of a control, or 0 for the client area
    Access_Object(std::shared_ptr<Access_Link> window_link, unsigned control);
    ~Access_Object();
    Access_Object(const Access_Object&) = delete;
    Access_Object& operator=(const Access_Object&) = delete;

    /// Number of objects of all windows.
    static long Alive();

    /// What COM asks of every object.
    /// @{
    STDMETHODIMP QueryInterface(REFIID wanted, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override;
    STDMETHODIMP_(ULONG) Release() override;
    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT number, LCID language, ITypeInfo** info) override;
    STDMETHODIMP GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID language, DISPID* found) override;
    STDMETHODIMP Invoke(DISPID member, REFIID id, LCID language, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* wrong) override;
    /// @}

    /// What screen readers ask. A child is CHILDID_SELF for the object itself, or a number from 1 on.
    /// @{
    STDMETHODIMP get_accParent(IDispatch** parent) override;
    STDMETHODIMP get_accChildCount(long* count) override;
    STDMETHODIMP get_accChild(VARIANT child, IDispatch** object) override;
    STDMETHODIMP get_accName(VARIANT child, BSTR* name) override;
    STDMETHODIMP get_accValue(VARIANT child, BSTR* value) override;
    STDMETHODIMP get_accDescription(VARIANT child, BSTR* description) override;
    STDMETHODIMP get_accRole(VARIANT child, VARIANT* role) override;
    STDMETHODIMP get_accState(VARIANT child, VARIANT* state) override;
    STDMETHODIMP get_accHelp(VARIANT child, BSTR* help) override;
    STDMETHODIMP get_accHelpTopic(BSTR* file, VARIANT child, long* topic) override;
    STDMETHODIMP get_accKeyboardShortcut(VARIANT child, BSTR* shortcut) override;
    STDMETHODIMP get_accFocus(VARIANT* child) override;
    STDMETHODIMP get_accSelection(VARIANT* children) override;
    STDMETHODIMP get_accDefaultAction(VARIANT child, BSTR* action) override;
    STDMETHODIMP accSelect(long flags, VARIANT child) override;
    STDMETHODIMP accLocation(long* left, long* top, long* width, long* height, VARIANT child) override;
    STDMETHODIMP accNavigate(long direction, VARIANT start, VARIANT* end) override;
    STDMETHODIMP accHitTest(long x, long y, VARIANT* child) override;
    /// Done after the answer, for a press may open a dialog.
    STDMETHODIMP accDoDefaultAction(VARIANT child) override;
    STDMETHODIMP put_accName(VARIANT child, BSTR name) override;
    STDMETHODIMP put_accValue(VARIANT child, BSTR value) override;
    /// @}

  private:
    friend class Access_Link;  // counts uses

    HRESULT Ask(const VARIANT& child, const Question& question, Access_Answer& answer) const;
    template <class Action>
    HRESULT Ask(const VARIANT& child, Action action) const;
    template <class Out>
    HRESULT Ask(const VARIANT& child, Out* out, const Question& question) const;

    const std::shared_ptr<Access_Link> link;
    const unsigned serial;
    std::atomic<ULONG> uses = 1;
};

}  // namespace galdren
