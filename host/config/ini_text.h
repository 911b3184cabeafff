// INI lines to sections and keys, by our own rules: the system's profile functions know neither "#"
// comments nor Unicode nor comments behind a value.
//
// Knows nothing of files. Safe on any thread.
#pragma once

#include <map>
#include <string>
#include <string_view>

namespace rl {

/// Keys of one section, lower case, with their values.
using IniSection = std::map<std::wstring, std::wstring, std::less<>>;
/// Sections by lower-case name. The one without a name holds what stands before any header.
using IniSections = std::map<std::wstring, IniSection, std::less<>>;

/// Adds the keys of one text. A key that a section holds already keeps its value: the first line
/// wins, within a text and across texts.
void AddIniText(std::wstring_view text, IniSections& sections);

/// `text` without spaces, tabs and line breaks at both ends.
[[nodiscard]] std::wstring_view TrimIniText(std::wstring_view text);

/// `text` in lower case, as names of sections and keys are compared.
[[nodiscard]] std::wstring FoldIniName(std::wstring_view text);

}  // namespace rl
