// Screen readers: what it takes to ask a window of 20,000 buttons.

#include <windows.h>

#include <oleacc.h>

#include <memory>
#include <vector>

#include "Galdren_Host.h"
#include "scene.h"

namespace {

using bench::Require;
using bench::Result;
using bench::Stage;

constexpr int Columns = 200;
constexpr int Rows = 100;
constexpr int Count = Columns * Rows;

struct Release {
    void operator()(IUnknown* object) const { object->Release(); }
};
using Object = std::unique_ptr<IAccessible, Release>;

VARIANT Child(long number) {
    VARIANT child{};
    child.vt = VT_I4;
    child.lVal = number;
    return child;
}

/// A window of many buttons that is served.
class Served {
  public:
    Served()
        : buttons(std::size_t{Count}),
          stage([this](auto&&... message) { return host && host->Message(message...); }) {
        host = std::make_unique<Host>(stage.Get());
        for (int i = 0; i < Count; ++i) {
            Buttons& button = buttons[static_cast<std::size_t>(i)];
            const int left = Stage::Width * (i % Columns) / Columns;
            const int top = Stage::Height * (i / Columns) / Rows;
            bench::Place(button, {left, top, left + 3, top + 5});
            button.Name = "Press";
            host->Add(button);
        }
        host->Init_All();
        Serve_Screen_Readers(*host);
        stage.Raise();
    }

    /// Asks for the object of the window, as a screen reader does for each window that it comes to.
    Object Ask() const {
        void* object = nullptr;
        AccessibleObjectFromWindow(stage.Get(), static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                                   &object);
        Object found(static_cast<IAccessible*>(object));
        long children = 0;
        Require(found && found->get_accChildCount(&children) == S_OK && children == Count,
                "the window has no object of its own");
        return found;
    }
    void Tell_Changed() { host->Tell_Changed(buttons[0]); }

  private:
    std::vector<Buttons> buttons;
    std::unique_ptr<Host> host;
    Stage stage;  // the last, so that its messages end before the host does
};

Result Object_Of_Window() {
    const Served served;
    return {bench::Time({[&] { served.Ask(); }}), {}};
}

/// The last button has its name asked, and its state.
Result Name_And_State() {
    const Served served;
    const Object object = served.Ask();
    const auto ask = [&] {
        BSTR name = nullptr;
        VARIANT state{};
        const bool told = object->get_accName(Child(Count), &name) == S_OK &&
                          object->get_accState(Child(Count), &state) == S_OK && name[0] == L'P';
        SysFreeString(name);
        Require(told, "the button has another name");
    };
    constexpr int Often = 100;
    return {bench::Time({[&] {
                             for (int i = 0; i < Often; ++i)
                                 ask();
                         },
                         Often}),
            {}};
}

/// A button in the middle is looked for by a point on it.
Result Hit() {
    const Served served;
    const Object object = served.Ask();
    constexpr long Middle = Count / 2 + Columns / 2;
    long left = 0, top = 0, width = 0, height = 0;
    object->accLocation(&left, &top, &width, &height, Child(Middle));
    constexpr int Often = 100;
    return {bench::Time({[&] {
                             VARIANT found{};
                             for (int i = 0; i < Often; ++i)
                                 object->accHitTest(left + 1, top + 1, &found);
                             Require(found.vt == VT_I4 && found.lVal == Middle, "another part is found");
                         },
                         Often}),
            {}};
}

/// A change of which nobody wants to hear.
Result Told_To_Nobody() {
    Served served;
    constexpr int Often = 100;
    return {bench::Time({[&] {
                             for (int i = 0; i < Often; ++i)
                                 served.Tell_Changed();
                         },
                         Often}),
            {}};
}

using bench::At_Most;
using bench::No_Target;
using bench::Register;

const Register rows[] = {
    Register({"screen reader: the object of a window of 20,000", "us", At_Most(1000), Object_Of_Window}),
    Register({"screen reader: name and state of one of them", "us", No_Target(), Name_And_State}),
    Register({"screen reader: one of them found at a point", "us", No_Target(), Hit}),
    Register({"screen reader: a change told to nobody", "us", No_Target(), Told_To_Nobody}),
};

}  // namespace
