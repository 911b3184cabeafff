#include "tools/lister/find_dialog.h"

#include "tools/common/plugin_module.h"
#include "tools/lister/resource.h"

namespace rl::tools {

namespace {

bool IsChecked(HWND dialog, int id) {
    return IsDlgButtonChecked(dialog, id) == BST_CHECKED;
}

void Check(HWND dialog, int id, bool on) {
    CheckDlgButton(dialog, id, on ? BST_CHECKED : BST_UNCHECKED);
}

void Fill(HWND dialog, const Search& search) {
    SetDlgItemTextW(dialog, IDC_FIND_TEXT, search.text.c_str());
    SendDlgItemMessageW(dialog, IDC_FIND_TEXT, EM_SETSEL, 0, -1);
    Check(dialog, IDC_MATCH_CASE, search.matchCase);
    Check(dialog, IDC_WHOLE_WORDS, search.wholeWords);
    Check(dialog, IDC_BACKWARDS, search.backwards);
}

void Take(HWND dialog, Search& search) {
    const int length = GetWindowTextLengthW(GetDlgItem(dialog, IDC_FIND_TEXT));
    search.text.resize(static_cast<size_t>(length) + 1);
    GetDlgItemTextW(dialog, IDC_FIND_TEXT, search.text.data(), length + 1);
    search.text.resize(static_cast<size_t>(length));
    search.matchCase = IsChecked(dialog, IDC_MATCH_CASE);
    search.wholeWords = IsChecked(dialog, IDC_WHOLE_WORDS);
    search.backwards = IsChecked(dialog, IDC_BACKWARDS);
}

INT_PTR CALLBACK FindProc(HWND dialog, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(dialog, GWLP_USERDATA, lparam);
        Fill(dialog, *reinterpret_cast<const Search*>(lparam));
        return TRUE;
    }
    if (message != WM_COMMAND) {
        return FALSE;
    }
    const int command = LOWORD(wparam);
    if (command == IDOK) {
        Take(dialog, *reinterpret_cast<Search*>(GetWindowLongPtrW(dialog, GWLP_USERDATA)));
    }
    if (command == IDOK || command == IDCANCEL) {
        EndDialog(dialog, command);
        return TRUE;
    }
    return FALSE;
}

}  // namespace

int Search::Flags() const {
    return (matchCase ? kMatchCase : 0) | (wholeWords ? kWholeWords : 0) |
           (backwards ? kBackwards : 0);
}

bool AskForSearch(HWND owner, Search& search) {
    return DialogBoxParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_FIND), owner, &FindProc,
                           reinterpret_cast<LPARAM>(&search)) == IDOK;
}

}  // namespace rl::tools
