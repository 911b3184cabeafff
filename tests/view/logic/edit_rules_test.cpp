#include "view/logic/edit_rules.h"

#include <gtest/gtest.h>

namespace rl {
namespace {

constexpr EditTarget kEditable{
    .kind = DocumentKind::Csv, .editMode = true, .isCell = true, .isEditable = true};

TEST(EditRules, OpenAnEditableCellInEditMode) {
    for (const DocumentKind kind : {DocumentKind::Csv, DocumentKind::Json, DocumentKind::Xml}) {
        EditTarget target = kEditable;
        target.kind = kind;
        EXPECT_EQ(PlanEditStart(target), EditStart::Open);
    }
}

TEST(EditRules, RefuseAloudOnlyInNodesAndInEditMode) {
    for (const DocumentKind kind : {DocumentKind::Json, DocumentKind::Xml}) {
        EditTarget target = kEditable;
        target.kind = kind;
        target.isEditable = false;
        EXPECT_EQ(PlanEditStart(target), EditStart::Refuse);
        target.isCell = false;
        EXPECT_EQ(PlanEditStart(target), EditStart::Refuse);
        target.editMode = false;
        EXPECT_EQ(PlanEditStart(target), EditStart::RefuseSilently);
    }
}

TEST(EditRules, RefuseSilentlyInDelimitedText) {
    EditTarget target = kEditable;
    target.isEditable = false;
    EXPECT_EQ(PlanEditStart(target), EditStart::RefuseSilently);
    target = kEditable;
    target.isCell = false;
    EXPECT_EQ(PlanEditStart(target), EditStart::RefuseSilently);
    target = kEditable;
    target.editMode = false;
    EXPECT_EQ(PlanEditStart(target), EditStart::RefuseSilently);
}

TEST(EditRules, ChangeRowsOfDelimitedTextInEditModeOnly) {
    EXPECT_TRUE(MayChangeRows(DocumentKind::Csv, true));
    EXPECT_FALSE(MayChangeRows(DocumentKind::Csv, false));
    EXPECT_FALSE(MayChangeRows(DocumentKind::Json, true));
    EXPECT_FALSE(MayChangeRows(DocumentKind::Xml, true));
}

TEST(EditRules, EndAnUntouchedEditorLikeACancel) {
    EXPECT_EQ(PlanEditEnd({.value = L"a", .opened = L"a", .typed = L"a"}), EditEnd::Cancel);
    EXPECT_EQ(PlanEditEnd({.value = L"", .opened = L"", .typed = L""}), EditEnd::Cancel);
}

TEST(EditRules, StoreAChangedText) {
    EXPECT_EQ(PlanEditEnd({.value = L"a", .opened = L"a", .typed = L"b"}), EditEnd::Store);
    EXPECT_EQ(PlanEditEnd({.value = L"a", .opened = L"a", .typed = L""}), EditEnd::Store);
}

TEST(EditRules, LeaveAValueAloneThatTheEditorCannotHold) {
    EXPECT_EQ(PlanEditEnd({.value = L"a\nb", .opened = L"a", .typed = L"a"}), EditEnd::Cancel);
    EXPECT_EQ(PlanEditEnd({.value = L"a\nb", .opened = L"a b", .typed = L"a bc"}), EditEnd::Refuse);
    // Even the value itself, typed in full, is not what the editor can tell from it.
    EXPECT_EQ(PlanEditEnd({.value = L"a\nb", .opened = L"ab", .typed = L"x"}), EditEnd::Refuse);
}

TEST(EditRules, SayWhatTheEditorCannotHold) {
    EXPECT_EQ(RefusedEditReason(std::wstring_view(L"a\0b\n", 4)), L"NUL IN VALUE");
    EXPECT_EQ(RefusedEditReason(L"a\nb"), L"MULTI-LINE VALUE");
}

TEST(EditRules, StoreLineBreaksThatTheEditorHolds) {
    EXPECT_EQ(PlanEditEnd({.value = L"a\nb", .opened = L"a\nb", .typed = L"a\nc"}), EditEnd::Store);
}

TEST(EditRules, StayAtThePlaceOfTheFirstDeletedRow) {
    EXPECT_EQ(RowAfterDeletion(0, 5), 0);
    EXPECT_EQ(RowAfterDeletion(3, 5), 3);
    EXPECT_EQ(RowAfterDeletion(5, 5), 4);
    EXPECT_EQ(RowAfterDeletion(0, 0), -1);
}

TEST(WordStartBefore, TakesTheWordAndTheBlanksBehindIt) {
    EXPECT_EQ(WordStartBefore(L"one two", 7), 4u);
    EXPECT_EQ(WordStartBefore(L"one two  ", 9), 4u);
    EXPECT_EQ(WordStartBefore(L"one two", 5), 4u);
    EXPECT_EQ(WordStartBefore(L"one two", 4), 0u);
    EXPECT_EQ(WordStartBefore(L"  ", 2), 0u);
    EXPECT_EQ(WordStartBefore(L"one", 0), 0u);
    EXPECT_EQ(WordStartBefore(L"", 5), 0u);
}

}  // namespace
}  // namespace rl
