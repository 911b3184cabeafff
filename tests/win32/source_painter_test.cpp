// What the source view looks like, pixel by pixel, and where its caret stands.
#include <gtest/gtest.h>

#include <string>

#include "tests/win32/source_window.h"

namespace rl::test {
namespace {

// Painting

TEST(SourceViewPainting, ColoursTheGutterAndTheBackground) {
    SourceWindow window(L"a");

    const Pixels pixels(window.view.Window());

    EXPECT_EQ(pixels.At(0, 0), kColors.lineNumberBack);
    EXPECT_EQ(pixels.At(3 * window.CharWidth() - 1, 200), kColors.lineNumberBack);
    EXPECT_EQ(pixels.At(3 * window.CharWidth(), 200), kColors.back);
    EXPECT_GT(
        pixels.Count({0, 0, 3 * window.CharWidth(), window.LineHeight()}, kColors.lineNumberText),
        5);
    EXPECT_EQ(
        pixels.Count({0, window.LineHeight(), 3 * window.CharWidth(), 200}, kColors.lineNumberText),
        0);
}

TEST(SourceViewPainting, GivesEveryClassItsColour) {
    // a: keyword, attribute, string, number, punctuation, text, comment
    SourceWindow window(L"null \"k\":\"s\" 88 {} MM //HH", kJson);
    const Pixels pixels(window.view.Window());
    const auto drawn = [&](int column, COLORREF color) {
        return pixels.Count(window.Cell(0, column), color) > 3;
    };

    EXPECT_TRUE(drawn(0, kColors.keyword));
    EXPECT_TRUE(drawn(6, kColors.attribute));
    EXPECT_TRUE(drawn(8, kColors.punctuation));
    EXPECT_TRUE(drawn(10, kColors.string));
    EXPECT_TRUE(drawn(13, kColors.number));
    EXPECT_TRUE(drawn(16, kColors.punctuation));
    EXPECT_TRUE(drawn(19, kColors.text));
    EXPECT_TRUE(drawn(24, kColors.comment));
}

TEST(SourceViewPainting, ColoursTagsOfXml) {
    SourceWindow window(L"<MM a='b'/>", {.mode = SourceMode::Xml});
    const Pixels pixels(window.view.Window());

    EXPECT_GT(pixels.Count(window.Cell(0, 1), kColors.tag), 3);
    EXPECT_GT(pixels.Count(window.Cell(0, 4), kColors.attribute), 3);
    EXPECT_GT(pixels.Count(window.Cell(0, 7), kColors.string), 3);
}

TEST(SourceViewPainting, ColoursALineFromTheStateBeforeIt) {
    SourceWindow window(L"/* M\nM\nM */ null", kJson);
    const Pixels pixels(window.view.Window());

    EXPECT_GT(pixels.Count(window.Cell(1, 0), kColors.comment), 3);
    EXPECT_GT(pixels.Count(window.Cell(2, 0), kColors.comment), 3);
    EXPECT_GT(pixels.Count(window.Cell(2, 6), kColors.keyword), 3);
}

TEST(SourceViewPainting, ShowsTheSelectionAndTheBreakInIt) {
    SourceWindow window(L"abcd\nefgh\nijkl");
    window.view.SelectRange(2, 5);
    window.Paint();
    const Pixels pixels(window.view.Window());

    EXPECT_EQ(pixels.Count(window.Cell(0, 1), kColors.selectionBack), 0);
    EXPECT_GT(pixels.Count(window.Cell(0, 2), kColors.selectionBack), 20);
    EXPECT_GT(pixels.Count(window.Cell(0, 2), kColors.selectionText), 3);
    EXPECT_EQ(pixels.Count(window.Cell(0, 4), kColors.selectionBack),
              window.CharWidth() * window.LineHeight());
    EXPECT_EQ(pixels.Count(window.Cell(0, 5), kColors.selectionBack), 0);
    EXPECT_GT(pixels.Count(window.Cell(1, 1), kColors.selectionBack), 20);
    EXPECT_EQ(pixels.Count(window.Cell(1, 2), kColors.selectionBack), 0);
}

TEST(SourceViewPainting, ShowsNoBreakBehindTheLastLine) {
    SourceWindow window(L"ab\ncd");
    window.view.SelectRange(0, 5);
    window.Paint();
    const Pixels pixels(window.view.Window());

    EXPECT_GT(pixels.Count(window.Cell(0, 2), kColors.selectionBack), 20);
    EXPECT_EQ(pixels.Count(window.Cell(1, 2), kColors.selectionBack), 0);
}

TEST(SourceViewPainting, AdvancesTabsToTheirStops) {
    SourceWindow window(L"a,\tMM");
    const Pixels before(window.view.Window());
    EXPECT_GT(before.Count(window.Cell(0, 4), kColors.attribute), 3);

    window.view.SetTabWidth(8);
    window.Paint();

    const Pixels after(window.view.Window());
    EXPECT_EQ(after.Count(window.Cell(0, 4), kColors.attribute), 0);
    EXPECT_GT(after.Count(window.Cell(0, 8), kColors.attribute), 3);
}

TEST(SourceViewPainting, NeverWritesTextOverTheGutter) {
    SourceWindow window(std::wstring(200, L'M'));
    Wheel(window, WM_MOUSEHWHEEL, 120);
    window.Send(WM_HSCROLL, SB_LINERIGHT);
    window.Paint();
    const Pixels pixels(window.view.Window());

    EXPECT_EQ(pixels.Count({0, 0, 3 * window.CharWidth(), window.LineHeight()}, kColors.attribute),
              0);
    EXPECT_GT(pixels.Count(window.Cell(0, 0), kColors.attribute), 3);
}

TEST(SourceViewPainting, NeverShowsABreakOverTheGutter) {
    SourceWindow window(L"ab\n" + std::wstring(200, L'M'));
    window.view.SelectRange(0, 5);
    for (int column = 0; column < 8; ++column) {
        window.Send(WM_HSCROLL, SB_LINERIGHT);
    }
    window.Paint();
    const Pixels pixels(window.view.Window());

    EXPECT_EQ(
        pixels.Count({0, 0, 3 * window.CharWidth(), window.LineHeight()}, kColors.selectionBack),
        0);
}

TEST(SourceViewPainting, CutsALineAfter65536Characters) {
    SourceWindow window(std::wstring(65'536, L'M') + std::wstring(100, L'M'));
    window.Send(WM_HSCROLL, SB_RIGHT);
    window.Send(WM_HSCROLL, SB_LINELEFT);
    window.Paint();
    const Pixels pixels(window.view.Window());

    const int left = window.Cell(0, 65'536).left - window.ScrollPos(SB_HORZ);
    EXPECT_EQ(pixels.Count({left, 0, 500 - left, window.LineHeight()}, kColors.attribute), 0);
}

TEST(SourceViewPainting, TakesTheMeasuresOfItsFont) {
    SourceWindow window(Lines(100));
    const int before = static_cast<int>(window.Scroll(SB_VERT).nPage);
    const UniqueFont large(CreateFontW(-40, 0, 0, 0, 0, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                                       OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
                                       FIXED_PITCH | FF_MODERN, L"Courier New"));

    window.view.SetFont(large.Get());

    EXPECT_LT(static_cast<int>(window.Scroll(SB_VERT).nPage), before / 2 + 1);
    window.view.SetFont(window.font.Get());
}

// The caret

POINT CaretPlace() {
    POINT at{};
    GetCaretPos(&at);
    return at;
}

TEST(SourceViewCaret, StandsWhereTheNextCharacterIs) {
    SourceWindow window(L"ab\n\tcd");
    SetFocus(window.view.Window());
    if (GetFocus() != window.view.Window()) {
        window.Send(WM_SETFOCUS);
    }

    EXPECT_EQ(CaretPlace().x, window.Cell(0, 0).left);
    window.Key(VK_RIGHT);
    EXPECT_EQ(CaretPlace().x, window.Cell(0, 1).left);
    window.view.SelectRange(4, 1);
    EXPECT_EQ(CaretPlace().x, window.Cell(1, 5).left);
    EXPECT_EQ(CaretPlace().y, window.LineHeight());
}

TEST(SourceViewCaret, IsNotSeenOnTheGutterNorOutsideTheWindow) {
    SourceWindow window(std::wstring(300, L'x') + Lines(100));
    window.Send(WM_SETFOCUS);

    Wheel(window, WM_MOUSEHWHEEL, 120);
    EXPECT_LT(CaretPlace().x, 0);
    Wheel(window, WM_MOUSEHWHEEL, -120);
    EXPECT_GT(CaretPlace().x, 0);
    Wheel(window, WM_MOUSEWHEEL, -120);
    EXPECT_LT(CaretPlace().y, 0);
}

}  // namespace
}  // namespace rl::test
