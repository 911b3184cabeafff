#include "view/logic/link_target.h"

#include <gtest/gtest.h>

namespace rl {
namespace {

TEST(LinkTarget, FindsAnAddressAnywhereInTheText) {
    EXPECT_EQ(LinkTarget(L"https://a.example/x?y=1"), L"https://a.example/x?y=1");
    EXPECT_EQ(LinkTarget(L"see http://a.example for more"), L"http://a.example");
    EXPECT_EQ(LinkTarget(L"xftp://a.example"), L"ftp://a.example");
}

TEST(LinkTarget, TakesTheFirstBeginningOfTheListNotOfTheText) {
    EXPECT_EQ(LinkTarget(L"www.a.example http://b.example https://c.example"),
              L"https://c.example");
    EXPECT_EQ(LinkTarget(L"ftp://a.example www.b.example"), L"ftp://a.example");
    EXPECT_EQ(LinkTarget(L"http://www.a.example"), L"http://www.a.example");
}

TEST(LinkTarget, PutsASchemeInFrontOfABareHost) {
    EXPECT_EQ(LinkTarget(L"www.a.example"), L"http://www.a.example");
}

TEST(LinkTarget, EndsAtBlanksQuotesAndClosingMarks) {
    for (const std::wstring_view cell :
         {L"http://a.example/b c", L"http://a.example/b\"", L"http://a.example/b'",
          L"<http://a.example/b>", L"(http://a.example/b)", L"http://a.example/b\nx",
          L"http://a.example/b\x1Fx"}) {
        EXPECT_EQ(LinkTarget(cell), L"http://a.example/b");
    }
}

TEST(LinkTarget, LosesThePunctuationOfTheSentence) {
    EXPECT_EQ(LinkTarget(L"Go to http://a.example."), L"http://a.example");
    EXPECT_EQ(LinkTarget(L"http://a.example/b.,;.;"), L"http://a.example/b");
    EXPECT_EQ(LinkTarget(L"http://a.example/b!"), L"http://a.example/b!");
}

TEST(LinkTarget, MindsLetterCase) {
    EXPECT_EQ(LinkTarget(L"HTTP://A.EXAMPLE"), L"");
    EXPECT_EQ(LinkTarget(L"WWW.a.example"), L"");
}

TEST(LinkTarget, OpensNothingElse) {
    for (const std::wstring_view cell :
         {L"", L"abc", L"file:///c:/x.exe", L"javascript:alert(1)", L"mailto:a@b.example",
          L"c:\\windows\\notepad.exe", L"https:/a", L"ww.a"}) {
        EXPECT_EQ(LinkTarget(cell), L"");
    }
}

TEST(LinkTarget, OpensNoBeginningWithoutAnAddress) {
    EXPECT_EQ(LinkTarget(L"https://"), L"");
    EXPECT_EQ(LinkTarget(L"starts with www."), L"");
    EXPECT_EQ(LinkTarget(L"http:// a.example"), L"");
}

}  // namespace
}  // namespace rl
