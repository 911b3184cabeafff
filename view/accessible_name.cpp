#include "view/accessible_name.h"

// The COM headers need to come before the accessibility interfaces.
#include <objbase.h>

#include <oleacc.h>

namespace rl {

void AccessibleNames::Release::operator()(IAccPropServices* services) const noexcept {
    services->Release();
}

AccessibleNames::AccessibleNames() noexcept {
    void* services = nullptr;
    if (SUCCEEDED(CoCreateInstance(CLSID_AccPropServices, nullptr, CLSCTX_INPROC_SERVER,
                                   IID_IAccPropServices, &services))) {
        services_.reset(static_cast<IAccPropServices*>(services));
    }
}

void AccessibleNames::Set(HWND control, const std::wstring& name) const noexcept {
    if (services_ != nullptr && control != nullptr) {
        services_->SetHwndPropStr(control, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF,
                                  PROPID_ACC_NAME, name.c_str());
    }
}

void AccessibleNames::Clear(HWND control) const noexcept {
    if (services_ != nullptr && control != nullptr) {
        MSAAPROPID property = PROPID_ACC_NAME;
        services_->ClearHwndProps(control, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF,
                                  &property, 1);
    }
}

}  // namespace rl
