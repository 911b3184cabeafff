#include "view/filter_row.h"

#include <algorithm>
#include <span>
#include <utility>

#include "view/control.h"
#include "view/flag_scope.h"
#include "view/paint_scope.h"

namespace rl {
namespace {

constexpr int kHalf = 128;         // of 255: the hint stands between text and background
constexpr int kFrameWeight = 110;  // of 255

DWORD EditAlign(FilterAlign align) {
    switch (align) {
        case FilterAlign::Left: return ES_LEFT;
        case FilterAlign::Right: return ES_RIGHT;
        default: return ES_CENTER;
    }
}

UINT DrawAlign(FilterAlign align) {
    switch (align) {
        case FilterAlign::Left: return DT_LEFT;
        case FilterAlign::Right: return DT_RIGHT;
        default: return DT_CENTER;
    }
}

struct BoxMove {
    HWND box;
    Rect place;  // empty: hidden

    [[nodiscard]] UINT Flags() const {
        return SWP_NOZORDER | SWP_NOACTIVATE | (place.IsEmpty() ? SWP_HIDEWINDOW : SWP_SHOWWINDOW);
    }
};

/// False when the system has no room for so many; then none has moved.
bool MoveAtOnce(std::span<const BoxMove> moves) {
    HDWP batch = BeginDeferWindowPos(static_cast<int>(moves.size()));
    for (const BoxMove& move : moves) {
        if (batch == nullptr) {
            return false;
        }
        batch = DeferWindowPos(batch, move.box, nullptr, move.place.left, move.place.top,
                               move.place.width, move.place.height, move.Flags());
    }
    return batch != nullptr && EndDeferWindowPos(batch);
}

void MoveOneByOne(std::span<const BoxMove> moves) {
    for (const BoxMove& move : moves) {
        SetWindowPos(move.box, nullptr, move.place.left, move.place.top, move.place.width,
                     move.place.height, move.Flags());
    }
}

}  // namespace

void FilterRow::Attach(HWND parent, IFilterRowListener& listener) {
    parent_ = parent;
    listener_ = &listener;
}

void FilterRow::SetLook(const Look& look) {
    look_ = look;
    line_ = {.lineHeight = LineHeight(parent_, look.normal),
             .back = look.back,
             .frame = MixColors(look.back, look.text, kFrameWeight),
             .focusFrame = look.accent};
    for (const Slot& slot : slots_) {
        if (slot.box != nullptr) {
            SetControlFont(slot.box, look.normal);
            RefitEditLine(slot.box, line_);
            InvalidateRect(slot.box, nullptr, TRUE);
        }
    }
}

void FilterRow::Rebuild(const Grid& grid, FilterAlign align, std::wstring hint,
                        const FilterTextOf& textOf) {
    DropAll();
    align_ = align;
    hint_ = std::move(hint);
    grid_ = grid.Window();
    for (int gridColumn = 0; gridColumn < grid.ColumnCount(); ++gridColumn) {
        Slot& slot = slots_.emplace_back();
        const int dataColumn = grid.DataColumn(gridColumn);
        if (dataColumn < 0) {
            continue;
        }
        slot.isFilter = true;
        slot.text = textOf ? textOf(dataColumn) : grid.View()->FilterText(dataColumn);
        slot.name = grid.HeaderText(gridColumn);
        if (gridColumn < kLazyBoxColumn) {
            MakeBox(gridColumn);
        }
    }
}

void FilterRow::MakeBox(int gridColumn) {
    const FlagScope own(quiet_);
    Slot& slot = slots_[static_cast<size_t>(gridColumn)];
    slot.box = CreateControl(parent_, L"Edit", slot.text.c_str(),
                             WS_TABSTOP | kEditLineStyle | EditAlign(align_),
                             kFirstFilterBoxId + gridColumn);
    slot.place = {};
    if (slot.box == nullptr) {
        return;  // the filter itself stays in force
    }
    slot.text.clear();
    names_.Set(slot.box, L"Filter: " + slot.name);
    SetControlFont(slot.box, look_.normal);
    slot.subclass.Attach(slot.box,
                         [this](HWND box, const Message& in) { return OnBoxMessage(box, in); });
    HWND before = grid_;
    for (int i = gridColumn - 1; i >= 0 && before == grid_; --i) {
        const HWND box = BoxOf(i);
        before = box != nullptr ? box : before;
    }
    SetWindowPos(slot.box, before, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void FilterRow::DropBox(Slot& slot) {
    if (slot.box != nullptr) {
        const FlagScope own(quiet_);
        slot.text = WindowText(slot.box);
        names_.Clear(slot.box);
        slot.subclass.Remove();
        DestroyWindow(std::exchange(slot.box, nullptr));
        slot.place = {};
    }
}

void FilterRow::DropAll() {
    if (ColumnOf(GetFocus()) >= 0) {
        SetFocus(grid_);
    }
    for (Slot& slot : slots_) {
        DropBox(slot);
    }
    slots_.clear();
}

void FilterRow::Layout(const Grid& grid, const Rect& row) {
    std::vector<Rect> places(slots_.size());
    if (!row.IsEmpty()) {
        places = PlanFilterBoxes(grid.ColumnEdges(), ClientRect(grid.Window()).width, row);
        places.resize(slots_.size());
    }
    UpdateLazyBoxes(places);
    std::vector<BoxMove> moves;
    moves.reserve(slots_.size());
    for (size_t i = 0; i < slots_.size(); ++i) {
        Slot& slot = slots_[i];
        const Rect place = places[i].IsEmpty() ? Rect{} : places[i];
        if (slot.box != nullptr && slot.place != place) {
            moves.push_back({slot.box, place});
            slot.place = place;
        }
    }
    if (!moves.empty() && !MoveAtOnce(moves)) {
        MoveOneByOne(moves);
    }
}

// The box that has the focus stays: the user is typing into it.
void FilterRow::UpdateLazyBoxes(const std::vector<Rect>& places) {
    for (size_t i = kLazyBoxColumn; i < slots_.size(); ++i) {
        Slot& slot = slots_[i];
        const bool inView = slot.isFilter && !places[i].IsEmpty();
        if (inView && slot.box == nullptr) {
            MakeBox(static_cast<int>(i));
        } else if (!inView && slot.box != nullptr && slot.box != GetFocus()) {
            DropBox(slot);
        }
    }
}

bool FilterRow::OnCommand(WPARAM wparam, LPARAM lparam) {
    const int gridColumn = ColumnOf(reinterpret_cast<HWND>(lparam));
    if (gridColumn < 0 || HIWORD(wparam) != EN_CHANGE) {
        return false;
    }
    if (!quiet_) {
        listener_->OnFilterTyped(gridColumn);
    }
    return true;
}

// By the window's own identifier: a command carries only its lower 16 bits.
int FilterRow::ColumnOf(HWND box) const {
    if (box == nullptr || GetParent(box) != parent_) {
        return -1;
    }
    const auto id = static_cast<int64_t>(GetWindowLongPtrW(box, GWLP_ID));
    const int64_t gridColumn = id - kFirstFilterBoxId;
    const bool isOurs = gridColumn >= 0 && gridColumn < SlotCount() &&
                        slots_[static_cast<size_t>(gridColumn)].box == box;
    return isOurs ? static_cast<int>(gridColumn) : -1;
}

HWND FilterRow::BoxOf(int gridColumn) const {
    return gridColumn >= 0 && gridColumn < SlotCount() ? slots_[static_cast<size_t>(gridColumn)].box
                                                       : nullptr;
}

std::wstring FilterRow::TextOf(int gridColumn) const {
    if (gridColumn < 0 || gridColumn >= SlotCount()) {
        return {};
    }
    const Slot& slot = slots_[static_cast<size_t>(gridColumn)];
    return slot.box != nullptr ? WindowText(slot.box) : slot.text;
}

Answer FilterRow::OnBoxMessage(HWND box, const Message& in) {
    const std::shared_ptr<void> alive = listener_->KeepAlive();
    if (const Answer used = listener_->OnFilterBoxMessage(box, in)) {
        return used;
    }
    switch (in.id) {
        case WM_PAINT: {
            const LRESULT result = DefSubclassProc(box, in.id, in.wparam, in.lparam);
            PaintHint(box);
            PaintEditFrame(box, line_);
            return result;
        }
        case WM_DESTROY: names_.Clear(box); return std::nullopt;
        case WM_SETFOCUS:
        case WM_KILLFOCUS: InvalidateRect(box, nullptr, TRUE); return std::nullopt;
        case WM_CHAR:
            // A single line has no use for these and would only beep.
            return in.wparam == VK_ESCAPE || in.wparam == VK_RETURN || in.wparam == VK_TAB
                       ? Answer(0)
                       : OnEditLineMessage(box, in, line_);
        default: return OnEditLineMessage(box, in, line_);
    }
}

void FilterRow::PaintHint(HWND box) const {
    if (hint_.empty() || GetFocus() == box || GetWindowTextLengthW(box) > 0) {
        return;
    }
    const WindowDc dc(box);
    const SelectScope font(dc.Get(), look_.italic);
    SIZE size{};
    GetTextExtentPoint32W(dc.Get(), hint_.data(), static_cast<int>(hint_.size()), &size);
    const Rect place = PlanFilterHint(ClientRect(box), size.cx, look_.dpi);
    if (!place.IsEmpty()) {
        SetBkMode(dc.Get(), TRANSPARENT);
        SetTextColor(dc.Get(), MixColors(look_.text, look_.back, kHalf));
        DrawIn(dc.Get(), place, hint_,
               DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DrawAlign(align_));
    }
}

}  // namespace rl
