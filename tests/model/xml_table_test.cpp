#include "model/xml_table.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "model/xml_table_cells.h"

namespace rl {
namespace {

using Kind = XmlValueRef::Kind;
using Rows = std::vector<std::vector<std::wstring>>;

class XmlTable : public ::testing::Test {
protected:
    /// The table of the first element, or of `node`.
    XmlTableView& Show(std::wstring_view text, int32_t node = -1, std::wstring_view name = {}) {
        EXPECT_TRUE(document_.Parse(std::wstring(text)));
        view_ = std::make_unique<XmlTableView>(&document_,
                                               node < 0 ? document_.FirstElement() : node, name);
        return *view_;
    }
    [[nodiscard]] Rows Texts() const {
        Rows rows;
        for (int32_t row = 0; row < view_->RowCount(); ++row) {
            rows.emplace_back();
            for (int32_t column = 0; column < view_->ColumnCount(); ++column) {
                rows.back().push_back(view_->CellText(row, column));
            }
        }
        return rows;
    }
    Rows TextsOf(std::wstring_view text, int32_t node = -1, std::wstring_view name = {}) {
        Show(text, node, name);
        return Texts();
    }

    XmlDocument document_;
    std::unique_ptr<XmlTableView> view_;
};

TEST_F(XmlTable, ShowsDistinctChildrenAsKeyAndValue) {
    EXPECT_EQ(TextsOf(L"<f><name>n</name><size>1</size><date/></f>"),
              (Rows{{L"Key", L"Value"}, {L"name", L"n"}, {L"size", L"1"}, {L"date", L""}}));
    EXPECT_TRUE(view_->IsKeyValue());
}

TEST_F(XmlTable, ShowsRepeatedChildrenAsRecordsAndNoOthers) {
    EXPECT_EQ(TextsOf(L"<r><item><a>1</a></item><item><a>2</a></item><other><b/></other></r>"),
              (Rows{{L"a"}, {L"1"}, {L"2"}}));
    EXPECT_FALSE(view_->IsKeyValue());
    EXPECT_EQ(view_->RowNode(0), -1);
    EXPECT_EQ(view_->RowNode(1), 2);
    EXPECT_EQ(view_->RowNode(2), 5);
    EXPECT_EQ(view_->RowNode(3), -1);
}

TEST_F(XmlTable, TakesTheMostFrequentNameAndTheFirstOfATie) {
    EXPECT_EQ(TextsOf(L"<r><x a='1'/><y b='1'/><x/><y/><y/></r>"),
              (Rows{{L"@b"}, {L"1"}, {L""}, {L""}}));
    EXPECT_EQ(TextsOf(L"<r><x a='1'/><y b='1'/><y/><x/></r>"), (Rows{{L"@a"}, {L"1"}, {L""}}));
}

TEST_F(XmlTable, TakesAGivenRecordName) {
    EXPECT_EQ(TextsOf(L"<r><x a='1'/><x/><y b='2'/></r>", -1, L"y"), (Rows{{L"@b"}, {L"2"}}));
    EXPECT_EQ(TextsOf(L"<r><x a='1'/></r>", -1, L"z"), (Rows{{L"Key", L"Value"}, {L"x", L""}}));
}

TEST_F(XmlTable, MakesARecordOfAnOnlyChildThatHoldsSomething) {
    EXPECT_EQ(TextsOf(L"<r><item a='1'/></r>"), (Rows{{L"@a"}, {L"1"}}));
    EXPECT_EQ(TextsOf(L"<r><item><b>2</b></item></r>"), (Rows{{L"b"}, {L"2"}}));
    EXPECT_EQ(TextsOf(L"<r><item>text</item></r>"), (Rows{{L"Key", L"Value"}, {L"item", L"text"}}));
    EXPECT_TRUE(view_->IsKeyValue());
}

TEST_F(XmlTable, ShowsRepeatedPlainChildrenAsKeyAndValue) {
    EXPECT_EQ(TextsOf(L"<r><i>1</i><i>2</i></r>"),
              (Rows{{L"Key", L"Value"}, {L"i", L"1"}, {L"i", L"2"}}));
}

TEST_F(XmlTable, PutsColumnsInOrderOfAppearanceAttributesFirst) {
    EXPECT_EQ(TextsOf(L"<r><i b='1'><x>2</x></i><i a='3' b='4'><y>5</y><x>6</x></i></r>"),
              (Rows{{L"@b", L"x", L"@a", L"y"}, {L"1", L"2", L"", L""}, {L"4", L"6", L"3", L"5"}}));
    EXPECT_FALSE(view_->IsCellEditable(1, 2));
    EXPECT_TRUE(view_->IsCellEditable(1, 0));
}

TEST_F(XmlTable, ShowsTheFirstOfRepeatedMembers) {
    EXPECT_EQ(TextsOf(L"<r><i a='1' a='2'><x>3</x><x>4</x></i></r>"),
              (Rows{{L"@a", L"x"}, {L"1", L"3"}}));
}

TEST_F(XmlTable, MarksNestedElementsWithDots) {
    EXPECT_EQ(TextsOf(L"<r><i><address>a<b/></address><n>1</n></i></r>"),
              (Rows{{L"address", L"n"}, {L"\x2026", L"1"}}));
    EXPECT_FALSE(view_->IsCellEditable(1, 0));
    EXPECT_TRUE(view_->Cell(1, 0).hasText);
    EXPECT_EQ(TextsOf(L"<r><a><b/></a><c/></r>"),
              (Rows{{L"Key", L"Value"}, {L"a", L"\x2026"}, {L"c", L""}}));
}

TEST_F(XmlTable, ShowsTheTextOfAChildAndEditsItsOnlyPiece) {
    Show(L"<r><i><a>1</a><b>2<!--c-->3</b><c><!--only--></c><d/></i></r>");
    EXPECT_EQ(Texts()[1], (std::vector<std::wstring>{L"1", L"23", L"", L""}));
    EXPECT_EQ(view_->Cell(1, 0).ref, (XmlValueRef{.kind = Kind::OnlyChild, .node = 4}));
    EXPECT_EQ(view_->Cell(1, 0).textNode, 3);
    EXPECT_TRUE(view_->IsCellEditable(1, 0));
    EXPECT_FALSE(view_->IsCellEditable(1, 1));
    EXPECT_FALSE(view_->IsCellEditable(1, 2));
    EXPECT_FALSE(view_->IsCellEditable(1, 3));
    EXPECT_TRUE(document_.SetValue(view_->Cell(1, 0).ref, L"new"));
    EXPECT_EQ(view_->CellText(1, 0), L"new");
}

TEST_F(XmlTable, KeysTextByTheElementAroundIt) {
    EXPECT_EQ(TextsOf(L"<r id='7'>text<![CDATA[raw]]><!--note--><?p d?><e>v</e></r>"),
              (Rows{{L"Key", L"Value"},
                    {L"@id", L"7"},
                    {L"r", L"text"},
                    {L"r", L"raw"},
                    {L"#COMMENT", L"note"},
                    {L"p", L"d"},
                    {L"e", L"v"}}));
    EXPECT_EQ(view_->RowNode(1), 1);
    EXPECT_EQ(view_->RowNode(2), 2);
    for (int32_t row = 1; row < 7; ++row) {
        EXPECT_TRUE(view_->IsCellEditable(row, 1));
        EXPECT_FALSE(view_->IsCellEditable(row, 0));
    }
    EXPECT_EQ(view_->Cell(6, 1).ref.kind, Kind::OnlyChild);
    EXPECT_EQ(view_->Cell(1, 1).ref, XmlDocument::AttributeRef(1, 0));
}

TEST_F(XmlTable, KeysTextOfTheDocumentByItsKind) {
    EXPECT_EQ(
        TextsOf(L"<!DOCTYPE r>text<r>v</r><![CDATA[c]]>", 0),
        (Rows{
            {L"Key", L"Value"}, {L"", L""}, {L"#TEXT", L"text"}, {L"r", L"v"}, {L"#CDATA", L"c"}}));
    EXPECT_FALSE(view_->IsCellEditable(1, 1));
}

TEST_F(XmlTable, ShowsMixedContentReadOnly) {
    EXPECT_EQ(TextsOf(L"<r><a>1<!--x-->2</a><b/></r>")[1],
              (std::vector<std::wstring>{L"a", L"12"}));
    EXPECT_FALSE(view_->IsCellEditable(1, 1));
}

TEST_F(XmlTable, IsEmptyForAnEmptyElementAndForOtherNodes) {
    const Rows empty{{L"Key", L"Value"}};
    EXPECT_EQ(TextsOf(L"<r/>"), empty);
    EXPECT_EQ(TextsOf(L"<r>text</r>", 2), empty);
    EXPECT_EQ(TextsOf(L"<r>text</r>", 99), empty);
    view_ = std::make_unique<XmlTableView>(&document_, -1, L"");
    EXPECT_EQ(Texts(), empty);
    view_ = std::make_unique<XmlTableView>(nullptr, 0, L"");
    EXPECT_EQ(Texts(), empty);
    EXPECT_TRUE(view_->IsKeyValue());
}

TEST_F(XmlTable, ShowsTheAttributesOfAnEmptyElement) {
    EXPECT_EQ(TextsOf(L"<r id='7' x='8'/>"),
              (Rows{{L"Key", L"Value"}, {L"@id", L"7"}, {L"@x", L"8"}}));
    EXPECT_TRUE(view_->IsKeyValue());
    EXPECT_FALSE(view_->IsCellEditable(1, 0));
    EXPECT_TRUE(view_->IsCellEditable(1, 1));
}

TEST_F(XmlTable, AnswersQuestionsBeyondItsEdges) {
    Show(L"<r><i a='1'/><i a='2'/></r>");
    for (const auto& [row, column] : {std::pair{-1, 0}, {3, 0}, {0, 1}, {1, -1}, {1, 1}}) {
        EXPECT_EQ(view_->CellText(row, column), L"");
        EXPECT_FALSE(view_->IsCellEditable(row, column));
        EXPECT_EQ(view_->Cell(row, column).ref, XmlValueRef{});
        EXPECT_FALSE(view_->IsCommentRow(row));
    }
    EXPECT_FALSE(view_->IsCellEditable(0, 0));
    EXPECT_EQ(view_->Cell(0, 0).textNode, -1);
    EXPECT_EQ(view_->RowNode(-1), -1);
}

TEST_F(XmlTable, GivesAnElementNamedLikeAnAttributeTheAttributesColumn) {
    EXPECT_EQ(TextsOf(L"<r><i><@a>child</@a></i><i a='1'/></r>"), (Rows{{L"@a"}, {L""}, {L"1"}}));
    EXPECT_EQ(TextsOf(L"<r><i><@a>child</@a></i><i/></r>"), (Rows{{L"@a"}, {L""}, {L""}}));
}

TEST_F(XmlTable, TakesAllChildrenWhenTheRepeatedNameIsEmpty) {
    EXPECT_EQ(TextsOf(L"<r>< a='1'/>< a='2'/><x b='3'/></r>"),
              (Rows{{L"@a", L"@b"}, {L"1", L""}, {L"2", L""}, {L"", L"3"}}));
}

// --- tables made to hurt

TEST_F(XmlTable, HoldsAHundredThousandRecordsWithAColumnEach) {
    std::wstring text = L"<r>";
    for (int i = 0; i < 100'000; ++i) {
        const std::wstring number = std::to_wstring(i);
        text += L"<i><n" + number + L">" + number + L"</n" + number + L"></i>";
    }
    Show(text + L"</r>");
    EXPECT_EQ(view_->ColumnCount(), 100'000);
    EXPECT_EQ(view_->RowCount(), 100'001);
    EXPECT_EQ(view_->CellText(0, 77'777), L"n77777");
    EXPECT_EQ(view_->CellText(77'778, 77'777), L"77777");
    EXPECT_EQ(view_->CellText(77'778, 77'776), L"");
    EXPECT_EQ(view_->CellText(77'778, 77'778), L"");
}

TEST_F(XmlTable, HoldsARecordOfAHundredThousandMembers) {
    std::wstring attributes;
    std::wstring children;
    for (int i = 0; i < 100'000; ++i) {
        const std::wstring name = L"m" + std::to_wstring(i);
        attributes += L" " + name + L"='1'";
        children += L"<" + name + L"/>";
    }
    Show(L"<r><i" + attributes + L">" + children + L"</i><i/></r>");
    EXPECT_EQ(view_->ColumnCount(), 200'000);
    EXPECT_EQ(view_->CellText(0, 199'999), L"m99999");
    EXPECT_EQ(view_->CellText(1, 99'999), L"1");
    EXPECT_EQ(view_->CellText(2, 99'999), L"");
    Show(L"<r>" + children + L"</r>");
    EXPECT_TRUE(view_->IsKeyValue());
    EXPECT_EQ(view_->CellText(100'000, 0), L"m99999");
}

TEST_F(XmlTable, ShowsAMillionNestedElements) {
    std::wstring text;
    for (int i = 0; i < 1'000'000; ++i) {
        text += L"<a>";
    }
    Show(text + L"deep");
    EXPECT_EQ(Texts(), (Rows{{L"a"}, {L"\x2026"}}));
}

TEST(XmlRecordCells, StoreOnlyFilledCellsWhereFewAre) {
    std::wstring text = L"<r>";
    for (int i = 0; i < 1000; ++i) {
        text += L"<i><x/><y" + std::to_wstring(i) + L"/></i>";
    }
    XmlDocument document;
    ASSERT_TRUE(document.Parse(text + L"</r>"));
    std::vector<int32_t> records;
    for (int32_t node = 2; node >= 0;
         node = document.nodes[static_cast<size_t>(node)].nextSibling) {
        records.push_back(node);
    }
    const detail::XmlRecordCells sparse(document, records);
    EXPECT_EQ(sparse.Columns().size(), 1001U);
    EXPECT_EQ(sparse.StoredCells(), 2000U);
    EXPECT_EQ(sparse.At(500, 501), 2 + 500 * 3 + 2);
    EXPECT_EQ(sparse.At(500, 500), detail::XmlRecordCells::kEmpty);
    records.resize(2);
    const detail::XmlRecordCells dense(document, records);
    EXPECT_EQ(dense.StoredCells(), 6U);
    EXPECT_EQ(dense.At(1, 0), 6);
    EXPECT_EQ(dense.At(1, 1), detail::XmlRecordCells::kEmpty);
}

}  // namespace
}  // namespace rl
