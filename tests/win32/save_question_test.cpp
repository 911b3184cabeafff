#include "view/save_question.h"

#include <gtest/gtest.h>

namespace rl {
namespace {

TEST(SaveQuestionText, NamesTheFileWithoutItsFolder) {
    EXPECT_EQ(SaveQuestionText(L"C:\\dir\\data.csv", SaveReason::Closing),
              L"Save changes to \"data.csv\" before closing?");
    EXPECT_EQ(SaveQuestionText(L"C:/dir/a.json", SaveReason::Reloading),
              L"Save changes to \"a.json\" before reloading?");
    EXPECT_EQ(SaveQuestionText(L"C:\\one/two\\a", SaveReason::Closing),
              L"Save changes to \"a\" before closing?");
    EXPECT_EQ(SaveQuestionText(L"C:\\one\\two/a", SaveReason::Closing),
              L"Save changes to \"a\" before closing?");
    EXPECT_EQ(SaveQuestionText(L"bare", SaveReason::Closing),
              L"Save changes to \"bare\" before closing?");
}

TEST(SaveQuestionText, SaysWhoseContentWouldGo) {
    EXPECT_EQ(OverwriteQuestionText(L"C:\\dir/data.csv"),
              L"\"data.csv\" has been changed by another program. Overwrite it?");
}

TEST(SaveQuestionText, QuotesTheColumn) {
    EXPECT_EQ(DeleteColumnText(L"Price"), L"Delete column \"Price\"?");
}

}  // namespace
}  // namespace rl
