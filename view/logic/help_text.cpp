#include "view/logic/help_text.h"

#include <iterator>

namespace rl {
namespace {

constexpr size_t kIndent = 2;
constexpr size_t kKeysWidth = 20;
constexpr size_t kLineWidth = 80;
constexpr size_t kActionColumn = kIndent + kKeysWidth;

constexpr std::wstring_view kGrid = L"GRID";
constexpr std::wstring_view kOutline = L"OUTLINE (XML / JSON)";
constexpr std::wstring_view kView = L"VIEW";
constexpr std::wstring_view kHost = L"TOTAL COMMANDER";

constexpr HelpEntry kEntries[] = {
    {kGrid, L"Arrow keys", L"Move current cell"},
    {kGrid, L"Ctrl+Arrow", L"Jump to first/last row or column"},
    {kGrid, L"F2", L"Edit current cell"},
    {kGrid, L"Enter", L"Edit current cell (Edit mode)"},
    {kGrid, L"C", L"Copy cell"},
    {kGrid, L"Shift+C", L"Copy row(s)"},
    {kGrid, L"Ctrl+C", L"Copy column"},
    {kGrid, L"Ctrl+Click", L"Hide column"},
    {kGrid, L"Ctrl+Space", L"Show all columns"},
    {kGrid, L"Ctrl+X", L"Delete row(s) (Edit mode)"},
    {kGrid, L"Ctrl+E, Ctrl+R", L"Toggle Edit mode"},
    {kGrid, L"Ctrl+S", L"Save changes"},
    {kOutline, L"Left / Right", L"Collapse/expand current node, or move to its parent/first child"},
    {kOutline, L"Num + / Num -", L"Expand / collapse current node"},
    {kOutline, L"Num *", L"Expand all"},
    {kOutline, L"Shift+Num *", L"Expand current node and its whole subtree"},
    {kOutline, L"Num /", L"Collapse all"},
    {kOutline, L"Type a letter", L"Jump to next node starting with it"},
    {kView, L"Ctrl+ + / Ctrl+ -",
     L"Change font size (Ctrl+wheel also works; context menu Font... sets family and weight)"},
    {kView, L"Ctrl+Tab", L"Switch Data / Source tab"},
    {kView, L"Ctrl+L", L"Locate current row/node in the Source tab"},
    {kView, L"Ctrl+D", L"Show/hide the value pane"},
    {kView, L"Ctrl+T", L"XML/JSON: outline <-> tree + record table"},
    {kView, L"Ctrl+A", L"Select all (Source tab)"},
    {kHost, L"Escape, F3, Ctrl+F", L"Passed through to Lister's own Close, Find next and Find"},
};
static_assert(std::size(kEntries) == 25);

void AddLine(std::wstring& text, std::wstring_view line) {
    text.append(line).append(L"\r\n");
}

/// Cuts the next line off `action`: as many words as fit.
std::wstring_view TakeLine(std::wstring_view& action) {
    constexpr size_t kRoom = kLineWidth - kActionColumn;
    size_t end = action.size();
    if (end > kRoom) {
        const size_t blank = action.rfind(L' ', kRoom);
        end = blank == std::wstring_view::npos ? kRoom : blank;
    }
    const std::wstring_view line = action.substr(0, end);
    action.remove_prefix(end);
    if (action.starts_with(L' ')) {
        action.remove_prefix(1);
    }
    return line;
}

void AddEntry(std::wstring& text, const HelpEntry& entry) {
    std::wstring line = std::wstring(kIndent, L' ').append(entry.keys);
    std::wstring_view action = entry.action;
    while (!action.empty()) {
        line.resize(kActionColumn, L' ');
        line.append(TakeLine(action));
        AddLine(text, line);
        line.clear();
    }
}

}  // namespace

std::span<const HelpEntry> HelpEntries() {
    return kEntries;
}

std::wstring HelpText() {
    std::wstring text;
    std::wstring_view section;
    for (const HelpEntry& entry : kEntries) {
        if (entry.section != section) {
            if (!section.empty()) {
                AddLine(text, L"");
            }
            section = entry.section;
            AddLine(text, section);
        }
        AddEntry(text, entry);
    }
    return text;
}

}  // namespace rl
