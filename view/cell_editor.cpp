#include "view/cell_editor.h"

// Needs the types of windows.h.
#include <commctrl.h>

#include <exception>
#include <utility>

#include "view/control.h"
#include "view/logic/edit_place.h"
#include "view/logic/edit_rules.h"

namespace rl {
namespace {

/// Posted by an editor to itself: the focus is to come back to it.
constexpr UINT kTakeFocus = WM_APP + 110;

/// Where a list view begins the text of a cell, pixels whatever the dpi.
constexpr int kCellTextLeft = 6;

/// What Ctrl and the backspace key type. No text, though edit controls take it for one.
constexpr WPARAM kDelete = 0x7F;

/// Units below the blank are no text but keys; these are for the editor itself.
bool IsEditingUnit(WPARAM unit) {
    constexpr WPARAM kCtrlA = 1;
    constexpr WPARAM kCtrlC = 3;
    constexpr WPARAM kCtrlV = 22;
    constexpr WPARAM kCtrlX = 24;
    constexpr WPARAM kCtrlZ = 26;
    return (unit >= L' ' && unit != kDelete) || unit == VK_BACK || unit == kCtrlA ||
           unit == kCtrlC || unit == kCtrlV || unit == kCtrlX || unit == kCtrlZ;
}

/// Takes away the selection or, without one, the word left of the caret and the blanks behind it.
void DeleteWordLeft(HWND edit) try {
    DWORD first = 0;
    DWORD last = 0;
    SendMessageW(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&first),
                 reinterpret_cast<LPARAM>(&last));
    if (first == last) {
        const std::wstring text = WindowText(edit);
        const size_t start = WordStartBefore(text, last);
        SendMessageW(edit, EM_SETSEL, start, last);
    }
    SendMessageW(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L""));
} catch (
    const std::exception&) {  // no memory for the text: the key must still not reach the control
    MessageBeep(MB_ICONWARNING);
}

/// The text begins where that of the cell did.
void SetLeftMargin(HWND edit) {
    RECT line{};
    SendMessageW(edit, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&line));
    const int margin = LOWORD(SendMessageW(edit, EM_GETMARGINS, 0, 0));
    const int wanted = PlanEditMargin(kCellTextLeft, margin, static_cast<int>(line.left));
    SendMessageW(edit, EM_SETMARGINS, EC_LEFTMARGIN, MAKELPARAM(wanted, 0));
}

}  // namespace

// Half an editor is none.
bool CellEditor::Open(HWND parent, const RECT& place, const std::wstring& text, const Look& look,
                      ICellEditorListener& listener) {
    Close();
    try {
        if (OpenWindow(parent, place, text, look, listener)) {
            return true;
        }
    } catch (const std::exception&) {
        Close();
        throw;
    }
    Close();
    return false;
}

bool CellEditor::OpenWindow(HWND parent, const RECT& place, const std::wstring& text,
                            const Look& look, ICellEditorListener& listener) {
    listener_ = &listener;
    window_ = CreateControl(parent, L"Edit", L"", kEditLineStyle, kCellEditorId);
    if (window_ == nullptr) {
        return false;
    }
    line_ = {
        .below = look.gridLine, .back = look.back, .frame = look.frame, .focusFrame = look.frame};
    SetFont(look.font);
    SendMessageW(window_, EM_SETLIMITTEXT, 0, 0);  // as much as it can hold
    SetWindowTextW(window_, text.c_str());
    opened_ = WindowText(window_);
    if (!subclass_.Attach(
            window_, [this](HWND window, const Message& in) { return OnMessage(window, in); })) {
        return false;
    }
    MoveTo(place);
    SetLeftMargin(window_);
    SendMessageW(window_, EM_SETSEL, 0, -1);
    ShowWindow(window_, SW_SHOW);
    SetFocus(window_);
    return IsOpen();
}

void CellEditor::Close() {
    subclass_.Remove();
    if (const HWND window = std::exchange(window_, nullptr)) {
        DestroyWindow(window);
    }
    opened_.clear();
    reason_.clear();
}

std::wstring CellEditor::Text() const {
    return WindowText(window_);
}

void CellEditor::MoveTo(const RECT& place) {
    SetWindowPos(window_, nullptr, place.left, place.top, place.right - place.left,
                 place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

void CellEditor::SetFont(HFONT font) {
    if (window_ != nullptr) {
        line_.lineHeight = LineHeight(window_, font);
        SetControlFont(window_, font);
        RefitEditLine(window_, line_);
    }
}

void CellEditor::ShowReason(const std::wstring& reason) {
    if (reason.empty()) {
        return;
    }
    EDITBALLOONTIP tip{};
    tip.cbStruct = sizeof tip;
    tip.pszTitle = L"";
    tip.pszText = reason.c_str();
    SendMessageW(window_, EM_SHOWBALLOONTIP, 0, reinterpret_cast<LPARAM>(&tip));
}

void CellEditor::ReturnWithReason(std::wstring reason) {
    reason_ = std::move(reason);
    PostMessageW(window_, kTakeFocus, 0, 0);
}

Answer CellEditor::OnMessage(HWND window, const Message& in) {
    const std::shared_ptr<void> alive = listener_->KeepEditorAlive();
    switch (in.id) {
        case WM_GETDLGCODE:
            return DefSubclassProc(window, in.id, in.wparam, in.lparam) | DLGC_WANTALLKEYS;
        case WM_KEYDOWN: return OnKeyDown(in.wparam);
        case WM_CHAR:
            if (in.wparam == kDelete) {
                DeleteWordLeft(window);
            }
            return IsEditingUnit(in.wparam) ? std::nullopt : Answer(0);
        case WM_KILLFOCUS: {
            const LRESULT result = DefSubclassProc(window, in.id, in.wparam, in.lparam);
            listener_->OnEditorLeft(EditorLeft::ByFocus, reinterpret_cast<HWND>(in.wparam));
            return result;
        }
        case kTakeFocus:
            SetFocus(window);
            ShowReason(std::exchange(reason_, {}));
            return 0;
        case WM_DESTROY: window_ = nullptr; return std::nullopt;
        default: return OnEditLineMessage(window, in, line_);
    }
}

Answer CellEditor::OnKeyDown(WPARAM key) {
    switch (key) {
        case VK_RETURN:
        case VK_TAB:
            if (key == VK_RETURN || !IsKeyDown(VK_CONTROL)) {
                listener_->OnEditorLeft(EditorLeft::ByEnter, nullptr);
                return 0;
            }
            break;
        case VK_ESCAPE: listener_->OnEditorLeft(EditorLeft::ByEscape, nullptr); return 0;
        default: break;
    }
    const bool isCommand = IsKeyDown(VK_CONTROL) && !IsKeyDown(VK_MENU);
    return isCommand && listener_->OnEditorCtrlKey(key) ? Answer(0) : std::nullopt;
}

}  // namespace rl
