// The beginning and the end of a host, which know all that it is made of.
#include "host/host.h"
#include "host/parts_view.h"
#include "parts/typed_text.h"

Host::Host(HWND served)
    : window(served),
      life(std::make_shared<const int>(0)),
      parts(std::make_unique<Parts_View>(*this)),
      keys(std::make_unique<Part_Keys>(*parts, [this](const RECT& area) { Uncover(area); })),
      typed(std::make_unique<galdren::Typed_Text>()) {
    Check_Tools_Layout();
    keys->Set_On_Focus([this](Part_Place place) { Follow_Focus(place); });
    keys->Set_Active(GetFocus() == window);
}

Host::~Host() {
    life.reset();
    std::exchange(services, {}).clear();  // they may cause messages, which go to none of them any more
    if (holds) End_Hold(window);
    if (caret_height) DestroyCaret();
    KillTimer(window, Timer());
}
