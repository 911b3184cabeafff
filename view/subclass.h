// Adds behaviour to a control that Windows made, and takes it away again.
//
// The handler may destroy its control, and even the object that owns this subclass: what a running
// call needs lives until the call is over. No exception gets past here into the system.
//
// User-interface thread only.
#pragma once

#include <windows.h>
// Needs the types above.
#include <commctrl.h>

#include <functional>
#include <memory>
#include <utility>

#include "view/message.h"

namespace rl {

/// Asks a handler for each message of a control before the control sees it.
class Subclass {
public:
    using Handler = std::function<Answer(HWND window, const Message& in)>;

    Subclass() noexcept = default;
    Subclass(HWND window, Handler handler) { Attach(window, std::move(handler)); }
    Subclass(const Subclass&) = delete;
    Subclass& operator=(const Subclass&) = delete;
    Subclass(Subclass&&) noexcept = default;
    Subclass& operator=(Subclass&& other) noexcept {
        Remove();
        state_ = std::move(other.state_);
        return *this;
    }
    ~Subclass() { Remove(); }

    /// Replaces an earlier attachment. False when the window does not take it.
    bool Attach(HWND window, Handler handler) {
        Remove();
        auto state = std::make_shared<State>(window, std::move(handler));
        const auto key = reinterpret_cast<UINT_PTR>(state.get());
        if (!SetWindowSubclass(window, &Procedure, key, key)) {
            return false;
        }
        state_ = std::move(state);
        return true;
    }

    /// Harmless when nothing is attached or the window is gone.
    void Remove() noexcept {
        if (state_ && state_->window != nullptr) {
            RemoveWindowSubclass(state_->window, &Procedure,
                                 reinterpret_cast<UINT_PTR>(state_.get()));
            state_->window = nullptr;
        }
        state_.reset();
    }

private:
    struct State : std::enable_shared_from_this<State> {
        State(HWND of, Handler ask) : window(of), handler(std::move(ask)) {}
        HWND window;  // null once removed
        Handler handler;
    };

    static LRESULT CALLBACK Procedure(HWND window, UINT id, WPARAM wparam, LPARAM lparam,
                                      UINT_PTR key, DWORD_PTR data) {
        const std::shared_ptr<State> state = reinterpret_cast<State*>(data)->shared_from_this();
        if (id == WM_NCDESTROY) {
            state->window = nullptr;
            RemoveWindowSubclass(window, &Procedure, key);
            return DefSubclassProc(window, id, wparam, lparam);
        }
        Answer answer;
        try {
            answer = state->handler(window, {id, wparam, lparam});
        } catch (...) {  // out of memory: the control goes on as if it had not been asked
            MessageBeep(MB_ICONWARNING);
        }
        return answer ? *answer : DefSubclassProc(window, id, wparam, lparam);
    }

    std::shared_ptr<State> state_;
};

}  // namespace rl
