/// @file
/// The handlers that an application gives a host, without the class of the control.
#pragma once

#include <concepts>
#include <functional>
#include <type_traits>
#include <utility>

#include "../tools/tools.h"
#include "host_event.h"

namespace galdren {

/// What is called for a control.
class Handlers {
  public:
    enum class Kind {
        Plain,  ///< takes the control alone, and has stored what there is to store
        Told,   ///< takes the event, after the host has stored the value
        Asked   ///< takes the event first, and answers whether that was all
    };
    explicit Handlers(Kind which) : kind(which) {}
    virtual ~Handlers() = default;
    Handlers(const Handlers&) = delete;
    Handlers& operator=(const Handlers&) = delete;

    /// @return whether the host has nothing left to do
    virtual bool Call(Tools& control, const Host_Event& event) const = 0;

    const Kind kind;
};

template <class Control>
class Plain_Handlers final : public Handlers {
  public:
    using Callback = std::function<void(Control&)>;
    Plain_Handlers(Callback press, Callback change)
        : Handlers(Kind::Plain), on_press(std::move(press)), on_change(std::move(change)) {}
    bool Call(Tools& control, const Host_Event& event) const override {
        const Callback& callback = event.kind == Host_Event::Press ? on_press : on_change;
        if (callback) callback(static_cast<Control&>(control));
        return true;
    }

  private:
    Callback on_press;
    Callback on_change;
};

/// @tparam Result  bool for one that is asked, void for one that is told
template <class Control, class Result>
class Event_Handler final : public Handlers {
  public:
    using Callback = std::function<Result(Control&, const Host_Event&)>;
    explicit Event_Handler(Callback called)
        : Handlers(std::same_as<Result, bool> ? Kind::Asked : Kind::Told), callback(std::move(called)) {}
    bool Call(Tools& control, const Host_Event& event) const override {
        if constexpr (std::same_as<Result, bool>) {
            return callback(static_cast<Control&>(control), event);
        } else {
            callback(static_cast<Control&>(control), event);
            return false;
        }
    }

  private:
    Callback callback;
};

/// A handler that takes an event and could not be called without one.
template <class Handler, class Control>
concept Takes_Event =
    std::invocable<Handler&, Control&, const Host_Event&> && !std::invocable<Handler&, Control&>;

/// bool when a handler answers a bool; any other answer is dropped.
template <class Handler, class Control>
using Handler_Result =
    std::conditional_t<std::same_as<std::invoke_result_t<Handler&, Control&, const Host_Event&>, bool>, bool,
                       void>;

}  // namespace galdren
