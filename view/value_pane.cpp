// Fills the edit control in pieces: wrapping millions of units takes it a while.
#include "view/value_pane.h"

#include <algorithm>
#include <limits>

#include "view/clipboard.h"
#include "view/control.h"
#include "view/logic/pane_text.h"

namespace rl {

namespace {

constexpr size_t kFirstUnits = 65'536;
constexpr size_t kNextUnits = 32'768;
constexpr UINT_PTR kRestTimer = 1;  // of the pane's own window
constexpr UINT kRestDelay = 10;     // milliseconds; timers wait until no input is left

}  // namespace

bool ValuePane::Create(HWND parent) {
    constexpr DWORD kStyle = ES_MULTILINE | ES_READONLY | WS_VSCROLL | WS_TABSTOP;
    window_ = CreateControl(parent, L"EDIT", L"", kStyle, kValuePaneId);
    if (window_ == nullptr) {
        return false;
    }
    SendMessageW(window_, EM_SETLIMITTEXT, static_cast<WPARAM>(std::numeric_limits<int>::max() - 1),
                 0);
    names_.Set(window_, L"Value");
    return subclass_.Attach(window_, [this](HWND, const Message& in) { return OnMessage(in); });
}

void ValuePane::Show(std::wstring_view text) {
    if (window_ == nullptr) {
        return;
    }
    KillTimer(window_, kRestTimer);
    text_ = PaneText(text);
    shown_ = PaneChunk(text_, kFirstUnits);
    if (shown_ == text_.size()) {
        SetWindowTextW(window_, text_.c_str());
        text_ = {};
        return;
    }
    SetWindowTextW(window_, text_.substr(0, shown_).c_str());
    SetTimer(window_, kRestTimer, kRestDelay, nullptr);
}

Answer ValuePane::OnMessage(const Message& in) {
    switch (in.id) {
        case WM_GETTEXTLENGTH: return static_cast<LRESULT>(HeldText().size());
        case WM_GETTEXT: return AnswerText(reinterpret_cast<wchar_t*>(in.lparam), in.wparam);
        case WM_DESTROY: names_.Clear(window_); return std::nullopt;
        case WM_KEYDOWN:
            if (in.wparam != 'A' || !IsKeyDown(VK_CONTROL)) {
                return std::nullopt;
            }
            SendMessageW(window_, EM_SETSEL, 0, -1);
            return 0;
        case WM_COPY: CopySelection(); return 0;
        case WM_TIMER:
            if (in.wparam == kRestTimer) {
                AppendChunk();
                return 0;
            }
            return std::nullopt;
        default: return std::nullopt;
    }
}

// Whoever reads or copies the text gets it without the breaks put in for the control's sake.
std::wstring ValuePane::HeldText() const {
    const LRESULT length = DefSubclassProc(window_, WM_GETTEXTLENGTH, 0, 0);
    std::wstring text;
    text.resize_and_overwrite(
        static_cast<size_t>(std::max<LRESULT>(length, 0)), [&](wchar_t* units, size_t room) {
            return static_cast<size_t>(
                DefSubclassProc(window_, WM_GETTEXT, room + 1, reinterpret_cast<LPARAM>(units)));
        });
    return WithoutSoftBreaks(text);
}

LRESULT ValuePane::AnswerText(wchar_t* buffer, size_t room) const {
    if (buffer == nullptr || room == 0) {
        return 0;
    }
    const std::wstring text = HeldText();
    const size_t length = std::min(text.size(), room - 1);
    std::ranges::copy_n(text.data(), static_cast<std::ptrdiff_t>(length), buffer);
    buffer[length] = L'\0';
    return static_cast<LRESULT>(length);
}

void ValuePane::CopySelection() const {
    DWORD first = 0;
    DWORD last = 0;
    SendMessageW(window_, EM_GETSEL, reinterpret_cast<WPARAM>(&first),
                 reinterpret_cast<LPARAM>(&last));
    const LRESULT length = DefSubclassProc(window_, WM_GETTEXTLENGTH, 0, 0);
    std::wstring text(static_cast<size_t>(std::max<LRESULT>(length, 0)) + 1, L'\0');
    text.resize(static_cast<size_t>(
        DefSubclassProc(window_, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
    if (first < last && first < text.size()) {
        SetClipboardText(window_,
                         WithoutSoftBreaks(std::wstring_view(text).substr(first, last - first)));
    }
}

// What the reader has selected and scrolled to stays as it is.
void ValuePane::AppendChunk() {
    const std::wstring_view rest = std::wstring_view(text_).substr(shown_);
    const std::wstring chunk(rest.substr(0, PaneChunk(rest, kNextUnits)));
    DWORD first = 0;
    DWORD last = 0;
    SendMessageW(window_, EM_GETSEL, reinterpret_cast<WPARAM>(&first),
                 reinterpret_cast<LPARAM>(&last));
    const auto top = SendMessageW(window_, EM_GETFIRSTVISIBLELINE, 0, 0);
    {
        const RedrawScope still(window_);
        SendMessageW(window_, EM_SETSEL, shown_, static_cast<LPARAM>(shown_));
        SendMessageW(window_, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(chunk.c_str()));
        SendMessageW(window_, EM_SETSEL, first, static_cast<LPARAM>(last));
        const auto moved = SendMessageW(window_, EM_GETFIRSTVISIBLELINE, 0, 0);
        SendMessageW(window_, EM_LINESCROLL, 0, top - moved);
    }
    shown_ += chunk.size();
    if (shown_ >= text_.size()) {
        KillTimer(window_, kRestTimer);
        text_ = {};
    }
}

}  // namespace rl
