// Every key of the settings file: what a look-up answers without it, what the template shows, and
// the words beside it. Adding a setting is adding a row here and naming it in its group below.
//
// A table: as long as what it lists.
#pragma once

#include <array>
#include <span>
#include <string_view>
#include <variant>

#include "host/config/detect_string.h"
#include "host/config/setting.h"

namespace rl::settings {

// Files and parsing.

inline constexpr TextSetting kMaxFileSize{
    L"max-file-size", L"", L"",
    L"bytes; empty = 1 GiB capped at 1/4 of RAM, 0 = no limit; 2 GB is the hard ceiling"};
inline constexpr TextSetting kDefaultColumnDelimiter{
    L"default-column-delimiter", L"", L"",
    L"empty = automatic detection; otherwise any single character, or the word \"TAB\"; automatic "
    L"detection obeys a leading Excel \"sep=;\" line and otherwise scores the first rows"};
inline constexpr TextSetting kQuoteChar{
    L"quote-char", L"\"", L"\"", L"CSV field quote character; some exports use an apostrophe"};
/// Read as a number whose absence is 0, the system's own code page. A text all the same, because
/// the template shows nothing.
inline constexpr TextSetting kAnsiCodepage{
    L"ansi-codepage", L"", L"",
    L"code page that \"ANSI\" means when a file has no byte-order mark and is not valid UTF-8; "
    L"empty = the machine's ANSI code page, for example 1250 to read Central European files on a "
    L"Western system; an XML encoding declaration still wins"};
inline constexpr IntSetting kSkipComments{
    L"skip-comments", 0,
    L"0 parse comment lines as data, 1 keep them unparsed, 2 hide them, 3 automatic"};
inline constexpr IntSetting kTrimValues{L"trim-values", 1, L"trim CSV values", IntMeaning::Switch};
inline constexpr IntSetting kHeaderRow{L"header-row", 1, L"first CSV row is the header",
                                       IntMeaning::Switch};
inline constexpr IntSetting kParseMode{
    L"parse-mode", 0,
    L"JSON: 1 recovers balanced chunks from malformed text; comments and trailing commas parse "
    L"either way"};
inline constexpr TextSetting kMissingAttributeValue{
    L"missing-attribute-value", L"N/A", L"N/A", L"text shown for an attribute that a record lacks"};
inline constexpr IntSetting kSkipAttributesScan{
    L"skip-attributes-scan", 0, L"", IntMeaning::Switch,
    L"record tables take their columns from the first record only"};
/// The template shows nothing: the long string would not fit beside its explanation.
inline constexpr TextSetting kDetectString{
    L"detect-string", kLongDetectString, L"",
    L"replaces the detect string returned by ListGetDetectString"};

// View.

inline constexpr TextSetting kFont{L"font", L"Segoe UI", L"Segoe UI", L"grid font face"};
inline constexpr IntSetting kFontSize{L"font-size", 16, L"grid font height", IntMeaning::Number,
                                      L"in points, 10 to 48"};
inline constexpr IntSetting kFontWeight{L"font-weight", 0, L"1..9 give weights 100..900"};
inline constexpr TextSetting kSourceFont{L"source-font", L"Consolas", L"Consolas",
                                         L"Source tab font face"};
inline constexpr IntSetting kSourceTabWidth{L"source-tab-width", 4,
                                            L"Source tab width in characters"};
inline constexpr IntSetting kSourceViewLimit{L"source-view-limit", 16000000,
                                             L"characters shown in the Source tab"};
inline constexpr IntSetting kFilterRow{L"filter-row", 1, L"show the filter row",
                                       IntMeaning::Switch};
inline constexpr IntSetting kValuePane{
    L"value-pane", 1,
    L"wrapped read-only view of the current value under the grid (Ctrl+D); grid rows are all one "
    L"height, so a long value can never wrap inside its own cell",
    IntMeaning::Switch};
inline constexpr IntSetting kFilterAlign{L"filter-align", 0, L"-1 left, 0 centre, 1 right"};
inline constexpr TextSetting kFilterHint{
    L"filter-hint", L"Filter", L"Filter",
    L"greyed italic placeholder in empty filter boxes; empty = none"};
inline constexpr IntSetting kFilterCaseSensitive{L"filter-case-sensitive", 0, L"",
                                                 IntMeaning::Switch, L"filters tell a from A"};
inline constexpr IntSetting kShowLineNumbers{L"show-line-numbers", 0, L"", IntMeaning::Switch,
                                             L"a first column with the number of each row"};
inline constexpr IntSetting kDecimalAlign{
    L"decimal-align", 1, L"", IntMeaning::Switch,
    L"numbers stand with their decimal separators below each other"};
inline constexpr IntSetting kDisableGridLines{L"disable-grid-lines", 0, L"", IntMeaning::Switch,
                                              L"no lines between rows and columns"};
inline constexpr IntSetting kMaxColumnWidth{
    L"max-column-width", 300, L"", IntMeaning::Number,
    L"pixels at 96 dpi that a column is opened with at most, unless it is alone"};
inline constexpr IntSetting kMaxColumnSamples{
    L"max-column-samples", 1000, L"", IntMeaning::Number,
    L"rows looked at to size columns and to find titles above a table"};
inline constexpr IntSetting kTreeOutline{
    L"tree-outline", 1, L"XML/JSON as one Name/Value outline; 0 = tree pane + child table",
    IntMeaning::Switch};
inline constexpr IntSetting kTreeWidth{L"tree-width", 250,
                                       L"side pane width when tree-outline is 0"};
inline constexpr IntSetting kOutlineExpandMax{
    L"outline-expand-max", 120,
    L"how far XML/JSON open on load: the outline gains one level at a time while it fits this many "
    L"rows; 0 = expand every node"};
inline constexpr TextSetting kDefaultTab{L"default-tab", L"data", L"data",
                                         L"\"source\" opens on the Source tab"};
inline constexpr TextSetting kStartMode{L"start-mode", L"default", L"default",
                                        L"\"edit\" starts in edit mode"};

// Keys and clipboard.

/// The two characters backslash and t stand for TAB.
inline constexpr TextSetting kColumnDelimiter{L"column-delimiter", L"\\t", L"\\t",
                                              L"separator of copied rows", L"\\t stands for TAB"};
inline constexpr IntSetting kCopyColumn{
    L"copy-column", 0, L"", IntMeaning::Switch,
    L"C copies the selected rows when there are several, not the current cell"};
inline constexpr IntSetting kDisableNumKeys{L"disable-num-keys", 0, L"", IntMeaning::Switch,
                                            L"1 to 8 are not handed to the file manager"};
inline constexpr IntSetting kDisableNpKeys{L"disable-np-keys", 0, L"", IntMeaning::Switch,
                                           L"N and P are not handed to the file manager"};
inline constexpr IntSetting kExitByQ{L"exit-by-q", 0, L"", IntMeaning::Switch,
                                     L"Q closes the viewer"};

// Theme.

/// Empty without the key, although the template shows Light: `dark-theme` alone then decides.
inline constexpr TextSetting kTheme{
    L"theme", L"", L"Light",
    L"one of \"Light\", \"Paper\", \"Dark\", \"Midnight\", \"Solarized Dark\" (context menu > "
    L"Theme); sets every colour below plus the syntax palette; any colour key present in the file "
    L"still wins"};
inline constexpr IntSetting kDarkTheme{
    L"dark-theme", 0, L"picks the default theme and the dark scroll bars", IntMeaning::Switch};

/// The suffix of colour keys that dark themes read.
inline constexpr std::wstring_view kDarkSuffix = L"-dark";

/// In the order of the template, which is not that of the themes: accent comes first here.
inline constexpr std::array kUiColors = {
    ColorSetting{L"accent-color", 13924352, 16761420},
    ColorSetting{L"text-color", 0, 14474460},
    ColorSetting{L"back-color", 16777215, 2105376},
    ColorSetting{L"back-color2", 15790320, 3421236},
    ColorSetting{L"filter-text-color", 0, 16777215},
    ColorSetting{L"filter-back-color", 15790320, 3947580},
    ColorSetting{L"header-text-color", 0, 16777215},
    ColorSetting{L"header-back-color", 13421772, 3947580},
    ColorSetting{L"current-cell-back-color", 10903622, 4079136},
    ColorSetting{L"selection-text-color", 16777215, 14474460},
    ColorSetting{L"selection-back-color", 6956042, 6710856},
    ColorSetting{L"line-number-text-color", 8421504, 10395294},
    ColorSetting{L"line-number-back-color", 15132390, 3158064},
};

inline constexpr std::array kSourceColors = {
    ColorSetting{L"source-color-tag", 128, 14064726},
    ColorSetting{L"source-color-attr", 10834180, 16702620},
    ColorSetting{L"source-color-string", 1381795, 7901646},
    ColorSetting{L"source-color-number", 5801481, 11062965},
    ColorSetting{L"source-color-keyword", 16711680, 14064726},
    ColorSetting{L"source-color-comment", 32768, 5609834},
    ColorSetting{L"source-color-punct", 6579300, 9868950},
};

// Groups, in the order of the template and of docs/settings.md.

using Option = std::variant<const IntSetting*, const TextSetting*>;

struct OptionGroup {
    std::wstring_view title;
    std::span<const Option> options;
};

inline constexpr Option kFileOptions[] = {&kMaxFileSize,
                                          &kDefaultColumnDelimiter,
                                          &kQuoteChar,
                                          &kAnsiCodepage,
                                          &kSkipComments,
                                          &kTrimValues,
                                          &kHeaderRow,
                                          &kParseMode,
                                          &kMissingAttributeValue,
                                          &kSkipAttributesScan,
                                          &kDetectString};
inline constexpr Option kViewOptions[] = {
    &kFont,           &kFontSize,         &kFontWeight,          &kSourceFont,
    &kSourceTabWidth, &kSourceViewLimit,  &kFilterRow,           &kValuePane,
    &kFilterAlign,    &kFilterHint,       &kFilterCaseSensitive, &kShowLineNumbers,
    &kDecimalAlign,   &kDisableGridLines, &kMaxColumnWidth,      &kMaxColumnSamples,
    &kTreeOutline,    &kTreeWidth,        &kOutlineExpandMax,    &kDefaultTab,
    &kStartMode};
inline constexpr Option kKeyOptions[] = {&kColumnDelimiter, &kCopyColumn, &kDisableNumKeys,
                                         &kDisableNpKeys, &kExitByQ};
inline constexpr Option kThemeOptions[] = {&kTheme, &kDarkTheme};

inline constexpr std::array kOptionGroups = {
    OptionGroup{L"files & parsing", kFileOptions},
    OptionGroup{L"view", kViewOptions},
    OptionGroup{L"keys & clipboard", kKeyOptions},
    OptionGroup{L"theme", kThemeOptions},
};

}  // namespace rl::settings
