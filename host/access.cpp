#include "host/access.h"

#include <memory>

#include "host/host.h"
#include "parts/access.h"

namespace {

class Screen_Readers final : public Host_Service {
  public:
    explicit Screen_Readers(Part_Window& window) : access(window) {}

    bool Message(UINT message, WPARAM wparam, LPARAM lparam, LRESULT& result) override {
        return access.Message(message, wparam, lparam, result);
    }
    void Changed(Part_Change change, Part_Place place) override { access.Tell(change, place); }

  private:
    Access access;
};

}  // namespace

void Serve_Screen_Readers(Host& host) { host.Serve(std::make_unique<Screen_Readers>(host.Parts())); }
