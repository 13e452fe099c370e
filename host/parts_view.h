/// @file
/// A host as keys, screen readers and tests see it.
#pragma once

#include "host.h"

/// @cond
// The controls of a host as parts.
class Host::Parts_View final : public Part_Window {
  public:
    explicit Parts_View(Host& viewed) : host(viewed) {}

    HWND Window() const override;
    int Count() const override;
    Part_Owner Owner(int number) const override;
    int Number_Of(unsigned serial) const override;
    int Control_At(POINT place) const override;
    Part_Place Focus() const override;
    bool Set_Focus(Part_Place place) override;
    bool Press(Part_Place place) override;
    bool Step(Part_Place place, Part_Move move) override;
    bool Set_Value(Part_Place place, const char* text) override;

  private:
    Host& host;
};
/// @endcond
