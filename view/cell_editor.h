// The box laid over a cell while its text is edited: it opens, tells how it is left, and goes.
//
// What is edited, and whether the text is taken, is its owner's business. A box that is told to
// stay stays, with the text as typed.
//
// User-interface thread only.
#pragma once

#include <windows.h>

#include <memory>
#include <string>

#include "view/edit_line.h"
#include "view/message.h"
#include "view/subclass.h"

namespace rl {

inline constexpr int kCellEditorId = 4000;

enum class EditorLeft { ByEnter, ByEscape, ByFocus };

class ICellEditorListener {
public:
    /// The user is leaving the editor: it is to be closed, or to stay. `focus` is the window that
    /// has the focus instead, if it went.
    virtual void OnEditorLeft(EditorLeft how, HWND focus) = 0;
    /// A key with Ctrl; true when it was used. The editor may be closed by then.
    virtual bool OnEditorCtrlKey(WPARAM key) = 0;
    /// Held while a message of the editor is worked on, which may end the owner's window.
    virtual std::shared_ptr<void> KeepEditorAlive() = 0;

protected:
    ~ICellEditorListener() = default;
};

class CellEditor {
public:
    /// What the editor looks like. The font is borrowed.
    struct Look {
        HFONT font = nullptr;
        COLORREF back = 0;
        COLORREF frame = 0;
        int gridLine = 0;  // pixels of the cell that its lower line takes
    };

    CellEditor() = default;
    CellEditor(const CellEditor&) = delete;
    CellEditor& operator=(const CellEditor&) = delete;
    ~CellEditor() = default;

    /// Lays an editor with this text over a part of `parent`, all of it selected, and gives it the
    /// focus. False when the system refuses; then, and when memory runs out, none is open.
    bool Open(HWND parent, const RECT& place, const std::wstring& text, const Look& look,
              ICellEditorListener& listener);
    /// The font is borrowed. Harmless when none is open.
    void SetFont(HFONT font);
    /// Takes it away; the focus is left to the caller. Harmless when none is open.
    void Close();

    [[nodiscard]] bool IsOpen() const { return window_ != nullptr; }
    [[nodiscard]] HWND Window() const { return window_; }
    /// What stands in it now, and what stood there when it had just opened.
    [[nodiscard]] std::wstring Text() const;
    [[nodiscard]] const std::wstring& OpenedText() const { return opened_; }

    void MoveTo(const RECT& place);
    /// Says why the text was refused, in a balloon of the editor's own.
    void ShowReason(const std::wstring& reason);
    /// The same once the focus is back, for which the message at hand must be over.
    void ReturnWithReason(std::wstring reason);

private:
    bool OpenWindow(HWND parent, const RECT& place, const std::wstring& text, const Look& look,
                    ICellEditorListener& listener);
    Answer OnMessage(HWND window, const Message& in);
    Answer OnKeyDown(WPARAM key);

    HWND window_ = nullptr;
    ICellEditorListener* listener_ = nullptr;
    Subclass subclass_;
    EditLineLook line_;
    std::wstring opened_;
    std::wstring reason_;  // to be shown when the focus is back
};

}  // namespace rl
