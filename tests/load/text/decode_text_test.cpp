#include "load/text/decode_text.h"

#include <gtest/gtest.h>

#include "load/text/detect_encoding.h"

namespace rl {
namespace {

using namespace std::string_view_literals;

struct Decoded {
    std::wstring text;
    TextEncoding found;
};

Decoded Decode(std::string_view bytes, const EncodingRequest& request = {}) {
    Decoded out;
    out.found = {L"left over", true, 99};
    out.text = DecodeText(bytes, request, out.found);
    return out;
}

const EncodingRequest kCentralEurope{.ansiCodePage = 1250};

TEST(DecodeText, CallsAnEmptyFileUtf8) {
    const Decoded out = Decode("", kCentralEurope);
    EXPECT_EQ(out.text, L"");
    EXPECT_EQ(out.found, (TextEncoding{L"UTF-8", false, 1250}));
}

TEST(DecodeText, SkipsAMarkAndRemembersIt) {
    EXPECT_EQ(Decode("\xEF\xBB\xBF"
                     "a\xC3\xA9")
                  .text,
              L"a\x00E9");
    EXPECT_EQ(Decode("\xEF\xBB\xBF"
                     "a")
                  .found,
              (TextEncoding{L"UTF-8", true, 0}));
    EXPECT_EQ(Decode("\xFF\xFE"
                     "a\0"sv)
                  .text,
              L"a");
    EXPECT_EQ(Decode("\xFF\xFE"
                     "a\0"sv)
                  .found,
              (TextEncoding{L"UTF-16LE", true, 0}));
    EXPECT_EQ(Decode("\xFE\xFF"
                     "\0a"sv)
                  .text,
              L"a");
    EXPECT_EQ(Decode("\xFE\xFF"
                     "\0a"sv)
                  .found,
              (TextEncoding{L"UTF-16BE", true, 0}));
}

TEST(DecodeText, KeepsAMarkThatComesLater) {
    EXPECT_EQ(Decode("a\xEF\xBB\xBF").text, L"a\xFEFF");
    EXPECT_EQ(Decode("\xEF\xBB\xBF\xEF\xBB\xBF").text, L"\xFEFF");
}

TEST(DecodeText, TellsUnmarkedUtf16ByOneNulInTheFirstTwoBytes) {
    EXPECT_EQ(Decode("\x41\0"sv).found.name, L"UTF-16LE");
    EXPECT_EQ(Decode("\x41\0"sv).text, L"A");
    EXPECT_EQ(Decode("\0\x41"sv).found.name, L"UTF-16BE");
    EXPECT_EQ(Decode("\0\x41"sv).text, L"A");
    EXPECT_FALSE(Decode("\0\x41"sv).found.hasBom);
}

TEST(DecodeText, AsksForTheNulByteBeforeItJudgesUtf8) {
    EXPECT_EQ(Decode("\xE9\0"sv).found.name, L"UTF-16LE");
    EXPECT_EQ(Decode("a\0b"sv).text, L"a");  // valid UTF-8 too
}

TEST(DecodeText, TakesTwoNulBytesOrOneForUtf8) {
    EXPECT_EQ(Decode("\0\0"sv).found.name, L"UTF-8");
    EXPECT_EQ(Decode("\0\0"sv).text, std::wstring(2, L'\0'));
    EXPECT_EQ(Decode("\0"sv).found.name, L"UTF-8");
}

TEST(DecodeText, DropsAnOddLastByteOfUtf16) {
    EXPECT_EQ(Decode("\xFF\xFE"
                     "a\0b"sv)
                  .text,
              L"a");
    EXPECT_EQ(Decode("\xFF\xFE"
                     "a"sv)
                  .text,
              L"");
    EXPECT_EQ(Decode("\0a\0"sv).text, L"a");
}

TEST(DecodeText, LeavesSurrogatesOfUtf16Alone) {
    const std::wstring lone(1, static_cast<wchar_t>(0xDC00));
    EXPECT_EQ(Decode("\xFF\xFE\x00\xDC"sv).text, lone);
    EXPECT_EQ(Decode("\xFE\xFF\xDC\x00"sv).text, lone);
}

TEST(DecodeText, GivesUtf8BeyondTheBasicPlaneAsTwoUnits) {
    EXPECT_EQ(Decode("\xC3\xA9").text, L"\x00E9");
    const std::wstring pair{static_cast<wchar_t>(0xD83D), static_cast<wchar_t>(0xDE00)};
    EXPECT_EQ(Decode("\xF0\x9F\x98\x80").text, pair);
}

TEST(DecodeText, FallsBackToTheCodePageAskedFor) {
    const Decoded out = Decode("caf\xE9\x9C", kCentralEurope);
    EXPECT_EQ(out.text, L"caf\x00E9\x015B");
    EXPECT_EQ(out.found, (TextEncoding{L"ANSI", false, 1250}));
    EXPECT_EQ(Decode("caf\xE9\x9C").text, L"caf\x00E9\x0153");  // the system's own page is 1252
    EXPECT_EQ(Decode("\xE9").found, (TextEncoding{L"ANSI", false, 0}));
}

TEST(DecodeText, CallsAFileThatEndsInsideASequenceAnsi) {
    EXPECT_EQ(Decode("abc\xC3").found.name, L"ANSI");
    EXPECT_EQ(Decode("abc\xE4\xBD").found.name, L"ANSI");
    EXPECT_EQ(Decode("abc\xF0\x9F\x98").found.name, L"ANSI");
}

TEST(DecodeText, JudgesTheWholeFile) {
    const std::string clean(1'000'000, 'x');
    EXPECT_EQ(Decode(clean).found.name, L"UTF-8");
    const Decoded late = Decode(clean + "\xE9");
    EXPECT_EQ(late.found.name, L"ANSI");
    EXPECT_EQ(late.text.size(), 1'000'001u);
    EXPECT_EQ(late.text.back(), L'\x00E9');
}

TEST(DecodeText, KeepsTheLabelUtf8ForOverlongFormsAndSurrogates) {
    const Decoded overlong = Decode("a\xC0\x80z");
    EXPECT_EQ(overlong.found.name, L"UTF-8");
    EXPECT_EQ(overlong.text.front(), L'a');
    EXPECT_EQ(overlong.text.find(L'\xFFFD'), 1u);
    EXPECT_EQ(overlong.text.back(), L'z');
    EXPECT_EQ(Decode("\xED\xA0\x80").found.name, L"UTF-8");
}

TEST(DecodeText, ReplacesWhatIsInvalidInForcedUtf8) {
    const Decoded out = Decode("a\xFFz", {.name = L"UTF-8"});
    EXPECT_EQ(out.text, L"a\xFFFDz");
    EXPECT_EQ(out.found, (TextEncoding{L"UTF-8", false, 0}));
    EXPECT_EQ(Decode("a\xE4\xBD", {.name = L"UTF-8"}).text, L"a\xFFFD");
}

TEST(DecodeText, KeepsAForcedNameAsItWasGiven) {
    EXPECT_EQ(Decode("ab", {.name = L"utf-16le"}).found.name, L"utf-16le");
    EXPECT_EQ(Decode("a\0"sv, {.name = L"utf-16le"}).text, L"a");
}

TEST(DecodeText, SkipsTheMarkOfTheForcedEncodingOnly) {
    const Decoded fits = Decode(
        "\xEF\xBB\xBF"
        "a",
        {.name = L"utf-8"});
    EXPECT_TRUE(fits.found.hasBom);
    EXPECT_EQ(fits.text, L"a");
    const Decoded other = Decode(
        "\xEF\xBB\xBF"
        "a",
        {.name = L"UTF-16LE"});
    EXPECT_FALSE(other.found.hasBom);
    EXPECT_EQ(other.text, L"\xBBEF\x61BF");
    EXPECT_EQ(Decode("\xFF\xFE", {.name = L"UTF-16BE"}).text, L"\xFFFE");
    EXPECT_EQ(Decode("\xEF\xBB\xBF", {.name = L"ANSI", .ansiCodePage = 1252}).text,
              L"\x00EF\x00BB\x00BF");
}

TEST(DecodeText, TakesAnUnknownForcedNameForTheCodePage) {
    const Decoded out = Decode("\xC3\xA9", {.name = L"Klingon", .ansiCodePage = 1252});
    EXPECT_EQ(out.text, L"\x00C3\x00A9");
    EXPECT_EQ(out.found, (TextEncoding{L"Klingon", false, 1252}));
}

TEST(DecodeText, LetsAnXmlDeclarationBeatTheCodePageAskedFor) {
    constexpr std::string_view bytes = "<?xml encoding='windows-1251'?><a>\xE0</a>";
    const Decoded xml = Decode(bytes, {.ansiCodePage = 1250, .honourXmlDeclaration = true});
    EXPECT_EQ(xml.found, (TextEncoding{L"ANSI", false, 1251}));
    EXPECT_NE(xml.text.find(L'\x0430'), std::wstring::npos);
    const Decoded table = Decode(bytes, {.ansiCodePage = 1250});
    EXPECT_EQ(table.found.codePage, 1250u);
}

TEST(DecodeText, IgnoresADeclarationOfUtf8OnBytesThatAreNot) {
    const EncodingRequest request{.ansiCodePage = 1250, .honourXmlDeclaration = true};
    EXPECT_EQ(Decode("<?xml encoding='UTF-8'?>\xE9", request).found.codePage, 1250u);
    EXPECT_EQ(Decode("<?xml encoding='65001'?>\xE9", request).found.codePage, 1250u);
    EXPECT_EQ(Decode("<?xml encoding='none'?>\xE9", request).found.codePage, 1250u);
}

TEST(DecodeText, IgnoresADeclarationOnValidUtf8) {
    const EncodingRequest request{.honourXmlDeclaration = true};
    const Decoded out = Decode("<?xml encoding='windows-1251'?>\xC3\xA9", request);
    EXPECT_EQ(out.found, (TextEncoding{L"UTF-8", false, 0}));
}

TEST(DecodeText, GivesNoTextForAPageTheSystemDoesNotKnow) {
    const EncodingRequest request{.honourXmlDeclaration = true};
    const Decoded out = Decode("<?xml encoding='iso-8859-3'?>\xE9", request);
    EXPECT_EQ(out.text, L"");
    EXPECT_EQ(out.found, (TextEncoding{L"ANSI", false, 8859}));
}

std::string Mixed(size_t size) {
    std::string out;
    while (out.size() < size) {
        out += out.size() % 3 == 0 ? "plain text, more of it\r\n"
                                   : "\xC3\xA9\xE4\xBD\xA0\xF0\x9F\x98\x80,";
    }
    return out;
}

TEST(DecodeText, LeavesLittleRoomUnusedWhateverTheText) {
    const std::string chinese = [] {
        std::string out;
        while (out.size() < 3'000'000) {
            out += "\xE4\xBD\xA0";
        }
        return out;
    }();
    for (const std::string& bytes :
         {std::string(3'000'000, 'a'), chinese, Mixed(3'000'000),
          std::string(2'000'000, 'a') + chinese, chinese + std::string(2'000'000, 'a')}) {
        const Decoded out = Decode(bytes);
        EXPECT_EQ(out.found.name, L"UTF-8");
        EXPECT_LE(out.text.capacity(), out.text.size() + out.text.size() / 50);
    }
}

TEST(DecodeText, ConvertsTextThatItsSamplesMisjudge) {
    // Every sampled stretch is Chinese, everything between them ASCII.
    std::string bytes(4'194'304, 'a');
    for (size_t at = 0; at + 600 < bytes.size(); at += bytes.size() / 256) {
        for (size_t character = 0; character < 170; ++character) {
            bytes.replace(at + 3 * character, 3, "\xE4\xBD\xA0");
        }
    }
    const Decoded out = Decode(bytes);
    EXPECT_EQ(out.found.name, L"UTF-8");
    EXPECT_EQ(out.text.size(), 4'194'304u - 2 * 256 * 170);
    EXPECT_EQ(out.text.substr(168, 4),
              L"\x4F60\x4F60"
              L"aa");
    EXPECT_EQ(out.text.back(), L'a');
}

TEST(DecodeText, CutsNoSequenceWhereItPausesToAsk) {
    // Pauses come every 4 MiB; three offsets put a cut inside the sequence there.
    for (const size_t lead : {0u, 1u, 2u}) {
        std::string bytes(lead, '.');
        while (bytes.size() < 9'000'000) {
            bytes += "\xE4\xBD\xA0";
        }
        const Decoded out = Decode(bytes);
        EXPECT_EQ(out.found.name, L"UTF-8");
        EXPECT_EQ(out.text.find_first_not_of(L'\x4F60', lead), std::wstring::npos);
    }
}

TEST(DecodeText, EndsEarlyWhenNobodyWaits) {
    int asked = 0;
    TextEncoding found;
    const std::string bytes(20'000'000, 'a');
    const std::wstring text = DecodeText(bytes, {}, found, [&asked] { return ++asked > 2; });
    EXPECT_LT(text.size(), 10'000'000u);
    EXPECT_GE(asked, 3);
}

TEST(DecodeText, PausesToAskInUtf16Too) {
    const std::string bytes(size_t{9} << 20, 'x');
    TextEncoding found;
    int asked = 0;
    const auto stopAtSecond = [&] { return ++asked == 2; };

    const std::wstring whole = DecodeText(bytes + 'x', {.name = L"UTF-16LE"}, found);
    const std::wstring part = DecodeText(bytes, {.name = L"UTF-16BE"}, found, stopAtSecond);

    EXPECT_EQ(whole, std::wstring(bytes.size() / 2, L'\x7878'));
    EXPECT_EQ(part, std::wstring(size_t{2} << 20, L'\x7878'));
    EXPECT_EQ(asked, 2);
}

TEST(DecodeText, DoesNotBeginWithACodePageWhenNobodyWaits) {
    TextEncoding found;
    int asked = 0;

    EXPECT_EQ(
        DecodeText("\xE4 \xE4 text", {.ansiCodePage = 1252}, found, [&] { return ++asked >= 1; }),
        L"");
    EXPECT_GE(asked, 1);
}

}  // namespace
}  // namespace rl
