// Colours and fonts, from the settings into the controls.
#include "view/viewer.h"

#include <algorithm>

#include "host/store/settings.h"
#include "view/control.h"

namespace rl {

void Viewer::LoadTheme(const Theme& theme) {
    const auto themes = BuiltInThemes();
    themeIndex_ =
        static_cast<int>(std::ranges::find(themes, theme.name, &Theme::name) - themes.begin());
    const IntLookup lookup = settings::ColorLookup();
    colors_ = LoadThemeColors(lookup, theme);
    sourceColors_ = LoadSourceColors(lookup, theme, colors_);
    brushes_ = {.back = UniqueBrush(CreateSolidBrush(colors_.back)),
                .filterBack = UniqueBrush(CreateSolidBrush(colors_.filterBack)),
                .paneBack = UniqueBrush(CreateSolidBrush(colors_.back2))};
}

void Viewer::ApplyTheme() {
    SetControlDark(placeholder_, colors_.dark);
    SetControlDark(pane_.Window(), colors_.dark);
    SetControlDark(grid_.Window(), colors_.dark);
    grid_.SetColors(colors_);
    grid_.SetOutlineColors(sourceColors_);
    tree_.SetColors(colors_);
    filters_.SetLook(FilterLook());
    tabs_.SetColors(colors_);
    source_.SetColors(sourceColors_, colors_.dark);
    status_.SetColors(colors_);
    help_.SetColors(colors_);
    constexpr UINT kEverything = RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN;
    RedrawWindow(window_, nullptr, nullptr, kEverything);
}

// The controls let go of the old fonts before those are deleted.
void Viewer::RebuildFonts() {
    ViewerFonts fonts = MakeViewerFonts(settings_.font, dpi_);
    SetControlFont(placeholder_, fonts.normal.Get());
    SetControlFont(pane_.Window(), fonts.normal.Get());
    grid_.SetFonts(fonts.normal.Get(), fonts.bold.Get(), dpi_);
    tree_.SetFont(fonts.normal.Get(), dpi_);
    tabs_.SetFonts(fonts.normal.Get(), fonts.bold.Get(), dpi_);
    source_.SetFont(fonts.source.Get());
    editor_.SetFont(fonts.normal.Get());
    std::swap(fonts_, fonts);
    filters_.SetLook(FilterLook());
}

void Viewer::SetFontSize(int points) {
    if (points < kSmallestFont || points > kLargestFont || points == settings_.font.points) {
        return;
    }
    settings_.font.points = points;
    RebuildFonts();
    settings::Set(settings::kFontSize, points);
    RefitAfterFonts();
    InvalidateRect(grid_.Window(), nullptr, FALSE);
}

void Viewer::RefitAfterFonts() {
    if (loaded_) {
        grid_.RecomputeWidths();
    }
    Relayout();
}

}  // namespace rl
