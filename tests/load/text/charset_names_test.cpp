#include "load/text/charset_names.h"

#include <gtest/gtest.h>

namespace rl {
namespace {

TEST(CodePageForCharset, KnowsEveryNameInItsTable) {
    EXPECT_EQ(CodePageForCharset(L"utf-8"), 65001u);
    EXPECT_EQ(CodePageForCharset(L"utf8"), 65001u);
    EXPECT_EQ(CodePageForCharset(L"us-ascii"), 20127u);
    EXPECT_EQ(CodePageForCharset(L"ascii"), 20127u);
    EXPECT_EQ(CodePageForCharset(L"iso-8859-1"), 28591u);
    EXPECT_EQ(CodePageForCharset(L"latin1"), 28591u);
    EXPECT_EQ(CodePageForCharset(L"iso-8859-2"), 28592u);
    EXPECT_EQ(CodePageForCharset(L"latin2"), 28592u);
    EXPECT_EQ(CodePageForCharset(L"iso-8859-5"), 28595u);
    EXPECT_EQ(CodePageForCharset(L"iso-8859-7"), 28597u);
    EXPECT_EQ(CodePageForCharset(L"iso-8859-9"), 28599u);
    EXPECT_EQ(CodePageForCharset(L"iso-8859-15"), 28605u);
    EXPECT_EQ(CodePageForCharset(L"windows-1250"), 1250u);
    EXPECT_EQ(CodePageForCharset(L"cp1250"), 1250u);
    EXPECT_EQ(CodePageForCharset(L"windows-1251"), 1251u);
    EXPECT_EQ(CodePageForCharset(L"cp1251"), 1251u);
    EXPECT_EQ(CodePageForCharset(L"windows-1252"), 1252u);
    EXPECT_EQ(CodePageForCharset(L"cp1252"), 1252u);
    EXPECT_EQ(CodePageForCharset(L"windows-1253"), 1253u);
    EXPECT_EQ(CodePageForCharset(L"windows-1254"), 1254u);
    EXPECT_EQ(CodePageForCharset(L"windows-1255"), 1255u);
    EXPECT_EQ(CodePageForCharset(L"windows-1256"), 1256u);
    EXPECT_EQ(CodePageForCharset(L"windows-1257"), 1257u);
    EXPECT_EQ(CodePageForCharset(L"windows-1258"), 1258u);
    EXPECT_EQ(CodePageForCharset(L"cp852"), 852u);
    EXPECT_EQ(CodePageForCharset(L"ibm852"), 852u);
    EXPECT_EQ(CodePageForCharset(L"cp866"), 866u);
    EXPECT_EQ(CodePageForCharset(L"ibm866"), 866u);
    EXPECT_EQ(CodePageForCharset(L"koi8-r"), 20866u);
    EXPECT_EQ(CodePageForCharset(L"koi8-u"), 21866u);
    EXPECT_EQ(CodePageForCharset(L"shift_jis"), 932u);
    EXPECT_EQ(CodePageForCharset(L"sjis"), 932u);
    EXPECT_EQ(CodePageForCharset(L"euc-jp"), 20932u);
    EXPECT_EQ(CodePageForCharset(L"euc-kr"), 51949u);
    EXPECT_EQ(CodePageForCharset(L"gb2312"), 936u);
    EXPECT_EQ(CodePageForCharset(L"gbk"), 936u);
    EXPECT_EQ(CodePageForCharset(L"gb18030"), 54936u);
    EXPECT_EQ(CodePageForCharset(L"big5"), 950u);
}

TEST(CodePageForCharset, IgnoresLetterCase) {
    EXPECT_EQ(CodePageForCharset(L"Shift_JIS"), 932u);
    EXPECT_EQ(CodePageForCharset(L"KOI8-R"), 20866u);
}

TEST(CodePageForCharset, WantsTheWholeName) {
    EXPECT_EQ(CodePageForCharset(L""), 0u);
    EXPECT_EQ(CodePageForCharset(L"cp1253"), 0u);
    EXPECT_EQ(CodePageForCharset(L"latin"), 0u);
    EXPECT_EQ(CodePageForCharset(L"latin11"), 0u);
    EXPECT_EQ(CodePageForCharset(L" utf-8"), 0u);
    EXPECT_EQ(CodePageForCharset(L"iso-8859-3"), 0u);
}

TEST(CodePageForDeclaration, PrefersTheTableToTheNumber) {
    EXPECT_EQ(CodePageForDeclaration(L"ISO-8859-2"), 28592u);
}

TEST(CodePageForDeclaration, FindsTheFirstNumber) {
    EXPECT_EQ(CodePageForDeclaration(L"windows-874"), 874u);
    EXPECT_EQ(CodePageForDeclaration(L"cp437"), 437u);
    EXPECT_EQ(CodePageForDeclaration(L"iso-8859-3"), 8859u);
    EXPECT_EQ(CodePageForDeclaration(L"x0437y"), 437u);
    EXPECT_EQ(CodePageForDeclaration(L"utf-16"), 0u);  // and stops there
    EXPECT_EQ(CodePageForDeclaration(L"ebcdic"), 0u);
    EXPECT_EQ(CodePageForDeclaration(L""), 0u);
}

TEST(CodePageForDeclaration, TakesNumbersFrom37To65001) {
    EXPECT_EQ(CodePageForDeclaration(L"cp36"), 0u);
    EXPECT_EQ(CodePageForDeclaration(L"cp37"), 37u);
    EXPECT_EQ(CodePageForDeclaration(L"cp65001"), 65001u);
    EXPECT_EQ(CodePageForDeclaration(L"cp65002"), 0u);
    EXPECT_EQ(CodePageForDeclaration(L"cp4294968548"), 0u);  // 1252 when cut to 32 bits
    EXPECT_EQ(CodePageForDeclaration(L"cp99999999999999999999999999"), 0u);
}

}  // namespace
}  // namespace rl
