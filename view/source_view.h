// The Source tab's control: a text to be read, selected and copied, with syntax colours.
//
// A window class of its own. What is seen and what keys do is decided in view/logic/source_*; here
// messages become calls. The text is replaced as a whole, never edited.
//
// Belongs to the thread of its window. The object must outlive the window's messages.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

#include "host/config/themes.h"
#include "view/accessible_name.h"
#include "view/logic/source_lexer.h"
#include "view/logic/source_page.h"
#include "view/logic/source_selection.h"
#include "view/message.h"
#include "view/source_painter.h"

namespace rl {

class SourceView {
public:
    /// Registers and takes back the window class; viewers must be gone by then.
    static bool RegisterWindowClass() noexcept;
    static void UnregisterWindowClass() noexcept;

    SourceView() = default;
    SourceView(const SourceView&) = delete;
    SourceView& operator=(const SourceView&) = delete;

    /// False when the system refuses; everything else then does nothing.
    [[nodiscard]] bool Create(HWND parent);
    [[nodiscard]] HWND Window() const { return window_; }

    /// The font is borrowed and must outlive its use.
    void SetFont(HFONT font);
    void SetColors(const SourceColors& colors, bool dark);

    /// Shows a text from its beginning; a delimiter of 0 is a comma.
    void SetText(std::wstring text, const SourceSyntax& syntax);
    /// 1 to 32; other widths become the nearest of these.
    void SetTabWidth(int width);
    /// Selects units of the text and scrolls there; what is beyond the text is left out.
    void SelectRange(uint64_t start, uint64_t length);

private:
    static LRESULT CALLBACK WindowProc(HWND window, UINT id, WPARAM wparam, LPARAM lparam);

    // source_view.cpp
    Answer Handle(const Message& in);
    Answer HandleEditMessage(const Message& in);
    void TakeFont(HFONT font);
    void Paint();
    void Changed();
    void Select(const SourceSelection& selection);
    void SelectAsAsked(int32_t first, int32_t last);
    void ScrollTo(int64_t topLine, int64_t scrollX);
    void ScrollToCaret();
    void UpdateScrollBars();
    Answer OnScroll(int bar, WORD command);
    void PlaceCaret();
    void ShowOwnCaret();
    [[nodiscard]] SourcePage Page() const;
    [[nodiscard]] LRESULT AnswerText(wchar_t* buffer, size_t room) const;
    [[nodiscard]] LRESULT AnswerSelection(DWORD* first, DWORD* last) const;

    // source_input.cpp
    Answer HandleInput(const Message& in);
    Answer OnKeyDown(WPARAM key);
    Answer OnPress(POINT at, bool extend);
    Answer OnDrag(POINT at);
    Answer OnRelease();
    Answer OnDoubleClick(POINT at);
    Answer OnWheel(WPARAM wparam);
    Answer OnSidewaysWheel(WPARAM wparam);
    void MoveCaretTo(size_t position, bool extend);
    void Copy() const;
    [[nodiscard]] size_t PositionAt(POINT at) const;
    [[nodiscard]] size_t UnitAt(POINT at) const;

    HWND window_ = nullptr;
    AccessibleNames names_;
    SourceText text_;
    SourceSyntax syntax_;
    std::vector<LineState> states_ = {0};  // at the start of every line
    SourceSelection selection_;
    int32_t topLine_ = 0;
    int32_t scrollX_ = 0;
    CellSize cell_;
    HFONT font_ = nullptr;
    SourceColors colors_{.back = 0xFFFFFF, .selectionText = 0xFFFFFF, .lineNumberBack = 0xFFFFFF};
    bool hasFocus_ = false;
    bool mouseSelecting_ = false;
    SourcePainter painter_;
};

}  // namespace rl
