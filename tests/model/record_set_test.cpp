#include "model/record_set.h"

#include <gtest/gtest.h>

#include "tests/support/outline_text.h"

namespace rl {
namespace {

using test::JsonMode;
using test::JsonOf;
using test::XmlOf;

TEST(RecordSet, IsTheArrayWithTheMostObjects) {
    const auto document = JsonOf(LR"({"a":[{},{}],"b":[{},{},{}],"c":[1,2,3,4,5]})");
    EXPECT_EQ(FindRecordSet(*document), (RecordSet{.node = 4, .size = 3}));
}

TEST(RecordSet, WantsTwoObjectsAndHalfOfTheElements) {
    EXPECT_EQ(FindRecordSet(*JsonOf(L"[{}]")), RecordSet());
    EXPECT_EQ(FindRecordSet(*JsonOf(L"[{},1]")), RecordSet());
    EXPECT_EQ(FindRecordSet(*JsonOf(L"[{},{},1,2]")), (RecordSet{.node = 0, .size = 2}));
    EXPECT_EQ(FindRecordSet(*JsonOf(L"[{},{},1,2,3]")), RecordSet());
    EXPECT_EQ(FindRecordSet(*JsonOf(L"{\"a\":{},\"b\":{}}")), RecordSet());
}

TEST(RecordSet, IsReplacedByAnArrayWithMoreElementsEvenOfFewerObjects) {
    // The second array has more elements (5) than the first one has objects (4).
    const auto document = JsonOf(L"[[{},{},{},{}],[{},{},{},1,2]]");
    EXPECT_EQ(FindRecordSet(*document), (RecordSet{.node = 6, .size = 3}));
}

TEST(RecordSet, IsTheFirstOfEquals) {
    const auto document = JsonOf(L"[[{},{}],[{},{}]]");
    EXPECT_EQ(FindRecordSet(*document), (RecordSet{.node = 1, .size = 2}));
}

TEST(RecordSet, FindsTheLinesOfAFile) {
    const auto document = JsonOf(L"{}\n{}\n{}\n", JsonMode::Lines);
    EXPECT_EQ(FindRecordSet(*document), (RecordSet{.node = 0, .size = 3}));
}

TEST(RecordSet, IsTheElementWithTheMostChildrenOfOneName) {
    const auto document =
        XmlOf(L"<r><a><i/><i/><i/></a><b><i/>t<j/><i/><!--c--><j/><j/><j/></b></r>");
    EXPECT_EQ(FindRecordSet(*document), (RecordSet{.node = 6, .size = 4}));
}

TEST(RecordSet, WantsTwoChildrenOfOneName) {
    EXPECT_EQ(FindRecordSet(*XmlOf(L"<r><i/><j/><k>t</k></r>")), RecordSet());
    EXPECT_EQ(FindRecordSet(*XmlOf(L"<r/>")), RecordSet());
    EXPECT_EQ(FindRecordSet(*XmlOf(L"<r/><r/>")), RecordSet());  // the document is no element
    EXPECT_EQ(FindRecordSet(*XmlOf(L"<r><i/><I/></r>")), RecordSet());
    EXPECT_EQ(FindRecordSet(*XmlOf(L"<r><i/><i/></r>")), (RecordSet{.node = 1, .size = 2}));
}

TEST(RecordSet, IsNoneForADocumentThatWasNotRead) {
    EXPECT_EQ(FindRecordSet(JsonDocument()), RecordSet());
    EXPECT_EQ(FindRecordSet(XmlDocument()), RecordSet());
}

}  // namespace
}  // namespace rl
