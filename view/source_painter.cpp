// Draws a page of source text.
#include "view/source_painter.h"

#include <algorithm>
#include <array>
#include <string>

#include "view/gdi_handles.h"
#include "view/paint_scope.h"

namespace rl {

namespace {

struct DcTraits {
    using Handle = HDC;
    static Handle Empty() noexcept { return nullptr; }
    static void Close(Handle dc) noexcept { DeleteDC(dc); }
};

using UniqueDc = UniqueHandle<DcTraits>;

COLORREF ColorOf(SourceClass value, const SourceColors& colors) {
    const std::array<Color, kSourceClassCount> inOrder = {
        colors.text,   colors.comment, colors.tag,     colors.attribute,
        colors.string, colors.number,  colors.keyword, colors.punctuation};
    return inOrder[static_cast<size_t>(value)];
}

}  // namespace

// Without memory for the bitmap the page is drawn where it is to be seen.
void SourcePainter::Paint(HDC dc, const SourcePicture& picture) {
    const int width = picture.page.clientWidth;
    const int height = picture.page.clientHeight;
    if (width <= 0 || height <= 0) {
        return;
    }
    const UniqueDc memory(CreateCompatibleDC(dc));
    const UniqueBitmap bitmap(CreateCompatibleBitmap(dc, width, height));
    if (!memory || !bitmap) {
        Draw(dc, picture);
        return;
    }
    const SelectScope selected(memory.Get(), bitmap.Get());
    Draw(memory.Get(), picture);
    BitBlt(dc, 0, 0, width, height, memory.Get(), 0, 0, SRCCOPY);
}

void SourcePainter::Draw(HDC dc, const SourcePicture& picture) {
    const SourcePage& page = picture.page;
    const HGDIOBJ font = picture.font != nullptr ? picture.font : GetStockObject(SYSTEM_FONT);
    const SelectScope selected(dc, font);
    SetTextAlign(dc, TA_LEFT | TA_TOP);
    FillSolid(dc, {0, 0, page.clientWidth, page.clientHeight}, picture.colors.back);
    FillSolid(dc, {0, 0, page.GutterWidth(), page.clientHeight}, picture.colors.lineNumberBack);
    for (int32_t line = page.topLine; line < page.LinesEnd(); ++line) {
        DrawNumber(dc, picture, line);
        DrawLine(dc, picture, line);
    }
}

void SourcePainter::DrawNumber(HDC dc, const SourcePicture& picture, int32_t line) const {
    const SourcePage& page = picture.page;
    const int top = (line - page.topLine) * page.cell.height;
    const RECT area = ToRECT({0, top, page.GutterWidth(), page.cell.height});
    const std::wstring number = std::to_wstring(line + 1);
    SetTextColor(dc, picture.colors.lineNumberText);
    SetBkColor(dc, picture.colors.lineNumberBack);
    ExtTextOutW(dc, page.NumberLeft(line), top, ETO_OPAQUE | ETO_CLIPPED, &area, number.c_str(),
                static_cast<UINT>(number.size()), nullptr);
}

void SourcePainter::DrawLine(HDC dc, const SourcePicture& picture, int32_t line) {
    const SourcePage& page = picture.page;
    const std::wstring_view whole = picture.text.Line(line);
    const std::wstring_view drawn = whole.substr(0, kMostUnitsDrawn);
    if (classes_.size() < drawn.size()) {
        classes_.resize(drawn.size());
    }
    const std::span<SourceClass> classes = std::span(classes_).first(drawn.size());
    const LineContext context{.state = picture.states[static_cast<size_t>(line)],
                              .isFirst = line == 0};
    LexLine(picture.syntax, drawn, context, ClassSink(classes));

    const size_t start = picture.text.LineStart(line);
    const int shown = std::max(0, page.clientWidth - page.GutterWidth());
    const int64_t firstColumn = page.scrollX / page.cell.width;
    plan_.Plan({.line = drawn,
                .classes = classes,
                .start = start,
                .selection = picture.selection,
                .tabWidth = picture.text.TabWidth(),
                .firstColumn = firstColumn,
                .lastColumn = (int64_t{page.scrollX} + shown) / page.cell.width});
    const int top = (line - page.topLine) * page.cell.height;
    for (const SourceRun& run : plan_.Runs()) {
        DrawRun(dc, picture, run, top);
    }
    const size_t end = start + whole.size();
    const bool breakSelected = picture.selection.First() <= end && picture.selection.Last() > end;
    if (breakSelected && line + 1 < page.lineCount) {
        const int left = page.ColumnLeft(plan_.EndColumn());
        const int seen = std::max(left, page.GutterWidth());
        const int width = left + page.cell.width - seen;
        if (width > 0) {  // else it is scrolled out, and a negative width would fill leftwards
            FillSolid(dc, {seen, top, width, page.cell.height}, picture.colors.selectionBack);
        }
    }
}

// Every unit gets one cell, whatever the font thinks: what is drawn, the caret and the mouse then
// always agree.
void SourcePainter::DrawRun(HDC dc, const SourcePicture& picture, const SourceRun& run, int top) {
    const SourcePage& page = picture.page;
    const std::wstring_view text = plan_.TextOf(run);
    const int left = page.ColumnLeft(run.column);
    const int right = page.ColumnLeft(run.column + static_cast<int64_t>(run.length));
    const int gutter = page.GutterWidth();
    if (right <= gutter) {
        return;
    }
    if (advances_.size() < text.size() || advances_.front() != page.cell.width) {
        advances_.assign(std::max(text.size(), advances_.size()), page.cell.width);
    }
    const RECT area{std::max(left, gutter), top, right, top + page.cell.height};
    SetTextColor(dc,
                 run.selected ? picture.colors.selectionText : ColorOf(run.colour, picture.colors));
    SetBkColor(dc, run.selected ? picture.colors.selectionBack : picture.colors.back);
    ExtTextOutW(dc, left, top, ETO_OPAQUE | ETO_CLIPPED, &area, text.data(),
                static_cast<UINT>(text.size()), advances_.data());
}

}  // namespace rl
