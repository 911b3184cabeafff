#include "view/logic/column_widths.h"

#include <algorithm>
#include <limits>

#include "view/logic/number_text.h"

namespace rl {
namespace {

// Thousands of columns are sampled less closely: measuring a cell costs microseconds.
constexpr int32_t kMostMeasuredCells = 200'000;
constexpr int32_t kFewestSamples = 2;  // the first row and the last

constexpr int kCellPadding = 24;    // at 96 dpi, as all below: both sides of a text together
constexpr int kNumberPadding = 12;  // the same in the line-number column
constexpr int kNarrowest = 24;
constexpr int kOutlineIndent = 16;  // for each level, and for the glyph
constexpr int kOutlineNameCap = 700;
constexpr int kOutlineValueCap = 120;  // at least this much
constexpr int kOutlineGap = 8;

int AddWidths(int left, int right) {
    return static_cast<int>(
        std::min<int64_t>(int64_t{left} + right, std::numeric_limits<int>::max()));
}

/// One measuring pass over the sampled rows.
class ColumnPass {
public:
    ColumnPass(const RowView& rows, const GridColumns& columns, const ColumnSizing& sizing,
               const MeasureText& measure, const OutlineSizing* outline)
        : rows_(rows), columns_(columns), sizing_(sizing), measure_(measure), outline_(outline) {
        const auto count = static_cast<size_t>(columns.GridCount());
        out_.widths.assign(count, 0);
        out_.integerWidths.assign(count, 0);
        out_.isNumeric.assign(count, false);
    }

    ColumnMetrics Run() {
        for (int32_t column = 0; column < columns_.GridCount(); ++column) {
            Width(column) = StartWidth(column);
        }
        const int32_t samples = std::min(
            SampleCount(rows_.VisibleRowCount(), sizing_.maxColumnSamples),
            std::max(kFewestSamples, kMostMeasuredCells / std::max(1, columns_.GridCount())));
        for (int32_t i = 0; i < samples; ++i) {
            MeasureRow(SampleRow(rows_.VisibleRowCount(), i, samples));
        }
        for (int32_t column = 0; column < columns_.GridCount(); ++column) {
            Limit(column);
        }
        return std::move(out_);
    }

private:
    [[nodiscard]] int Pixels(int value) const { return Scale(value, sizing_.dpi); }
    int& Width(int32_t gridColumn) { return out_.widths[static_cast<size_t>(gridColumn)]; }
    [[nodiscard]] bool IsShownData(int32_t gridColumn) const {
        const int32_t data = columns_.DataColumn(gridColumn);
        return data >= 0 && !columns_.IsHidden(data);
    }

    int StartWidth(int32_t gridColumn) {
        if (columns_.IsLineNumber(gridColumn)) {
            const int32_t last = std::max(1, rows_.VisibleRowCount());
            const int widest =
                std::max(measure_(kLineNumberHeader), measure_(std::to_wstring(last)));
            return AddWidths(widest, Pixels(kNumberPadding));
        }
        if (!IsShownData(gridColumn)) {
            return 0;
        }
        const std::wstring header =
            GridHeaderText(columns_, rows_, gridColumn, outline_ != nullptr);
        return AddWidths(measure_(header), Pixels(kCellPadding));
    }

    // Row by row, because cells of one row are cheap to fetch together.
    void MeasureRow(int32_t viewRow) {
        const int32_t first = columns_.HasLineNumbers() ? 1 : 0;
        for (int32_t column = first; column < columns_.GridCount(); ++column) {
            if (!IsShownData(column)) {
                continue;
            }
            const int32_t data = columns_.DataColumn(column);
            if (outline_ != nullptr && data == 0) {
                MeasureOutlineName(viewRow, column);
            } else if (AlignsDecimals() || !IsFull(column)) {
                rows_.Model().ReadCell(rows_.ModelRow(viewRow), data, cell_);
                MeasureCell(cell_, column);
            }
        }
    }

    void MeasureCell(const std::wstring& text, int32_t gridColumn) {
        int width = -1;  // not measured
        if (!IsFull(gridColumn)) {
            width = measure_(text);
            Width(gridColumn) = std::max(Width(gridColumn), AddWidths(width, Pixels(kCellPadding)));
        }
        if (!AlignsDecimals()) {
            return;
        }
        const NumberText number = ClassifyNumber(text);
        if (number.shape == NumberShape::Text) {
            return;
        }
        const auto index = static_cast<size_t>(gridColumn);
        const bool isKnown = width >= 0 && number.integer.size() == text.size();
        out_.isNumeric[index] = true;
        out_.integerWidths[index] =
            std::max(out_.integerWidths[index], isKnown ? width : measure_(number.integer));
    }

    [[nodiscard]] bool AlignsDecimals() const {
        return sizing_.decimalAlign && outline_ == nullptr;
    }

    /// Whether no cell can make the column wider. In an outline a limit hangs on another column.
    [[nodiscard]] bool IsFull(int32_t gridColumn) {
        const int cap = Pixels(sizing_.maxColumnWidth);
        return outline_ == nullptr && columns_.GridCount() >= 2 && cap >= 1 &&
               Width(gridColumn) >= std::max(cap, Pixels(kNarrowest));
    }

    void MeasureOutlineName(int32_t viewRow, int32_t gridColumn) {
        const OutlineName name = outline_->nameOf(viewRow);
        std::wstring text = rows_.CellText(viewRow, 0);
        if (!name.summary.empty()) {
            text.append(L"  : ").append(name.summary);
        }
        const int indent = Pixels(MulDivRound(name.depth + 2, kOutlineIndent, 1));
        const int width = AddWidths(AddWidths(measure_(text), indent), Pixels(kCellPadding));
        Width(gridColumn) = std::max(Width(gridColumn), width);
    }

    void Limit(int32_t gridColumn) {
        if (!IsShownData(gridColumn)) {
            return;
        }
        int& width = Width(gridColumn);
        width = std::max(width, Pixels(kNarrowest));
        if (outline_ != nullptr && columns_.DataColumn(gridColumn) == 0) {
            out_.outlineName = width;
        }
        const int cap = CapOf(columns_.DataColumn(gridColumn));
        if (columns_.GridCount() >= 2 && cap >= 1) {
            width = std::min(width, cap);
        }
    }

    int CapOf(int32_t dataColumn) {
        if (outline_ == nullptr) {
            return Pixels(sizing_.maxColumnWidth);
        }
        if (dataColumn == 0) {
            return OutlineNameCap(outline_->clientWidth, sizing_.dpi);
        }
        const int nameWidth = Width(columns_.GridColumn(0));
        return std::max(Pixels(kOutlineValueCap),
                        outline_->clientWidth - nameWidth - Pixels(kOutlineGap));
    }

    const RowView& rows_;
    const GridColumns& columns_;
    const ColumnSizing& sizing_;
    const MeasureText& measure_;
    const OutlineSizing* outline_;
    ColumnMetrics out_;
    std::wstring cell_;  // its room is used for every cell
};

}  // namespace

int32_t SampleCount(int32_t visibleRows, int32_t maxSamples) {
    return std::max(0, std::min(visibleRows, maxSamples));
}

int32_t SampleRow(int32_t visibleRows, int32_t index, int32_t count) {
    if (visibleRows < 2 || count < 2) {
        return 0;
    }
    // In 64 bits: a million rows times a thousand samples leave 32.
    return static_cast<int32_t>((int64_t{visibleRows} - 1) * index / (int64_t{count} - 1));
}

int OutlineNameCap(int clientWidth, int dpi) {
    const int share = static_cast<int>(int64_t{clientWidth} * 45 / 100);
    return std::min(share, Scale(kOutlineNameCap, dpi));
}

ColumnMetrics MeasureColumns(const RowView& rows, const GridColumns& columns,
                             const ColumnSizing& sizing, const MeasureText& measure,
                             const OutlineSizing* outline) {
    return ColumnPass(rows, columns, sizing, measure, outline).Run();
}

}  // namespace rl
