#include "view/logic/commands.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/config/themes.h"

namespace rl {
namespace {

const CommandInfo& Get(Command command) {
    return *FindCommand(static_cast<uint32_t>(command));
}
bool IsEnabled(Command command, const CommandState& state) {
    return Get(command).enabled(state);
}
bool IsChecked(Command command, const CommandState& state) {
    return Get(command).checked(state);
}

TEST(Commands, AreFortyThreeAndFoundByTheirNumber) {
    EXPECT_EQ(AllCommands().size(), 43U);
    EXPECT_EQ(FindCommand(5005), nullptr);
    EXPECT_EQ(FindCommand(4999), nullptr);
    EXPECT_EQ(FindCommand(5105), nullptr);
    ASSERT_NE(FindCommand(5072), nullptr);
    EXPECT_EQ(FindCommand(5072)->label, L"Source font...");
}

TEST(Commands, HaveTheirLabels) {
    const struct {
        uint32_t id;
        std::wstring_view label;
    } rows[] = {
        {5000, L"Copy cell"},
        {5001, L"Copy row(s)\tShift+C"},
        {5002, L"Copy column\tCtrl+C"},
        {5003, L"Filters"},
        {5004, L"Header row"},
        {5006, L"Show line numbers"},
        {5007, L"Delete row(s)\tCtrl+X"},
        {5008, L"Hide column\tCtrl+Click"},
        {5009, L"Show all columns\tCtrl+Space"},
        {5010, L"ANSI"},
        {5011, L"UTF-8"},
        {5012, L"UTF-16LE"},
        {5013, L"UTF-16BE"},
        {5020, L","},
        {5021, L";"},
        {5022, L"|"},
        {5023, L"TAB"},
        {5024, L":"},
        {5025, L"Auto"},
        {5030, L"Parse normally"},
        {5031, L"Do not parse"},
        {5032, L"Hide"},
        {5033, L"Auto"},
        {5034, L"Insert row below"},
        {5040, L"Edit mode\tCtrl+E"},
        {5041, L"Save\tCtrl+S"},
        {5042, L"Delete column"},
        {5043, L"Locate in source\tCtrl+L"},
        {5050, L"Outline view"},
        {5051, L"Expand all\tNum *"},
        {5052, L"Collapse all\tNum /"},
        {5053, L"Expand node\tShift+Num *"},
        {5060, L"JSON"},
        {5061, L"XML"},
        {5062, L"Path"},
        {5070, L"Value pane\tCtrl+D"},
        {5071, L"Font..."},
        {5072, L"Source font..."},
        {5100, L"Light"},
        {5101, L"Paper"},
        {5102, L"Dark"},
        {5103, L"Midnight"},
        {5104, L"Solarized Dark"},
    };
    EXPECT_EQ(std::size(rows), 43U);
    for (const auto& [id, label] : rows) {
        const CommandInfo* command = FindCommand(id);
        ASSERT_NE(command, nullptr) << id;
        EXPECT_EQ(command->label, label) << id;
    }
}

TEST(Commands, CallThePathByTheDocumentsKind) {
    const CommandInfo& path = Get(Command::CopyPath);
    EXPECT_EQ(CommandLabel(path, {.kind = DocumentKind::Csv}), L"Path");
    EXPECT_EQ(CommandLabel(path, {.kind = DocumentKind::Json}), L"JSON path");
    EXPECT_EQ(CommandLabel(path, {.kind = DocumentKind::Xml}), L"XPath");
    EXPECT_EQ(CommandLabel(Get(Command::CopyAsXml), {.kind = DocumentKind::Xml}), L"XML");
}

TEST(Commands, InsertARowOnlyIntoDelimitedTextInEditModeWithACurrentRow) {
    const CommandState good{.kind = DocumentKind::Csv, .editMode = true, .currentRow = 0};
    EXPECT_TRUE(IsEnabled(Command::InsertRow, good));
    CommandState state = good;
    state.editMode = false;
    EXPECT_FALSE(IsEnabled(Command::InsertRow, state));
    state = good;
    state.currentRow = -1;
    EXPECT_FALSE(IsEnabled(Command::InsertRow, state));
    state = good;
    state.kind = DocumentKind::Json;
    EXPECT_FALSE(IsEnabled(Command::InsertRow, state));
}

TEST(Commands, DeleteRowsOnlyInEditModeAndNeverFromJson) {
    EXPECT_TRUE(IsEnabled(Command::DeleteRows, {.editMode = true}));
    EXPECT_FALSE(IsEnabled(Command::DeleteRows, {.editMode = false}));
    EXPECT_FALSE(IsEnabled(Command::DeleteRows, {.kind = DocumentKind::Json, .editMode = true}));
    EXPECT_TRUE(IsEnabled(Command::DeleteRows, {.kind = DocumentKind::Xml, .editMode = true}));
}

TEST(Commands, DeleteAColumnOnlyWhereTheModelHasIt) {
    const CommandState good{.editMode = true, .columnCount = 3, .currentDataColumn = 2};
    EXPECT_TRUE(IsEnabled(Command::DeleteColumn, good));
    CommandState state = good;
    state.currentDataColumn = 3;
    EXPECT_FALSE(IsEnabled(Command::DeleteColumn, state));
    state.currentDataColumn = -1;
    EXPECT_FALSE(IsEnabled(Command::DeleteColumn, state));
    state = good;
    state.editMode = false;
    EXPECT_FALSE(IsEnabled(Command::DeleteColumn, state));
    state = good;
    state.kind = DocumentKind::Xml;
    EXPECT_FALSE(IsEnabled(Command::DeleteColumn, state));
}

TEST(Commands, ExpandOnlyANodeThatCanBeExpanded) {
    EXPECT_TRUE(IsEnabled(Command::ExpandNode, {.outlineInGrid = true, .canExpandNode = true}));
    EXPECT_FALSE(IsEnabled(Command::ExpandNode, {.outlineInGrid = true}));
    EXPECT_FALSE(IsEnabled(Command::ExpandNode, {.canExpandNode = true}));
}

TEST(Commands, CopyNodesOnlyOfTrees) {
    for (const Command command : {Command::CopyAsJson, Command::CopyAsXml, Command::CopyPath}) {
        EXPECT_FALSE(IsEnabled(command, {.kind = DocumentKind::Csv}));
        EXPECT_TRUE(IsEnabled(command, {.kind = DocumentKind::Json}));
        EXPECT_TRUE(IsEnabled(command, {.kind = DocumentKind::Xml}));
    }
}

TEST(Commands, AreOtherwiseAlwaysEnabled) {
    std::vector<uint32_t> conditional;
    for (const CommandInfo& command : AllCommands()) {
        if (!command.enabled({})) {
            conditional.push_back(static_cast<uint32_t>(command.id));
        }
    }
    EXPECT_EQ(conditional, (std::vector<uint32_t>{5060, 5061, 5062, 5034, 5007, 5042, 5053}));
}

std::vector<uint32_t> CheckedIds(const CommandState& state) {
    std::vector<uint32_t> ids;
    for (const CommandInfo& command : AllCommands()) {
        if (command.checked(state)) {
            ids.push_back(static_cast<uint32_t>(command.id));
        }
    }
    return ids;
}

using Ids = std::vector<uint32_t>;

// Light theme, comma, comments parsed; no encoding yet.
constexpr CommandState kPlain{};

TEST(Commands, AreTickedForTheThemeDelimiterAndCommentModeInUse) {
    EXPECT_EQ(CheckedIds(kPlain), (Ids{5100, 5020, 5030}));
}

TEST(Commands, AreTickedForTheSwitchesThatAreOn) {
    CommandState state = kPlain;
    state.filterRow = true;
    state.valuePane = true;
    state.headerRow = true;
    state.editMode = true;
    state.outlineInGrid = true;
    state.lineNumbers = true;
    EXPECT_EQ(CheckedIds(state), (Ids{5003, 5070, 5004, 5040, 5050, 5006, 5100, 5020, 5030}));
}

TEST(Commands, TickOneTheme) {
    CommandState state = kPlain;
    state.themeIndex = 4;
    EXPECT_TRUE(IsChecked(Command::ThemeSolarizedDark, state));
    EXPECT_FALSE(IsChecked(Command::ThemeLight, state));
}

TEST(Commands, TickTheEncodingWhoseNameIsEqualInAnyLetterCase) {
    CommandState state = kPlain;
    state.encodingName = L"utf-16le";
    EXPECT_EQ(CheckedIds(state), (Ids{5100, 5012, 5020, 5030}));
    state.encodingName = L"windows-1250";
    EXPECT_EQ(CheckedIds(state), (Ids{5100, 5020, 5030}));
}

TEST(Commands, TickAutoInsteadOfADelimiterThatWasFound) {
    CommandState state = kPlain;
    state.delimiter = L'\t';
    EXPECT_EQ(CheckedIds(state), (Ids{5100, 5023, 5030}));
    state.delimiterIsAuto = true;
    EXPECT_EQ(CheckedIds(state), (Ids{5100, 5025, 5030}));
    state.delimiterIsAuto = false;
    state.delimiter = L'~';
    EXPECT_EQ(CheckedIds(state), (Ids{5100, 5030}));
}

TEST(Commands, TickTheCommentMode) {
    CommandState state = kPlain;
    state.commentMode = CommentMode::Auto;
    EXPECT_TRUE(IsChecked(Command::CommentsAuto, state));
    state.commentMode = CommentMode::DoNotParse;
    EXPECT_TRUE(IsChecked(Command::CommentsDoNotParse, state));
    state.commentMode = CommentMode::Hide;
    EXPECT_TRUE(IsChecked(Command::CommentsHide, state));
    EXPECT_FALSE(IsChecked(Command::CommentsAuto, state));
}

TEST(Commands, NameTheThemesAsTheyAreNamed) {
    const auto themes = BuiltInThemes();
    for (size_t i = 0; i < themes.size(); ++i) {
        const CommandInfo* command = FindCommand(5100 + static_cast<uint32_t>(i));
        ASSERT_NE(command, nullptr);
        EXPECT_EQ(command->label, themes[i].name);
        EXPECT_EQ(ThemeIndexOf(command->id), static_cast<int32_t>(i));
    }
    EXPECT_EQ(ThemeIndexOf(Command::Save), -1);
}

TEST(Commands, ChooseEncodings) {
    EXPECT_EQ(EncodingOf(Command::EncodingAnsi), L"ANSI");
    EXPECT_EQ(EncodingOf(Command::EncodingUtf16Be), L"UTF-16BE");
    EXPECT_EQ(EncodingOf(Command::DelimiterComma), L"");
}

TEST(Commands, ChooseDelimitersAndWhatIsStoredForThem) {
    const struct {
        Command command;
        wchar_t delimiter;
        std::wstring_view stored;
    } rows[] = {
        {Command::DelimiterAuto, 0, L""},          {Command::DelimiterComma, L',', L","},
        {Command::DelimiterSemicolon, L';', L";"}, {Command::DelimiterBar, L'|', L"|"},
        {Command::DelimiterTab, L'\t', L"TAB"},    {Command::DelimiterColon, L':', L":"},
    };
    for (const auto& [command, delimiter, stored] : rows) {
        const DelimiterChoice* choice = DelimiterOf(command);
        ASSERT_NE(choice, nullptr);
        EXPECT_EQ(choice->delimiter, delimiter);
        EXPECT_EQ(choice->settingText, stored);
    }
    EXPECT_EQ(DelimiterOf(Command::CommentsAuto), nullptr);
}

TEST(Commands, ChooseCommentModes) {
    ASSERT_NE(CommentModeOf(Command::CommentsAuto), nullptr);
    EXPECT_EQ(*CommentModeOf(Command::CommentsAuto), CommentMode::Auto);
    EXPECT_EQ(*CommentModeOf(Command::CommentsParse), CommentMode::Parse);
    EXPECT_EQ(*CommentModeOf(Command::CommentsDoNotParse), CommentMode::DoNotParse);
    EXPECT_EQ(*CommentModeOf(Command::CommentsHide), CommentMode::Hide);
    EXPECT_EQ(CommentModeOf(Command::InsertRow), nullptr) << "though its number is the next one";
}

}  // namespace
}  // namespace rl
