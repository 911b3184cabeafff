// Names that a screen reader says for controls whose window text is their content.
//
// Where the system does not offer this, nothing happens.
//
// Belongs to one thread, whose COM the host may or may not have started.
#pragma once

#include <windows.h>

#include <memory>
#include <string>

struct IAccPropServices;

namespace rl {

class AccessibleNames {
public:
    AccessibleNames() noexcept;
    AccessibleNames(const AccessibleNames&) = delete;
    AccessibleNames& operator=(const AccessibleNames&) = delete;
    ~AccessibleNames() = default;

    void Set(HWND control, const std::wstring& name) const noexcept;
    /// Before the control's window goes: the system would keep the name.
    void Clear(HWND control) const noexcept;

private:
    struct Release {
        void operator()(IAccPropServices* services) const noexcept;
    };
    std::unique_ptr<IAccPropServices, Release> services_;
};

}  // namespace rl
