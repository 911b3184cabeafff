// The host's search, applied to the grid.
#include "view/viewer.h"

#include "host/lister_api.h"
#include "view/logic/row_cells.h"

namespace rl {

bool Viewer::Find(std::wstring_view text, int flags) {
    if (!loaded_ || document_.rows == nullptr || !EndCellEdit(true)) {
        return false;
    }
    const FindRequest request{.text = text,
                              .first = (flags & lister::kFindFirst) != 0,
                              .matchCase = (flags & lister::kMatchCase) != 0,
                              .wholeWords = (flags & lister::kWholeWords) != 0,
                              .backwards = (flags & lister::kBackwards) != 0};
    if (document_.ShowsOutline() && !text.empty()) {
        if (finder_.IsFresh(request)) {
            RevealMatches(text);
        } else {
            ReturnToHit();
        }
    }
    const FindAnswer answer = finder_.Find(RowCells(*document_.rows), request);
    if (answer.outcome == FindOutcome::AtEnd) {
        MessageBeep(MB_OK);
    }
    if (answer.outcome != FindOutcome::Hit) {
        return false;
    }
    foundRow_ = document_.ShowsOutline()
                    ? document_.outline->Row(document_.rows->ModelRow(answer.row))
                    : OutlineRow();
    SwitchTab(ViewerTab::Data);
    grid_.GoTo({answer.row, grid_.GridColumnOf(answer.column)});
    UpdateStatusBar();
    SetFocus(grid_.Window());
    return true;
}

}  // namespace rl
