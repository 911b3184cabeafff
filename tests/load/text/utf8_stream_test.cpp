#include "load/text/utf8_stream.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>

#include "load/text/decode_text.h"

namespace rl {
namespace {

using namespace std::string_view_literals;

/// The text when the bytes are taken in pieces of `step`; nothing when they are refused.
std::optional<std::wstring> InPieces(std::string_view bytes, size_t step) {
    Utf8Stream stream(bytes.size());
    for (size_t at = 0; at < bytes.size(); at += step) {
        if (!stream.Feed(bytes.substr(at, step))) {
            return std::nullopt;
        }
    }
    return stream.Finish() ? std::optional(stream.TakeText()) : std::nullopt;
}

TEST(Utf8Stream, ConvertsTheSameWhereverThePiecesEnd) {
    const std::string_view bytes = "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80z\xC2\xA0"sv;
    TextEncoding found;
    const std::wstring whole = DecodeText(bytes, {}, found);
    for (size_t step = 1; step <= bytes.size(); ++step) {
        EXPECT_EQ(InPieces(bytes, step), whole) << step;
    }
}

TEST(Utf8Stream, HoldsATextThatGrowsDenserThanItsBeginning) {
    std::string bytes;
    for (int i = 0; i < 5000; ++i) {
        bytes += "\xE4\xB8\xAD";  // three bytes a unit
    }
    bytes += std::string(40000, 'x');  // one byte a unit
    const std::optional<std::wstring> text = InPieces(bytes, 1000);
    ASSERT_TRUE(text);
    EXPECT_EQ(text->size(), 45000U);
    EXPECT_EQ(std::ranges::count(*text, L'x'), 40000);
}

TEST(Utf8Stream, ConvertsALargeTextAsTheWholeWhateverItsBeginningLooksLike) {
    std::string dense;
    std::string wide;
    for (uint32_t i = 0; dense.size() < 6'000'000; ++i) {
        dense += "unit " + std::to_string(i);
        wide += "\xE4\xB8\xAD\xF0\x9F\x98\x80" + std::to_string(i);
    }
    for (const std::string& bytes : {dense + wide, wide + dense, wide + dense + wide}) {
        TextEncoding found;
        const std::wstring whole = DecodeText(bytes, {}, found);
        EXPECT_TRUE(InPieces(bytes, 1'000'003) == whole);
        EXPECT_TRUE(InPieces(bytes, bytes.size()) == whole);
    }
}

TEST(Utf8Stream, OfALargeTextCanBeLeftInTheMiddle) {
    const std::string bytes(30'000'000, 'x');
    for (const size_t fed : {size_t{1'000'000}, size_t{9'000'000}}) {
        Utf8Stream stream(bytes.size());
        ASSERT_TRUE(stream.Feed(std::string_view(bytes).substr(0, fed)));
    }
    Utf8Stream cut(bytes.size());
    ASSERT_TRUE(cut.Feed(std::string_view(bytes).substr(0, 20'000'000)));
    EXPECT_TRUE(cut.Finish());
    EXPECT_EQ(cut.TakeText().size(), 20'000'000U);
}

TEST(Utf8Stream, RefusesWhatIsNotWellFormedWhereverThePiecesEnd) {
    const std::string_view ill[] = {
        "ab\xC0\x80z1234"sv,      // overlong
        "ab\xED\xA0\x80z1234"sv,  // a surrogate
        "ab\x80z123456"sv,        // a stray continuation
        "ab\xF8\x88\x80\x80\x80z"sv,
        "ab\xE2\x82"sv,  // cut at the end
        "ab\xC3"sv,
        "ab\xFF"sv,
    };
    for (const std::string_view bytes : ill) {
        for (size_t step = 1; step <= bytes.size(); ++step) {
            EXPECT_EQ(InPieces(bytes, step), std::nullopt) << bytes << " by " << step;
        }
    }
}

TEST(Utf8Stream, AnEmptyFileIsAnEmptyText) {
    EXPECT_EQ(InPieces("", 1), L"");
}

TEST(Utf8Stream, BeginsOnlyWhereTheWholeFileWouldBeTakenForUtf8) {
    struct Case {
        std::string_view head;
        std::wstring_view name;
        bool begins;
    };
    const Case cases[] = {
        {"abc"sv, L"", true},
        {""sv, L"", true},
        {"\xEF\xBB\xBF"
         "a"sv,
         L"", true},
        {"\xFF\xFE"
         "a\0"sv,
         L"", false},
        {"a\0b\0"sv, L"", false},
        {"\0a\0b"sv, L"", false},
        {"abc"sv, L"utf-8", true},
        {"\xFF\xFE"
         "a\0"sv,
         L"UTF-8", true},
        {"abc"sv, L"ANSI", false},
        {"abc"sv, L"UTF-16LE", false},
    };
    for (const Case& one : cases) {
        const EncodingRequest request{.name = std::wstring(one.name), .ansiCodePage = 1250};
        TextEncoding found;
        TextEncoding whole;
        EXPECT_EQ(Utf8Stream::MayBegin(one.head, request, found), one.begins) << one.head;
        (void)DecodeText(one.head, request, whole);
        if (one.begins) {
            EXPECT_EQ(found, whole) << one.head;
        }
    }
}

}  // namespace
}  // namespace rl
