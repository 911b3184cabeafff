#include "view/save_question.h"

#include "load/text/loading_text.h"
#include "load/text/messages.h"

namespace rl {
namespace {

std::wstring InQuotes(std::wstring_view text) {
    std::wstring quoted = L"\"";
    quoted += text;
    return quoted += L'"';
}

}  // namespace

std::wstring SaveQuestionText(std::wstring_view path, SaveReason reason) {
    return L"Save changes to " + InQuotes(FileNameOf(path)) + L" before " +
           (reason == SaveReason::Closing ? L"closing?" : L"reloading?");
}

std::wstring OverwriteQuestionText(std::wstring_view path) {
    return InQuotes(FileNameOf(path)) + L" has been changed by another program. Overwrite it?";
}

std::wstring DeleteColumnText(std::wstring_view header) {
    return L"Delete column " + InQuotes(header) + L"?";
}

bool AskYesNo(HWND owner, const std::wstring& question, DefaultButton button) {
    const UINT type =
        MB_YESNO | MB_ICONWARNING | (button == DefaultButton::No ? MB_DEFBUTTON2 : MB_DEFBUTTON1);
    return MessageBoxW(owner, question.c_str(), messages::kCaption.data(), type) == IDYES;
}

}  // namespace rl
