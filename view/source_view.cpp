// The Source tab's control: its life, its text, scrolling and caret.
#include "view/source_view.h"

#include <algorithm>
#include <utility>

#include "view/control.h"
#include "view/paint_scope.h"

namespace rl {

namespace {

constexpr const wchar_t* kClassName = L"RowlarkSourceView";

int32_t ClampTo(int64_t value, int32_t most) {
    return static_cast<int32_t>(std::clamp<int64_t>(value, 0, most));
}

}  // namespace

bool SourceView::RegisterWindowClass() noexcept {
    WNDCLASSEXW record{};
    record.cbSize = sizeof record;
    record.style = CS_DBLCLKS;
    record.lpfnWndProc = &WindowProc;
    record.hInstance = OwnInstance();
    record.hCursor = LoadCursorW(nullptr, IDC_IBEAM);
    record.lpszClassName = kClassName;
    return RegisterClassExW(&record) != 0 || GetLastError() == ERROR_CLASS_ALREADY_EXISTS;
}

void SourceView::UnregisterWindowClass() noexcept {
    UnregisterClassW(kClassName, OwnInstance());
}

bool SourceView::Create(HWND parent) {
    constexpr DWORD kStyle = WS_TABSTOP | WS_VSCROLL | WS_HSCROLL;
    window_ = CreateControl(parent, kClassName, L"", kStyle, kSourceViewId);
    if (window_ == nullptr) {
        return false;
    }
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    MoveWindow(window_, 0, 0, 100, 100, FALSE);
    names_.Set(window_, L"Source");
    return true;
}

void SourceView::SetFont(HFONT font) {
    SetControlFont(window_, font);
}

void SourceView::SetColors(const SourceColors& colors, bool dark) {
    colors_ = colors;
    SetControlDark(window_, dark);
    if (window_ != nullptr) {
        InvalidateRect(window_, nullptr, FALSE);
    }
}

void SourceView::SetText(std::wstring text, const SourceSyntax& syntax) {
    if (window_ == nullptr) {
        return;
    }
    SourceText fresh;
    fresh.SetTabWidth(text_.TabWidth());
    fresh.Assign(std::move(text));
    SourceSyntax known = syntax;
    known.delimiter = syntax.delimiter != L'\0' ? syntax.delimiter : L',';
    std::vector<LineState> states = ScanLineStates(known, fresh.All(), fresh.LineStarts());
    // Nothing throws from here on: the old text or the new one, never half of both.
    std::swap(text_, fresh);
    std::swap(states_, states);
    syntax_ = known;
    selection_ = {};
    topLine_ = 0;
    scrollX_ = 0;
    Changed();
}

void SourceView::SetTabWidth(int width) {
    if (window_ == nullptr) {
        return;
    }
    text_.SetTabWidth(width);
    Changed();
}

void SourceView::SelectRange(uint64_t start, uint64_t length) {
    const uint64_t size = text_.Size();
    const uint64_t anchor = std::min(start, size);
    Select({.anchor = anchor, .caret = anchor + std::min(length, size - anchor)});
}

LRESULT CALLBACK SourceView::WindowProc(HWND window, UINT id, WPARAM wparam, LPARAM lparam) {
    auto* view = reinterpret_cast<SourceView*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (view == nullptr) {
        return DefWindowProcW(window, id, wparam, lparam);
    }
    if (id == WM_NCDESTROY) {
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        view->window_ = nullptr;
        return DefWindowProcW(window, id, wparam, lparam);
    }
    Answer answer;
    try {
        answer = view->Handle({id, wparam, lparam});
    } catch (...) {  // out of memory: what was shown stays
        MessageBeep(MB_ICONWARNING);
    }
    return answer ? *answer : DefWindowProcW(window, id, wparam, lparam);
}

Answer SourceView::Handle(const Message& in) {
    switch (in.id) {
        case WM_DESTROY: names_.Clear(window_); return std::nullopt;
        case WM_ERASEBKGND: return TRUE;
        case WM_PAINT: Paint(); return 0;
        case WM_SIZE: Changed(); return 0;
        case WM_SETFOCUS: ShowOwnCaret(); return 0;
        case WM_KILLFOCUS:
            hasFocus_ = false;
            DestroyCaret();
            return 0;
        case WM_SETFONT: TakeFont(reinterpret_cast<HFONT>(in.wparam)); return 0;
        case WM_GETFONT: return reinterpret_cast<LRESULT>(font_);
        case WM_VSCROLL: return OnScroll(SB_VERT, LOWORD(in.wparam));
        case WM_HSCROLL: return OnScroll(SB_HORZ, LOWORD(in.wparam));
        default: break;
    }
    const Answer answer = HandleEditMessage(in);
    return answer ? answer : HandleInput(in);
}

// What other programs, screen readers among them, ask a text box.
Answer SourceView::HandleEditMessage(const Message& in) {
    switch (in.id) {
        case WM_GETTEXTLENGTH: return static_cast<LRESULT>(text_.Size());
        case WM_GETTEXT: return AnswerText(reinterpret_cast<wchar_t*>(in.lparam), in.wparam);
        case WM_SETTEXT: return FALSE;  // read-only
        case EM_GETSEL:
            return AnswerSelection(reinterpret_cast<DWORD*>(in.wparam),
                                   reinterpret_cast<DWORD*>(in.lparam));
        case EM_SETSEL:
            SelectAsAsked(static_cast<int32_t>(in.wparam), static_cast<int32_t>(in.lparam));
            return 0;
        case WM_COPY: Copy(); return 0;
        case WM_GETDLGCODE: return DLGC_WANTARROWS | DLGC_WANTCHARS;
        default: return std::nullopt;
    }
}

/// As edit controls do it: -1 first takes the selection away, -1 last stands for the text's end.
void SourceView::SelectAsAsked(int32_t first, int32_t last) {
    const auto inText = [this](int32_t position) {
        const uint64_t size = text_.Size();
        return position < 0 ? size : std::min(size, static_cast<uint64_t>(position));
    };
    const uint64_t anchor = first < 0 ? selection_.caret : inText(first);
    Select({.anchor = anchor, .caret = first < 0 ? anchor : inText(last)});
}

void SourceView::TakeFont(HFONT font) {
    font_ = font;
    const WindowDc dc(window_);
    const SelectScope selected(dc.Get(), font != nullptr ? font : GetStockObject(SYSTEM_FONT));
    TEXTMETRICW metrics{};
    if (GetTextMetricsW(dc.Get(), &metrics)) {
        cell_ = {
            .width = std::max(1, static_cast<int>(metrics.tmAveCharWidth)),
            .height = std::max(1, static_cast<int>(metrics.tmHeight + metrics.tmExternalLeading))};
    }
    Changed();
    if (hasFocus_) {
        ShowOwnCaret();  // of another height now
    }
}

void SourceView::Paint() {
    const PaintScope paint(window_);
    painter_.Paint(paint.Dc(), {.text = text_,
                                .syntax = syntax_,
                                .states = states_,
                                .selection = selection_,
                                .page = Page(),
                                .colors = colors_,
                                .font = font_});
}

/// After the text, its measures or the window have changed: nothing is left scrolled too far.
void SourceView::Changed() {
    UpdateScrollBars();
    ScrollTo(topLine_, scrollX_);
}

void SourceView::Select(const SourceSelection& selection) {
    selection_ = selection;
    ScrollToCaret();
}

void SourceView::ScrollTo(int64_t topLine, int64_t scrollX) {
    if (window_ == nullptr) {
        return;
    }
    const SourcePage page = Page();
    topLine_ = ClampTo(topLine, page.MaxTopLine());
    scrollX_ = ClampTo(scrollX, page.MaxScrollX());
    SetScrollPos(window_, SB_VERT, topLine_, TRUE);
    SetScrollPos(window_, SB_HORZ, scrollX_, TRUE);
    PlaceCaret();
    InvalidateRect(window_, nullptr, FALSE);
}

void SourceView::ScrollToCaret() {
    const SourcePage page = Page();
    ScrollTo(page.TopLineFor(text_.LineOf(selection_.caret)),
             page.ScrollXFor(text_.ColumnOf(selection_.caret)));
}

// The bars stay where there is nothing to scroll: the client area keeps its size.
void SourceView::UpdateScrollBars() {
    const SourcePage page = Page();
    const auto set = [this](int bar, int most, int pageSize) {
        SCROLLINFO info{};
        info.cbSize = sizeof info;
        info.fMask = SIF_RANGE | SIF_PAGE | SIF_DISABLENOSCROLL;
        info.nMax = most;
        info.nPage = static_cast<UINT>(pageSize);
        SetScrollInfo(window_, bar, &info, TRUE);
    };
    set(SB_VERT, page.lineCount - 1, page.PageLines());
    set(SB_HORZ, page.Width(), page.clientWidth);
}

Answer SourceView::OnScroll(int bar, WORD command) {
    const SourcePage page = Page();
    const bool vertical = bar == SB_VERT;
    const int64_t position = vertical ? topLine_ : scrollX_;
    const int64_t step = vertical ? 1 : 4 * page.cell.width;
    const int64_t pageSize = vertical ? page.PageLines() : page.clientWidth;
    int64_t target = 0;
    switch (command) {  // SB_LINELEFT and its like are the same numbers
        case SB_LINEUP: target = position - step; break;
        case SB_LINEDOWN: target = position + step; break;
        case SB_PAGEUP: target = position - pageSize; break;
        case SB_PAGEDOWN: target = position + pageSize; break;
        case SB_TOP: target = 0; break;
        case SB_BOTTOM: target = vertical ? page.lineCount : page.Width(); break;
        case SB_THUMBTRACK:
        case SB_THUMBPOSITION: {
            // The message has room for 16 bits only.
            SCROLLINFO info{};
            info.cbSize = sizeof info;
            info.fMask = SIF_TRACKPOS;
            if (!GetScrollInfo(window_, bar, &info)) {
                return 0;
            }
            target = info.nTrackPos;
            break;
        }
        default: return 0;
    }
    ScrollTo(vertical ? target : topLine_, vertical ? int64_t{scrollX_} : target);
    return 0;
}

void SourceView::ShowOwnCaret() {
    hasFocus_ = true;
    CreateCaret(window_, nullptr, std::max(1, cell_.width / 8 + 1), cell_.height);
    PlaceCaret();
    ShowCaret(window_);
}

// Scrolled below the gutter or out of the window, the caret must not be seen.
void SourceView::PlaceCaret() {
    if (!hasFocus_) {
        return;
    }
    const SourcePage page = Page();
    const int32_t line = text_.LineOf(selection_.caret);
    const int x = page.ColumnLeft(text_.ColumnOf(selection_.caret));
    const bool seen = line >= page.topLine && line < page.LinesEnd() && x >= page.GutterWidth();
    SetCaretPos(seen ? x : -page.cell.width,
                seen ? (line - page.topLine) * page.cell.height : -page.cell.height);
}

SourcePage SourceView::Page() const {
    const Rect client = ClientRect(window_);
    return {.cell = cell_,
            .clientWidth = client.width,
            .clientHeight = client.height,
            .lineCount = text_.LineCount(),
            .maxColumns = text_.MaxColumns(),
            .topLine = topLine_,
            .scrollX = scrollX_};
}

LRESULT SourceView::AnswerText(wchar_t* buffer, size_t room) const {
    if (buffer == nullptr || room == 0) {
        return 0;
    }
    const std::wstring_view copied = text_.All().substr(0, room - 1);
    *std::ranges::copy(copied, buffer).out = L'\0';
    return static_cast<LRESULT>(copied.size());
}

// Positions beyond 16 bits do not fit the answer itself.
LRESULT SourceView::AnswerSelection(DWORD* first, DWORD* last) const {
    const auto from = static_cast<DWORD>(selection_.First());
    const auto to = static_cast<DWORD>(selection_.Last());
    if (first != nullptr) {
        *first = from;
    }
    if (last != nullptr) {
        *last = to;
    }
    return to <= 0xFFFF ? static_cast<LRESULT>(MAKELONG(from, to)) : -1;
}

}  // namespace rl
