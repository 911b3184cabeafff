// The band above the value pane, under the mouse.
#include "view/viewer.h"

#include "host/store/settings.h"
#include "view/logic/splitter.h"

namespace rl {

bool Viewer::IsOverSplitter(POINT client) const {
    return layout_.splitter.Contains(client.x, client.y);
}

Answer Viewer::OnSetCursor(const Message& in) {
    POINT pointer{};
    if (reinterpret_cast<HWND>(in.wparam) != window_ || LOWORD(in.lparam) != HTCLIENT ||
        !GetCursorPos(&pointer) || !ScreenToClient(window_, &pointer) || !IsOverSplitter(pointer)) {
        return std::nullopt;
    }
    SetCursor(LoadCursorW(nullptr, IDC_SIZENS));
    return TRUE;
}

Answer Viewer::OnPress(POINT client) {
    if (!IsOverSplitter(client)) {
        return std::nullopt;
    }
    draggingSplitter_ = true;
    dragBottom_ = layout_.pane.Bottom();
    SetCapture(window_);
    return 0;
}

Answer Viewer::OnDrag(POINT client) {
    if (!draggingSplitter_) {
        return std::nullopt;
    }
    paneHeight_ = PaneHeightWhileDragging(dragBottom_, client.y);
    Relayout();
    return 0;
}

Answer Viewer::OnRelease() {
    if (!draggingSplitter_) {
        return std::nullopt;
    }
    draggingSplitter_ = false;
    ReleaseCapture();
    const PaneRelease release = ReleaseSplitter(paneHeight_, dpi_);
    paneHeight_ = release.paneHeight;
    if (release.switchOff) {
        SetValuePaneShown(false);
    }
    return 0;
}

void Viewer::SetValuePaneShown(bool shown) {
    settings_.valuePane = shown;
    Relayout();
    UpdateValuePane();
    settings::Set(settings::kValuePane, shown ? 1 : 0);
}

}  // namespace rl
