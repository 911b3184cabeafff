#include "model/xml_text.h"

#include <gtest/gtest.h>

#include <string>

#include "model/xml_document.h"

namespace rl {
namespace {

TEST(XmlEntities, ResolvesTheFiveNamesAndNumbers) {
    EXPECT_EQ(DecodeEntities(L"&lt;a&gt; &amp; &quot;b&apos;"), L"<a> & \"b'");
    EXPECT_EQ(DecodeEntities(L"&#65;&#x42;&#X63;&#x6d;"), L"ABcm");
}

TEST(XmlEntities, KeepsOnlyTheLow16BitsOfANumber) {
    EXPECT_EQ(DecodeEntities(L"&#128512;"), std::wstring(1, L'\xF600'));
    EXPECT_EQ(DecodeEntities(L"&#x1F600;"), std::wstring(1, L'\xF600'));
    EXPECT_EQ(DecodeEntities(L"&#99999999999999999999999;"), std::wstring(1, L'\xFFFF'));
}

TEST(XmlEntities, LeavesUnknownAndBrokenReferencesAsWritten) {
    for (const std::wstring_view text :
         {L"&copy;", L"&unknown", L"&", L"&;", L"&#;", L"&#x;", L"&#12a;", L"&#xg;", L"&AMP;",
          L"a & b", L"&#-1;", L"&# 65;"}) {
        EXPECT_EQ(DecodeEntities(text), text);
    }
}

TEST(XmlEntities, GoesOnBehindAnAmpersandThatStays) {
    EXPECT_EQ(DecodeEntities(L"&&amp;"), L"&&");
    EXPECT_EQ(DecodeEntities(L"&copy;&lt;"), L"&copy;<");
    EXPECT_EQ(DecodeEntities(L"&amp;lt;"), L"&lt;");
}

TEST(XmlEntities, LooksForTheSemicolonWithin32Units) {
    const std::wstring zeros(28, L'0');
    EXPECT_EQ(DecodeEntities(L"&#" + zeros + L"65;"), L"A");
    EXPECT_EQ(DecodeEntities(L"&#0" + zeros + L"65;"), L"&#0" + zeros + L"65;");
}

TEST(XmlEntities, TakesTimeInProportionForManyAmpersands) {
    const std::wstring text(1'000'000, L'&');
    EXPECT_TRUE(DecodeEntities(text) == text);
}

TEST(XmlEscapes, WritesMarkupAsReferencesInText) {
    EXPECT_EQ(EscapeText(L"a<b>&\"'"), L"a&lt;b&gt;&amp;\"'");
}

TEST(XmlEscapes, WritesOnlyTheAttributesOwnQuoteAsAReference) {
    EXPECT_EQ(EscapeAttribute(L"a\"b'<", L'"'), L"a&quot;b'&lt;");
    EXPECT_EQ(EscapeAttribute(L"a\"b'>", L'\''), L"a\"b&apos;&gt;");
    EXPECT_EQ(EscapeAttribute(L"&x", L'"'), L"&amp;x");
}

TEST(XmlEscapes, ComeBackThroughDecoding) {
    const std::wstring text = L"&amp; <\"'> \xD83D\xDE00 ]]> &#65;";
    EXPECT_EQ(DecodeEntities(EscapeText(text)), text);
    EXPECT_EQ(DecodeEntities(EscapeAttribute(text, L'\'')), text);
}

}  // namespace
}  // namespace rl
