// The current cell's whole text below the grid: read-only, to be selected and copied.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "view/accessible_name.h"
#include "view/subclass.h"

namespace rl {

class ValuePane {
public:
    /// False when the system refuses.
    [[nodiscard]] bool Create(HWND parent);
    [[nodiscard]] HWND Window() const { return window_; }

    /// Shows a text of any length: its beginning at once, the rest as soon as nothing else is to be
    /// done.
    void Show(std::wstring_view text);

private:
    Answer OnMessage(const Message& in);
    void AppendChunk();
    [[nodiscard]] std::wstring HeldText() const;
    LRESULT AnswerText(wchar_t* buffer, size_t room) const;
    void CopySelection() const;

    HWND window_ = nullptr;
    std::wstring text_;  // only while a part of it is not yet shown
    size_t shown_ = 0;   // units of it
    AccessibleNames names_;
    Subclass subclass_;
};

}  // namespace rl
