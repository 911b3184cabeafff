#include "model/csv_records.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace rl {
namespace {

using Texts = std::vector<std::wstring>;

Texts FieldsOf(std::wstring_view record, wchar_t delimiter = L',', wchar_t quoteChar = L'"') {
    std::vector<CsvFieldSpan> spans;
    SplitFields(record, delimiter, quoteChar, spans);
    Texts fields;
    for (const CsvFieldSpan& span : spans) {
        fields.emplace_back(record.substr(span.start, span.length));
    }
    return fields;
}

std::wstring TextOf(std::wstring_view field, bool trim = true, wchar_t quoteChar = L'"') {
    std::wstring scratch;
    return std::wstring(FieldText(field, quoteChar, trim, scratch));
}

std::wstring Quoted(std::wstring_view value, bool force = false) {
    std::wstring out;
    AppendQuoted(value, L',', L'"', force, out);
    return out;
}

TEST(SplitFields, FindsOneFieldInAnEmptyRecord) {
    EXPECT_EQ(FieldsOf(L""), Texts{L""});
}

TEST(SplitFields, CutsAtEachDelimiter) {
    EXPECT_EQ(FieldsOf(L"a,b"), (Texts{L"a", L"b"}));
    EXPECT_EQ(FieldsOf(L",a,"), (Texts{L"", L"a", L""}));
    EXPECT_EQ(FieldsOf(L",,"), (Texts{L"", L"", L""}));
}

TEST(SplitFields, KeepsQuotesAndWhatTheyProtect) {
    EXPECT_EQ(FieldsOf(L"\"a,b\",c"), (Texts{L"\"a,b\"", L"c"}));
    EXPECT_EQ(FieldsOf(L"\"say \"\"a,b\"\"\",c"), (Texts{L"\"say \"\"a,b\"\"\"", L"c"}));
    EXPECT_EQ(FieldsOf(L"\"a\r\nb\",c"), (Texts{L"\"a\r\nb\"", L"c"}));
}

TEST(SplitFields, OpensARunAtAQuoteInTheMiddleOfAField) {
    EXPECT_EQ(FieldsOf(L"a\"b,c\"d,e"), (Texts{L"a\"b,c\"d", L"e"}));
    EXPECT_EQ(FieldsOf(L"a\"\"b,c"), (Texts{L"a\"\"b", L"c"}));
}

TEST(SplitFields, RunsToTheEndWhenAQuoteStaysOpen) {
    EXPECT_EQ(FieldsOf(L"a,\"b,c"), (Texts{L"a", L"\"b,c"}));
}

TEST(SplitFields, UsesTheDialectGiven) {
    EXPECT_EQ(FieldsOf(L"'a;b';c,d", L';', L'\''), (Texts{L"'a;b'", L"c,d"}));
    EXPECT_EQ(FieldsOf(L"a\u3001b", L'\u3001'), (Texts{L"a", L"b"}));
}

TEST(SplitFields, LetsTheQuoteWinOverTheSameDelimiter) {
    EXPECT_EQ(FieldsOf(L"a,b,c", L',', L','), Texts{L"a,b,c"});
}

TEST(SplitFields, FindsFieldsInLongRecords) {
    std::wstring record(200, L'x');
    record[63] = record[64] = record[127] = record[199] = L',';
    const Texts expected{std::wstring(63, L'x'), L"", std::wstring(62, L'x'),
                         std::wstring(71, L'x'), L""};
    EXPECT_EQ(FieldsOf(record), expected);
    record[64] = record[128] = L'"';
    EXPECT_EQ(FieldsOf(record).size(), 3U);
}

TEST(SplitFields, SaysTheSameOfBothUnitTypes) {
    std::vector<CsvFieldSpan> spans;
    SplitFields(u"a,\"b,c\"", u',', u'"', spans);
    EXPECT_EQ(spans, (std::vector<CsvFieldSpan>{{0, 1}, {2, 5}}));
}

TEST(SplitFields, FindsTheSameFieldsBlockByBlockAsUnitByUnit) {
    std::mt19937 random(7);
    std::vector<CsvFieldSpan> wide;
    std::vector<CsvFieldSpan> narrow;
    for (int round = 0; round < 500; ++round) {
        std::u16string record(random() % 300, u'x');
        for (char16_t& unit : record) {
            unit = random() % 6 == 0 ? u",\"\u012C"[random() % 3] : u'x';
        }
        SplitFields(std::wstring(record.begin(), record.end()), L',', L'"', wide);
        SplitFields(record, u',', u'"', narrow);
        ASSERT_EQ(wide, narrow) << "round " << round;
    }
}

TEST(FieldText, TakesQuotesOffAndSinglesDoubledOnes) {
    EXPECT_EQ(TextOf(L"\"a,b\""), L"a,b");
    EXPECT_EQ(TextOf(L"\"say \"\"hi\"\"\""), L"say \"hi\"");
    EXPECT_EQ(TextOf(L"\"\""), L"");
    EXPECT_EQ(TextOf(L"\"\"\"\""), L"\"");
    EXPECT_EQ(TextOf(L"\"\"\"\"\"\""), L"\"\"");
}

TEST(FieldText, LeavesASingleQuoteInsideAsItIs) {
    EXPECT_EQ(TextOf(L"\"a\"b\"c\""), L"a\"b\"c");
    EXPECT_EQ(TextOf(L"\"\"\""), L"\"");
}

TEST(FieldText, LeavesQuotesThatAreNotAtBothEnds) {
    EXPECT_EQ(TextOf(L"\"a\"b"), L"\"a\"b");
    EXPECT_EQ(TextOf(L" \"x\""), L"\"x\"");
    EXPECT_EQ(TextOf(L"\"x\" "), L"\"x\"");
    EXPECT_EQ(TextOf(L"a\"\"b"), L"a\"\"b");
    EXPECT_EQ(TextOf(L"\""), L"\"");
}

TEST(FieldText, TrimsBlanksAndTabsOnlyOutsideQuotes) {
    EXPECT_EQ(TextOf(L" x\t "), L"x");
    EXPECT_EQ(TextOf(L" \t "), L"");
    EXPECT_EQ(TextOf(L"\" x \""), L" x ");
    EXPECT_EQ(TextOf(L"\u00A0x\v"), L"\u00A0x\v");
}

TEST(FieldText, KeepsBlanksWhenNotAskedToTrim) {
    EXPECT_EQ(TextOf(L" x ", false), L" x ");
    EXPECT_EQ(TextOf(L"\"x\"", false), L"x");
    EXPECT_EQ(TextOf(L" \"x\"", false), L" \"x\"");
}

TEST(FieldText, UsesTheQuoteCharacterGiven) {
    EXPECT_EQ(TextOf(L"'it''s'", true, L'\''), L"it's");
    EXPECT_EQ(TextOf(L"\"x\"", true, L'\''), L"\"x\"");
}

TEST(FieldText, IsAViewOfTheFieldUnlessAQuoteHadToGo) {
    const std::wstring field = L"\"plain\"";
    std::wstring scratch;
    EXPECT_EQ(FieldText(field, L'"', true, scratch).data(), field.data() + 1);
    EXPECT_TRUE(scratch.empty());
}

TEST(AppendQuoted, LeavesPlainValuesAsTheyStand) {
    EXPECT_EQ(Quoted(L""), L"");
    EXPECT_EQ(Quoted(L"a b"), L"a b");
    EXPECT_EQ(Quoted(L"a;b"), L"a;b");
    EXPECT_EQ(Quoted(L"\u00A0x"), L"\u00A0x");
}

TEST(AppendQuoted, QuotesWhatWouldBeReadDifferently) {
    EXPECT_EQ(Quoted(L"a,b"), L"\"a,b\"");
    EXPECT_EQ(Quoted(L"a\nb"), L"\"a\nb\"");
    EXPECT_EQ(Quoted(L"a\rb"), L"\"a\rb\"");
    EXPECT_EQ(Quoted(L"say \"hi\""), L"\"say \"\"hi\"\"\"");
    EXPECT_EQ(Quoted(L"\""), L"\"\"\"\"");
    EXPECT_EQ(Quoted(L" a"), L"\" a\"");
    EXPECT_EQ(Quoted(L"a\t"), L"\"a\t\"");
    EXPECT_EQ(Quoted(L" "), L"\" \"");
}

TEST(AppendQuoted, QuotesAnythingWhenForced) {
    EXPECT_EQ(Quoted(L"", true), L"\"\"");
    EXPECT_EQ(Quoted(L"a", true), L"\"a\"");
}

CsvRowSpan RecordAt(uint32_t start) {
    return {.start = start,
            .length = 0,
            .lineBreakLength = 1,
            .isComment = false,
            .isHidden = false,
            .isRaw = false,
            .fieldCount = 1};
}

TEST(CsvRecordStore, KeepsRecordsInOrderAcrossBlocks) {
    CsvRecordStore store;
    for (uint32_t i = 0; i < 20000; ++i) {
        store.Append(RecordAt(i));
    }
    ASSERT_EQ(store.Size(), 20000U);
    EXPECT_EQ(store[0].start, 0U);
    EXPECT_EQ(store[8191].start, 8191U);
    EXPECT_EQ(store[8192].start, 8192U);
    EXPECT_EQ(store[19999].start, 19999U);
}

TEST(CsvRecordStore, CarriesWhatStandsInTheSlackOver) {
    CsvRecordStore store;
    for (uint32_t i = 0; i < 8190; ++i) {
        store.Append(RecordAt(i));
    }
    const CsvRecordStore::Room room = store.OpenRoom();
    ASSERT_EQ(room.end - room.begin, 2);
    for (uint32_t i = 0; i < 66; ++i) {
        room.begin[i] = RecordAt(8190 + i);
    }
    store.Commit(room.begin + 66);
    ASSERT_EQ(store.Size(), 8256U);
    EXPECT_EQ(store[8192].start, 8192U);
    EXPECT_EQ(store[8255].start, 8255U);
}

TEST(CsvRecordStore, HoldsLittleMoreThanTheRecords) {
    CsvRecordStore store;
    for (uint32_t i = 0; i < 1000000; ++i) {
        store.Append(RecordAt(i));
    }
    EXPECT_LE(store.MemoryBytes(), size_t{16} * 1000000 * 105 / 100);
}

TEST(CsvRecordStore, IsEmptyOnceCleared) {
    CsvRecordStore store;
    store.Append(RecordAt(7));
    store.Clear();
    EXPECT_EQ(store.Size(), 0U);
    store.Append(RecordAt(9));
    EXPECT_EQ(store[0].start, 9U);
}

}  // namespace
}  // namespace rl
