// The questions before something is lost: edits that are not saved, what another
// program has written, a column.
//
// User-interface thread only. A question pumps messages: whoever asks may be gone afterwards.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace rl {

/// Why a modified document is about to go, when the user is asked to save it.
enum class SaveReason { Closing, Reloading };

/// Names the file without its folder.
[[nodiscard]] std::wstring SaveQuestionText(std::wstring_view path, SaveReason reason);
[[nodiscard]] std::wstring OverwriteQuestionText(std::wstring_view path);
[[nodiscard]] std::wstring DeleteColumnText(std::wstring_view header);

enum class DefaultButton { Yes, No };

/// True for Yes. There is no way out but the two buttons.
[[nodiscard]] bool AskYesNo(HWND owner, const std::wstring& question, DefaultButton button);

}  // namespace rl
