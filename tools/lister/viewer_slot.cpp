#include "tools/lister/viewer_slot.h"

namespace rl::tools {

namespace {

constexpr int kPlaceholderId = 1003;

}  // namespace

bool ViewerSlot::Open(HWND parent, const std::wstring& file) {
    if (!Close()) {
        return false;
    }
    window_ = module_.Open(parent, file, 0);
    FillParent();
    return window_ != nullptr;
}

bool ViewerSlot::Close() {
    if (IsOpen()) {
        module_.Close(window_);
        if (IsWindow(window_)) {
            return false;
        }
    }
    window_ = nullptr;
    return true;
}

void ViewerSlot::FillParent() const {
    if (!IsOpen()) {
        return;
    }
    RECT area{};
    GetClientRect(GetParent(window_), &area);
    MoveWindow(window_, 0, 0, area.right, area.bottom, TRUE);
}

bool ViewerSlot::TakeVanished() {
    if (window_ == nullptr || IsWindow(window_)) {
        return false;
    }
    window_ = nullptr;
    return true;
}

bool ViewerSlot::IsLoaded() const {
    if (!IsOpen()) {
        return false;
    }
    const HWND placeholder = GetDlgItem(window_, kPlaceholderId);
    return placeholder == nullptr || !IsWindowVisible(placeholder);
}

bool ViewerSlot::Search(const std::wstring& text, int flags) const {
    return IsOpen() && module_.Search(window_, text, flags) == kSearchHit;
}

}  // namespace rl::tools
