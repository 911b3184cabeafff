#include "load/text/detect_encoding.h"

#include <gtest/gtest.h>

namespace rl {
namespace {

using namespace std::string_view_literals;

TEST(LeadingMark, KnowsThreeMarks) {
    EXPECT_EQ(LeadingMark("\xEF\xBB\xBFx").label, L"UTF-8");
    EXPECT_EQ(LeadingMark("\xFF\xFE").label, L"UTF-16LE");
    EXPECT_EQ(LeadingMark("\xFE\xFF").label, L"UTF-16BE");
    EXPECT_EQ(LeadingMark("\xEF\xBB\xBF").bytes.size(), 3u);
}

TEST(LeadingMark, WantsTheWholeMarkAtTheStart) {
    EXPECT_TRUE(LeadingMark("").label.empty());
    EXPECT_TRUE(LeadingMark("\xEF\xBB").label.empty());
    EXPECT_TRUE(LeadingMark("\xFF").label.empty());
    EXPECT_TRUE(LeadingMark("x\xEF\xBB\xBF").label.empty());
}

TEST(MarkOf, FindsTheMarkOfALabelInAnyCase) {
    EXPECT_EQ(MarkOf(L"utf-16be").bytes, "\xFE\xFF");
    EXPECT_EQ(MarkOf(L"utf-16be").label, L"UTF-16BE");
    EXPECT_TRUE(MarkOf(L"ANSI").label.empty());
    EXPECT_TRUE(MarkOf(L"").label.empty());
}

TEST(LabelFromNulByte, NeedsExactlyOneNulInTheFirstTwoBytes) {
    EXPECT_EQ(LabelFromNulByte("A\0"sv), L"UTF-16LE");
    EXPECT_EQ(LabelFromNulByte("\0A"sv), L"UTF-16BE");
    EXPECT_TRUE(LabelFromNulByte("\0\0"sv).empty());
    EXPECT_TRUE(LabelFromNulByte("AB").empty());
    EXPECT_TRUE(LabelFromNulByte("\0"sv).empty());
    EXPECT_TRUE(LabelFromNulByte("").empty());
    EXPECT_EQ(LabelFromNulByte("\xFF\0"sv), L"UTF-16LE");
}

TEST(HasUtf8Shape, TakesSequencesOfOneToFourBytes) {
    EXPECT_TRUE(HasUtf8Shape(""));
    EXPECT_TRUE(HasUtf8Shape("abc\0\x7F"sv));
    EXPECT_TRUE(HasUtf8Shape("\xC3\xA9"));
    EXPECT_TRUE(HasUtf8Shape("\xE4\xBD\xA0"));
    EXPECT_TRUE(HasUtf8Shape("\xF0\x9F\x98\x80"));
}

TEST(HasUtf8Shape, TakesOverlongFormsSurrogatesAndPointsBeyondTheLast) {
    EXPECT_TRUE(HasUtf8Shape("\xC0\x80"));
    EXPECT_TRUE(HasUtf8Shape("\xE0\x80\x80"));
    EXPECT_TRUE(HasUtf8Shape("\xED\xA0\x80"));
    EXPECT_TRUE(HasUtf8Shape("\xF7\xBF\xBF\xBF"));
}

TEST(HasUtf8Shape, RefusesWhatCannotLead) {
    EXPECT_FALSE(HasUtf8Shape("\x80"));
    EXPECT_FALSE(HasUtf8Shape("a\xBF"));
    EXPECT_FALSE(HasUtf8Shape("\xF8\x88\x80\x80\x80"));
    EXPECT_FALSE(HasUtf8Shape("\xFF"));
}

TEST(HasUtf8Shape, RefusesWhatIsCutOrInterrupted) {
    EXPECT_FALSE(HasUtf8Shape("\xC3"));
    EXPECT_FALSE(HasUtf8Shape("abc\xE4\xBD"));
    EXPECT_FALSE(HasUtf8Shape("\xF0\x9F\x98"));
    EXPECT_FALSE(HasUtf8Shape("\xC3(a"));
    EXPECT_FALSE(HasUtf8Shape("\xE4\xBD\xC3\xA9"));
}

TEST(XmlDeclaredEncoding, GivesTheValueBetweenEitherQuotes) {
    EXPECT_EQ(XmlDeclaredEncoding("<?xml version=\"1.0\" encoding=\"koi8-r\"?>"), L"koi8-r");
    EXPECT_EQ(XmlDeclaredEncoding("<?xml encoding='x\"y'?>"), L"x\"y");
    EXPECT_EQ(XmlDeclaredEncoding("<?xml encoding=''?>"), L"");
    EXPECT_EQ(XmlDeclaredEncoding("<?xml encoding=\"\xE9\"?>"), L"\x00E9");
}

TEST(XmlDeclaredEncoding, AllowsBlanksAroundTheEqualsSign) {
    EXPECT_EQ(XmlDeclaredEncoding("<?xml encoding  = \t \"a\"?>"), L"a");
    EXPECT_EQ(XmlDeclaredEncoding("<?xml encoding=\n\"a\"?>"), L"");
}

TEST(XmlDeclaredEncoding, WantsTheDeclarationAtTheVeryStart) {
    EXPECT_EQ(XmlDeclaredEncoding(" <?xml encoding=\"a\"?>"), L"");
    EXPECT_EQ(XmlDeclaredEncoding("<?XML encoding=\"a\"?>"), L"");
    EXPECT_EQ(XmlDeclaredEncoding("<?xml encoding=\"a\""), L"");
    EXPECT_EQ(XmlDeclaredEncoding(""), L"");
}

TEST(XmlDeclaredEncoding, LooksNowhereBehindTheDeclaration) {
    EXPECT_EQ(XmlDeclaredEncoding("<?xml?><a encoding=\"a\"/>"), L"");
    EXPECT_EQ(XmlDeclaredEncoding("<?xml encoding?>=\"a\"?>"), L"");
    EXPECT_EQ(XmlDeclaredEncoding("<?xml encoding=?>\"a\""), L"");
    EXPECT_EQ(XmlDeclaredEncoding("<?xml encoding=\"a?>\""), L"");
    EXPECT_EQ(XmlDeclaredEncoding("<?xml encoding=a?>"), L"");
}

TEST(XmlDeclaredEncoding, LooksAtTheFirst256Bytes) {
    const std::string start = "<?xml version=\"1.0\"";
    const std::string end = " encoding=\"a\"?>";
    const size_t blanks = 256 - start.size() - end.size();
    EXPECT_EQ(XmlDeclaredEncoding(start + std::string(blanks, ' ') + end), L"a");
    EXPECT_EQ(XmlDeclaredEncoding(start + std::string(blanks + 1, ' ') + end), L"");
}

}  // namespace
}  // namespace rl
