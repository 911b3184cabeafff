#include "view/logic/host_keys.h"

#include <algorithm>
#include <iterator>

namespace rl {
namespace {

// AltGr arrives as Ctrl and Alt together and types a character: that is neither a command nor the
// plain key.
enum class CtrlRule { Either, Needed, Refused };

struct HostKey {
    VirtualKey first;
    VirtualKey last;
    CtrlRule ctrl;
    bool fromFilterBox;  // handed over even while a filter box has the focus
    bool (*allowed)(const HostKeyState&);
};

constexpr bool Always(const HostKeyState&) {
    return true;
}
constexpr bool NumKeys(const HostKeyState& state) {
    return !state.disableNumKeys;
}
constexpr bool NpKeys(const HostKeyState& state) {
    return !state.disableNpKeys;
}
constexpr bool QKey(const HostKeyState& state) {
    return state.exitByQ;
}

// 9 is missing on purpose: the host's ninth key was never handed over, and users rely on it.
constexpr HostKey kHostKeys[] = {
    {key::kEscape, key::kEscape, CtrlRule::Either, true, Always},
    {key::kF3, key::kF3, CtrlRule::Either, false, Always},
    {key::Of('F'), key::Of('F'), CtrlRule::Needed, false, Always},
    {key::Of('1'), key::Of('8'), CtrlRule::Refused, false, NumKeys},
    {key::Of('N'), key::Of('N'), CtrlRule::Either, false, NpKeys},
    {key::Of('P'), key::Of('P'), CtrlRule::Either, false, NpKeys},
    {key::Of('Q'), key::Of('Q'), CtrlRule::Either, false, QKey},
};

bool CtrlFits(CtrlRule rule, const HostKeyState& state) {
    switch (rule) {
        case CtrlRule::Needed: return state.ctrlCommand;
        case CtrlRule::Refused: return !state.ctrl;
        default: return true;
    }
}

}  // namespace

bool IsHostKey(VirtualKey key, const HostKeyState& state) {
    if (state.msSinceCreation < kHostKeyGuardMs || !state.focusInside) {
        return false;
    }
    return std::any_of(std::begin(kHostKeys), std::end(kHostKeys), [&](const HostKey& row) {
        return key >= row.first && key <= row.last && CtrlFits(row.ctrl, state) &&
               (row.fromFilterBox || !state.focusInFilterBox) && row.allowed(state);
    });
}

}  // namespace rl
