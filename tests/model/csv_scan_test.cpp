#include "model/csv_scan.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace rl {
namespace {

struct Scanned {
    CsvScanResult result;
    std::vector<std::tuple<uint32_t, uint32_t, int, bool, bool, uint32_t>> records;

    bool operator==(const Scanned&) const = default;
};

Scanned ScanWith(CsvScanKernel kernel, std::u16string_view text, const CsvScanRules& rules = {}) {
    CsvRecordStore store;
    Scanned out{.result = ScanRecords(text, rules, store, {}, kernel), .records = {}};
    for (size_t i = 0; i < store.Size(); ++i) {
        const CsvRowSpan& record = store[i];
        EXPECT_FALSE(record.isHidden);
        out.records.emplace_back(record.start, record.length, record.lineBreakLength,
                                 record.isComment, record.isRaw, record.fieldCount);
    }
    return out;
}

bool HasAvx2() {
    return BestCsvScanKernel() == CsvScanKernel::Avx2;
}

/// Every kernel of this processor says what the plain loop says.
void ExpectAgreement(std::u16string_view text, const CsvScanRules& rules = {}) {
    const Scanned plain = ScanWith(CsvScanKernel::Plain, text, rules);
    EXPECT_EQ(ScanWith(CsvScanKernel::Sse2, text, rules), plain);
    if (HasAvx2()) {
        EXPECT_EQ(ScanWith(CsvScanKernel::Avx2, text, rules), plain);
    }
}

std::u16string Repeated(std::u16string_view piece, size_t times) {
    std::u16string text;
    for (size_t i = 0; i < times; ++i) {
        text += piece;
    }
    return text;
}

TEST(ScanRecords, CountsOnlyTheDelimitersOutsideQuotes) {
    const struct {
        std::u16string_view text;
        uint32_t fields;
    } cases[] = {
        {u"a", 1},          {u"a,b", 2},         {u"\"a,b\",c", 2}, {u"\"say \"\"a,b\"\"\",c", 2},
        {u"\"a\nb\",c", 2}, {u"x\"a,b\"y,c", 2},
    };
    for (const auto& [text, fields] : cases) {
        const Scanned scanned = ScanWith(CsvScanKernel::Plain, text);
        ASSERT_EQ(scanned.records.size(), 1U);
        EXPECT_EQ(std::get<5>(scanned.records[0]), fields);
        EXPECT_EQ(scanned.result.columnCount, fields);
    }
}

TEST(ScanRecords, CutsAtEachKindOfLineBreak) {
    const Scanned scanned = ScanWith(CsvScanKernel::Plain, u"a\r\nbc\r\n\rd\ne");
    const Scanned expected{.result = {.columnCount = 1},
                           .records = {{0, 1, 2, false, false, 1},
                                       {3, 2, 2, false, false, 1},
                                       {7, 0, 1, false, false, 1},
                                       {8, 1, 1, false, false, 1},
                                       {10, 1, 0, false, false, 1}}};
    EXPECT_EQ(scanned, expected);
}

TEST(ScanRecords, FindsNothingInAnEmptyText) {
    EXPECT_TRUE(ScanWith(CsvScanKernel::Plain, u"").records.empty());
    ExpectAgreement(u"");
}

TEST(ScanRecords, SaysWhenAQuoteStaysOpen) {
    EXPECT_TRUE(ScanWith(CsvScanKernel::Plain, u"a\n\"b\nc").result.openQuote);
    EXPECT_FALSE(ScanWith(CsvScanKernel::Plain, u"a\n\"b\nc\"").result.openQuote);
    ExpectAgreement(u"\"" + Repeated(u"a,b\n", 100));
}

TEST(ScanRecords, MarksCommentsAndSplitsThemUnlessToldOtherwise) {
    const std::u16string_view text = u"#a,\"b\nc,d\n";
    EXPECT_TRUE(ScanWith(CsvScanKernel::Plain, text).result.openQuote);
    const Scanned raw =
        ScanWith(CsvScanKernel::Plain, text, {.splitComments = false, .rawComments = true});
    const Scanned expected{.result = {.columnCount = 2},
                           .records = {{0, 5, 1, true, true, 1}, {6, 3, 1, false, false, 2}}};
    EXPECT_EQ(raw, expected);
    const Scanned hidden = ScanWith(CsvScanKernel::Plain, text, {.splitComments = false});
    EXPECT_FALSE(std::get<4>(hidden.records[0]));
}

TEST(ScanRecords, AgreesWhereABreakFallsOnEachEdgeOfABlock) {
    for (size_t before = 60; before < 132; ++before) {
        for (const std::u16string_view piece :
             {u"\n", u"\r", u"\r\n", u"\r\r\n", u"\"\n\"", u","}) {
            std::u16string text(before, u'x');
            text += piece;
            text += Repeated(u"a,\"b\r\n\",c\r\n", 20);
            ExpectAgreement(text);
        }
    }
}

TEST(ScanRecords, AgreesAtEachLengthOfTheText) {
    const std::u16string text = Repeated(u"a,\"b,c\",d\r\n# \"x\n", 16);
    for (size_t size = 0; size <= text.size(); ++size) {
        ExpectAgreement(std::u16string_view(text).substr(0, size));
        ExpectAgreement(std::u16string_view(text).substr(0, size), {.splitComments = false});
    }
}

TEST(ScanRecords, AgreesOnCommentsThatAreNotSplit) {
    const std::u16string text =
        Repeated(u"#x \" y\nsep=;\n;\" remark\r\n;a;\"b\";\nstep,\"q\r\n\"\n", 50);
    ExpectAgreement(text, {.splitComments = false, .rawComments = true});
    ExpectAgreement(text, {.delimiter = ';', .splitComments = false});
}

TEST(ScanRecords, AgreesOnMoreRecordsThanABlockOfTheStoreHolds) {
    ExpectAgreement(std::u16string(50000, u'\n'));
    ExpectAgreement(Repeated(u"a,b\r\n", 20000));
    ExpectAgreement(Repeated(u"#\n", 20000), {.splitComments = false});
}

TEST(ScanRecords, AgreesOnUnitsThatShareTheirLowByteWithTheDialect) {
    ExpectAgreement(Repeated(u"\u012C\u0122\u010A\u010D\u2C2C\u8022\uFF0A\xD82C\uFFFFa,b\n", 40));
}

TEST(ScanRecords, TakesDialectsThatTheFastScanCannot) {
    const std::u16string text = Repeated(u"a\u3001b\u00FF'c\n'\u00FF\n", 40);
    for (const CsvScanRules& rules :
         {CsvScanRules{.delimiter = 0x3001}, CsvScanRules{.delimiter = 0xFF, .quoteChar = '\''},
          CsvScanRules{.quoteChar = 0x3001}, CsvScanRules{.delimiter = 'a', .quoteChar = 'a'},
          CsvScanRules{.delimiter = '\n'}, CsvScanRules{.quoteChar = '\n'},
          CsvScanRules{.delimiter = 0, .quoteChar = 0}}) {
        ExpectAgreement(text, rules);
    }
    EXPECT_EQ(ScanWith(BestCsvScanKernel(), text, {.delimiter = 0x3001}).result.columnCount, 2U);
}

TEST(ScanRecords, AgreesOnRandomText) {
    std::mt19937 random(20240607);
    const std::u16string_view units = u",,,;\"\"\r\n\n\n#sSeEpP=abc\u012C\u3001 \t";
    for (int round = 0; round < 400; ++round) {
        std::u16string text(random() % 700, u'x');
        const size_t spread = 1 + random() % 8;
        for (char16_t& unit : text) {
            unit = random() % spread == 0 ? units[random() % units.size()] : u'x';
        }
        ExpectAgreement(text, {.delimiter = static_cast<uint16_t>(round % 2 == 0 ? ',' : ';'),
                               .splitComments = round % 3 == 0,
                               .rawComments = round % 3 == 1});
    }
}

TEST(ScanRecords, AsksEachFewMillionUnitsWhetherToGoOn) {
    // Long records, short ones, and comments that the fast scan leaves to the plain one.
    for (const std::u16string_view piece : {u"xxxxxxxxxxxxxxxx", u"a,b\n", u"#\n"}) {
        const std::u16string text = Repeated(piece, (size_t{9} << 20) / piece.size());
        for (const CsvScanKernel kernel : {CsvScanKernel::Plain, BestCsvScanKernel()}) {
            CsvRecordStore store;
            int asked = 0;
            const auto stop = [&asked] { return ++asked == 2; };
            EXPECT_TRUE(ScanRecords(text, {.splitComments = false}, store, stop, kernel).abandoned);
            EXPECT_EQ(asked, 2);
        }
    }
}

TEST(ScanRecords, GivesTheSameForWideText) {
    CsvRecordStore store;
    const CsvScanResult result = ScanRecords(L"a,\"b\n\"\r\nc\n", {}, store);
    EXPECT_EQ(result.columnCount, 2U);
    ASSERT_EQ(store.Size(), 2U);
    EXPECT_EQ(store[1].start, 8U);
}

}  // namespace
}  // namespace rl
