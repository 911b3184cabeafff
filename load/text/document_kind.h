// Which of the three families a file belongs to.
#pragma once

#include <string_view>

namespace rl {

enum class DocumentKind { Csv = 0, Json = 1, Xml = 2 };

/// The kind that the text after the path's last "." names, in any letter case. False, and `kind`
/// untouched, when no list has it: the content decides then.
[[nodiscard]] bool KindFromName(std::wstring_view path, DocumentKind& kind);

/// The kind that the first characters of a file suggest; `head` is its decoded beginning. Blanks
/// and byte-order marks are skipped. Csv when nothing speaks for JSON or XML.
[[nodiscard]] DocumentKind KindFromHead(std::wstring_view head);

}  // namespace rl
