// Every kernel against the scalar loop: whatever the text, the same progress and the same units.
#include "load/text/simd_utf8.h"

#include <gtest/gtest.h>

#include <random>

#include "load/text/cpu_features.h"
#include "load/text/utf_kernels.h"

namespace rl {
namespace {

using utf::Progress;
using Unit = simd::TextUnit;
using Units = std::basic_string<Unit>;

struct Converted {
    Progress progress;
    Units units;

    bool operator==(const Converted&) const = default;
};

template <typename Convert>
Converted Run(std::string_view bytes, size_t room, Convert convert) {
    Units units(room, Unit{'?'});
    const Progress done = convert(bytes, std::span<Unit>(units));
    units.resize(done.written);
    return {done, units};
}

Converted Scalar(std::string_view bytes, size_t room) {
    return Run(bytes, room, utf::Utf8ToUnitsScalar<Unit>);
}

Converted Kernel(utf::Utf8Kernel<Unit> kernel, std::string_view bytes, size_t room) {
    return Run(bytes, room, [kernel](std::string_view in, std::span<Unit> out) {
        return utf::Utf8ToUnitsWith(kernel, in, out);
    });
}

/// Holds a kernel to the scalar loop on one text, with ample room and with room for half of it.
void ExpectSame(std::string_view bytes) {
    for (const size_t room : {bytes.size() + 1, bytes.size() / 2}) {
        const Converted expected = Scalar(bytes, room);
        EXPECT_EQ(Kernel(simd::Utf8ToUnitsSse2<Unit>, bytes, room), expected);
        if (HasAvx2()) {
            EXPECT_EQ(Kernel(simd::Utf8ToUnitsAvx2<Unit>, bytes, room), expected);
        }
    }
}

std::string Repeat(std::string_view piece, size_t size) {
    std::string out;
    while (out.size() < size) {
        out += piece;
    }
    return out;
}

/// Puts `piece` at every position around two blocks of `filler`.
void ExpectSameAtEveryPosition(std::string_view piece, std::string_view filler) {
    const std::string text = Repeat(filler, 300);
    for (size_t at = 0; at <= 140; ++at) {
        SCOPED_TRACE(at);
        const size_t start = at - at % filler.size();
        ExpectSame(text.substr(0, start) + std::string(at - start, '.') + std::string(piece) +
                   text.substr(start));
    }
}

const std::string kBe = "\xD0\xB1";             // a Cyrillic letter
const std::string kHan = "\xE4\xBD\xA0";        // a Chinese character
const std::string kSmile = "\xF0\x9F\x98\x80";  // beyond the basic plane

TEST(Utf8Kernels, WidenAscii) {
    ExpectSame("");
    ExpectSame("a");
    ExpectSame(std::string(63, 'a'));
    ExpectSame(std::string(64, 'a'));
    ExpectSame(std::string(1000, '\0'));
}

TEST(Utf8Kernels, ConvertDenseText) {
    ExpectSame(Repeat(kBe, 1000));
    ExpectSame(Repeat(kHan, 1000));
    ExpectSame(Repeat(kHan + kBe + "x", 1000));
    ExpectSame("x" + Repeat(kHan, 1000));
    ExpectSame("xy" + Repeat(kHan, 1000));
    ExpectSame(Repeat(kSmile, 1000));
    ExpectSame(Repeat(kSmile + kHan, 1000));
}

TEST(Utf8Kernels, ConvertOneCharacterWhereverItStands) {
    for (const std::string& filler : {std::string("a"), kBe, kHan, kSmile}) {
        ExpectSameAtEveryPosition(kBe, filler);
        ExpectSameAtEveryPosition(kHan, filler);
        ExpectSameAtEveryPosition(kSmile, filler);
        ExpectSameAtEveryPosition("\xEF\xBB\xBF", filler);
        ExpectSameAtEveryPosition("\xED\x9F\xBF\xEE\x80\x80", filler);  // around the surrogates
    }
}

TEST(Utf8Kernels, StopAtWhatIsNotWellFormedWhereverItStands) {
    for (const std::string& filler : {std::string("a"), kBe, kHan}) {
        for (const char* piece :
             {"\x80", "\xBF\xBF", "\xC0\x80", "\xC1\xBF", "\xC3", "\xC3\xC3\xA9", "\xE0\x80\x80",
              "\xE0\x9F\xBF", "\xE4\xBD", "\xE4", "\xED\xA0\x80", "\xED\xBF\xBF",
              "\xF0\x8F\xBF\xBF", "\xF0\x9F\x98", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80",
              "\xF8\x88\x80\x80\x80", "\xFE", "\xFF"}) {
            ExpectSameAtEveryPosition(piece, filler);
        }
    }
}

TEST(Utf8Kernels, StopBeforeASequenceCutByTheEnd) {
    for (size_t size = 0; size < 200; ++size) {
        SCOPED_TRACE(size);
        ExpectSame(Repeat(kBe, 200).substr(0, size));
        ExpectSame(Repeat(kHan, 200).substr(0, size));
        ExpectSame(Repeat(kSmile, 200).substr(0, size));
        ExpectSame(Repeat("a" + kHan, 200).substr(0, size));
    }
}

TEST(Utf8Kernels, ConvertEveryCharacterOfTheBasicPlane) {
    std::string text;
    for (unsigned point = 0x80; point < 0x10000; ++point) {
        if (point < 0x800) {
            text += static_cast<char>(0xC0 | point >> 6);
        } else if (point < 0xD800 || point > 0xDFFF) {
            text += static_cast<char>(0xE0 | point >> 12);
            text += static_cast<char>(0x80 | (point >> 6 & 0x3F));
        } else {
            continue;
        }
        text += static_cast<char>(0x80 | (point & 0x3F));
    }
    const Converted all = Scalar(text, text.size());
    ASSERT_EQ(all.progress, (Progress{text.size(), 0x10000 - 0x80 - 0x800}));
    ExpectSame(text);
}

TEST(Utf8Kernels, AgreeOnRandomBytes) {
    const std::vector<std::string> pieces{
        "a",        "bc",       ",\n",          kBe,        kBe + kBe, kHan,      kSmile,
        "\xC3\xA9", "\xE2\x82", "\xED\xA0\x80", "\xC0\x80", "\x80",    "\xF0\x9F"};
    std::mt19937 random(7);
    for (int round = 0; round < 3000; ++round) {
        const size_t kinds = round % 2 == 0 ? 8 : pieces.size();
        std::string text;
        const size_t size = random() % 400;
        while (text.size() < size) {
            const std::string& piece = pieces[random() % kinds];
            text += Repeat(piece, 1 + (random() % 4 == 0 ? random() % 90 : 0));
        }
        SCOPED_TRACE(round);
        ExpectSame(text);
    }
}

TEST(CountUnits, CountsPairsForWhatLeadsFourBytes) {
    const std::string text = "a" + kBe + kHan + kSmile;
    EXPECT_EQ(simd::CountUnitsSse2(text.data(), text.size()), 5u);
    const std::string longer = Repeat(text, 1000);  // 100 times 10 bytes
    EXPECT_EQ(simd::CountUnitsSse2(longer.data(), longer.size()), 500u);
    if (HasAvx2()) {
        EXPECT_EQ(simd::CountUnitsAvx2(longer.data(), longer.size()), 500u);
    }
}

}  // namespace
}  // namespace rl
