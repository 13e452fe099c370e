/// @file
/// A screen reader's view of a window.
#pragma once

#include <windows.h>

#include <oleacc.h>

#include <memory>
#include <string>

namespace galdren_test {

VARIANT Number(long number);

/// What a screen reader points at: an object, or a child of one that has no object of its own.
class Spoken {
  public:
    Spoken() = default;
    /// The object of a window with an id, by default that of its client area.
    explicit Spoken(HWND window, LONG id = OBJID_CLIENT);
    Spoken(std::shared_ptr<IAccessible> object, long child) : object_(std::move(object)), child_(child) {}

    explicit operator bool() const { return object_ != nullptr; }
    IAccessible* operator->() const { return object_.get(); }
    VARIANT Id() const { return Number(child_); }

    long Count() const;
    /// A child by its number, from 1 on.
    Spoken Child(long number) const;
    /// The child that an answer of this object names; nothing for an empty answer.
    Spoken Named(VARIANT answer) const;
    /// The innermost thing at a point on the screen; nothing when the point is outside of this.
    Spoken At(POINT point) const;

    std::string Name() const;
    std::string Value() const;
    std::string Action() const;
    std::string Shortcut() const;
    std::string Description() const;
    long Role() const;
    long State() const;
    /// On the screen.
    RECT Place() const;
    /// All of it in a line, such as "Keep: check box, checked, focusable (Uncheck)".
    std::string Line() const;

    POINT Middle() const;
    HRESULT Set_Value(const wchar_t* value) const;
    HRESULT Act() const { return object_->accDoDefaultAction(Id()); }

  private:
    std::shared_ptr<IAccessible> object_;
    long child_ = CHILDID_SELF;
};

/// Lines of an object and all below it, those of parts indented.
std::string Read_Aloud(const Spoken& root, const std::string& indent = {});

/// While it lives, listens to what windows of this process tell screen readers of their parts.
class Listener {
  public:
    Listener();
    ~Listener();
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    /// What was heard since the last call, such as "focus Apply, value Depth".
    std::string Take();

  private:
    HWINEVENTHOOK hook_;
};

}  // namespace galdren_test
