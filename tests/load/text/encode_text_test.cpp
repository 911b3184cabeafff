#include "load/text/encode_text.h"

#include <gtest/gtest.h>

#include "load/text/decode_text.h"
#include "load/text/single_byte_page.h"

namespace rl {
namespace {

using namespace std::string_view_literals;

/// The bytes, or "(refused)" when the text cannot be encoded and no bytes are left behind.
std::string Encode(std::wstring_view text, const TextEncoding& encoding) {
    std::string bytes = "left over";
    return EncodeText(text, encoding, bytes) ? bytes : bytes.empty() ? "(refused)" : bytes;
}

const std::wstring kSmile{static_cast<wchar_t>(0xD83D), static_cast<wchar_t>(0xDE00)};
const std::wstring kHighAlone(1, static_cast<wchar_t>(0xD83D));
const std::wstring kLowAlone(1, static_cast<wchar_t>(0xDE00));

TEST(EncodeText, WritesUtf8WithAMarkOnlyWhenThereWasOne) {
    EXPECT_EQ(Encode(L"a\x00E9\x4F60", {.name = L"UTF-8"}), "a\xC3\xA9\xE4\xBD\xA0");
    EXPECT_EQ(Encode(L"a", {.name = L"UTF-8", .hasBom = true}),
              "\xEF\xBB\xBF"
              "a");
    EXPECT_EQ(Encode(kSmile, {.name = L"UTF-8"}), "\xF0\x9F\x98\x80");
}

TEST(EncodeText, ReplacesUnpairedSurrogatesInUtf8) {
    EXPECT_EQ(Encode(kHighAlone, {.name = L"UTF-8"}), "\xEF\xBF\xBD");
    EXPECT_EQ(Encode(kLowAlone + L"a", {.name = L"UTF-8"}),
              "\xEF\xBF\xBD"
              "a");
    EXPECT_EQ(Encode(kHighAlone + kSmile, {.name = L"UTF-8"}), "\xEF\xBF\xBD\xF0\x9F\x98\x80");
    EXPECT_EQ(Encode(kHighAlone + L"a", {.name = L"UTF-8"}),
              "\xEF\xBF\xBD"
              "a");
}

TEST(EncodeText, WritesUtf16InEitherOrder) {
    EXPECT_EQ(Encode(L"a\x4F60", {.name = L"UTF-16LE"}), "a\0\x60\x4F"sv);
    EXPECT_EQ(Encode(L"a\x4F60", {.name = L"UTF-16BE"}), "\0a\x4F\x60"sv);
    EXPECT_EQ(Encode(L"a", {.name = L"UTF-16LE", .hasBom = true}),
              "\xFF\xFE"
              "a\0"sv);
    EXPECT_EQ(Encode(L"a", {.name = L"UTF-16BE", .hasBom = true}), "\xFE\xFF\0a"sv);
    EXPECT_EQ(Encode(kLowAlone, {.name = L"UTF-16BE"}), "\xDE\0"sv);
}

TEST(EncodeText, ComparesLabelsWithoutCase) {
    EXPECT_EQ(Encode(L"a", {.name = L"utf-8"}), "a");
    EXPECT_EQ(Encode(L"a", {.name = L"Utf-16le"}), "a\0"sv);
    EXPECT_EQ(Encode(L"\x00E9", {.name = L"ansi", .codePage = 1252}), "\xE9");
}

TEST(EncodeText, WritesTheCodePageAndNoMark) {
    EXPECT_EQ(Encode(L"\x20AC", {.name = L"ANSI", .hasBom = true, .codePage = 1252}), "\x80");
    EXPECT_EQ(Encode(L"\x20AC", {.name = L"ANSI"}), "\x80");  // the system's own page is 1252
    EXPECT_EQ(Encode(L"\x0430", {.name = L"ANSI", .codePage = 1251}), "\xE0");
}

TEST(EncodeText, RefusesWhatTheCodePageCannotHold) {
    EXPECT_EQ(Encode(L"\x03A9", {.name = L"ANSI", .codePage = 1252}), "(refused)");
    EXPECT_EQ(Encode(L"ok\x4F60", {.name = L"ANSI", .codePage = 1252}), "(refused)");
    EXPECT_EQ(Encode(kSmile, {.name = L"ANSI", .codePage = 1252}), "(refused)");
}

TEST(EncodeText, RefusesLookalikes) {
    EXPECT_EQ(Encode(L"\x0100", {.name = L"ANSI", .codePage = 1252}), "(refused)");  // not "A"
    EXPECT_EQ(Encode(L"\x2260", {.name = L"ANSI", .codePage = 1252}), "(refused)");  // not "="
    EXPECT_EQ(Encode(L"\xFF21", {.name = L"ANSI", .codePage = 1252}), "(refused)");  // not "A"
}

TEST(EncodeText, KeepsAQuestionMarkThatIsOne) {
    EXPECT_EQ(Encode(L"why?", {.name = L"ANSI", .codePage = 1252}), "why?");
}

TEST(EncodeText, ConvertsUnicodePagesWithoutTheCheck) {
    EXPECT_EQ(Encode(L"\x03A9", {.name = L"ANSI", .codePage = 65001}), "\xCE\xA9");
}

TEST(EncodeText, RefusesAMissingPageAndUnknownLabels) {
    EXPECT_EQ(Encode(L"a", {.name = L"ANSI", .codePage = 8859}), "(refused)");
    EXPECT_EQ(Encode(L"a", {.name = L"UTF-32"}), "(refused)");
    EXPECT_EQ(Encode(L"a", {.name = L""}), "(refused)");
    EXPECT_EQ(Encode(L"", {.name = L"UTF-32"}), "(refused)");
}

TEST(EncodeText, TakesTheEmptyTextForEveryLabel) {
    EXPECT_EQ(Encode(L"", {.name = L"UTF-8"}), "");
    EXPECT_EQ(Encode(L"", {.name = L"UTF-8", .hasBom = true}), "\xEF\xBB\xBF");
    EXPECT_EQ(Encode(L"", {.name = L"UTF-16BE", .hasBom = true}), "\xFE\xFF");
    EXPECT_EQ(Encode(L"", {.name = L"ANSI", .codePage = 8859}), "");
}

TEST(EncodeText, GivesLongTextsBackUnchanged) {
    std::string bytes;
    while (bytes.size() < 300'000) {
        bytes += "plain,\xC3\xA9,\"\xE4\xBD\xA0\xF0\x9F\x98\x80\"\r\n";
    }
    TextEncoding found;
    const std::wstring text = DecodeText(bytes, {}, found);
    EXPECT_EQ(Encode(text, found), bytes);
}

TEST(EncodeText, GivesATextBackThatItsSamplesMisjudge) {
    // Every sampled stretch is ASCII, everything between them Chinese.
    std::wstring text(4'194'304, L'\x4F60');
    for (size_t at = 0; at < text.size(); at += text.size() / 256) {
        text.replace(at, 256, 256, L'a');
    }
    const std::string bytes = Encode(text, {.name = L"UTF-8", .hasBom = true});
    EXPECT_EQ(bytes.size(), 3 + 65'536 + 3u * (4'194'304 - 65'536));
    TextEncoding found;
    EXPECT_EQ(DecodeText(bytes, {}, found), text);
    EXPECT_TRUE(found.hasBom);
}

TEST(EncodeText, PartsNoPairWhereItPauses) {
    std::wstring text(1, L'a');
    while (text.size() < 300'000) {
        text += kSmile;
    }
    const std::string bytes = Encode(text, {.name = L"UTF-8"});
    EXPECT_EQ(bytes.size(), 1 + 4 * (text.size() / 2));
    EXPECT_EQ(bytes.find("\xEF\xBF\xBD"), std::string::npos);
}

TEST(EncodeText, GivesLongTextsOfACodePageBackUnchanged) {
    std::string bytes;
    while (bytes.size() < 300'000) {
        bytes += "plain text of some length,\xE9\x80\xFF\r\n";
    }
    for (const uint32_t page : {1250u, 1251u, 1252u, 20866u, 866u}) {
        TextEncoding found;
        const std::wstring text = DecodeText(bytes, {.ansiCodePage = page}, found);
        EXPECT_EQ(found.name, L"ANSI");
        EXPECT_EQ(Encode(text, found), bytes);
    }
}

TEST(EncodeText, RefusesALongTextForOneCharacter) {
    std::wstring text(100'000, L'a');
    text[99'000] = L'\x4F60';
    EXPECT_EQ(Encode(text, {.name = L"ANSI", .codePage = 1252}), "(refused)");
}

TEST(EncodeText, ReadsLongTextsOfTwoByteCharactersBack) {
    std::string bytes;
    while (bytes.size() < 200'000) {
        bytes += "ab,\x93\x8C\x8B\x9E\\\r\n";
    }
    TextEncoding found;
    const std::wstring text = DecodeText(bytes, {.ansiCodePage = 932}, found);
    EXPECT_EQ(text.substr(0, 6), L"ab,\x6771\x4EAC\\");
    EXPECT_EQ(Encode(text, found), bytes);
}

TEST(SingleBytePage, ExistsForPagesOfOneByteACharacter) {
    EXPECT_TRUE(SingleBytePage::Make(1252).has_value());
    EXPECT_TRUE(SingleBytePage::Make(0).has_value());
    EXPECT_TRUE(SingleBytePage::Make(20866).has_value());
    EXPECT_FALSE(SingleBytePage::Make(932).has_value());
    EXPECT_FALSE(SingleBytePage::Make(65001).has_value());
    EXPECT_FALSE(SingleBytePage::Make(8859).has_value());
}

TEST(SingleBytePage, LeavesUnitsItDoesNotHoldToTheSystem) {
    const std::optional<SingleBytePage> page = SingleBytePage::Make(1252);
    ASSERT_TRUE(page.has_value());
    std::string bytes = "left over";
    EXPECT_FALSE(page->Encode(L"abc\x0100", bytes));
    EXPECT_EQ(bytes, "");
    EXPECT_TRUE(page->Encode(L"abc\x20AC", bytes));
    EXPECT_EQ(bytes, "abc\x80");
}

}  // namespace
}  // namespace rl
