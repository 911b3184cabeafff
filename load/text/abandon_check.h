// How long work learns that nobody waits for its result any more.
#pragma once

#include <functional>

namespace rl {

/// Asked every few MiB of work, on the thread that works; true ends the work early, without a
/// result and without a message. An empty function means that the work always goes on.
using AbandonCheck = std::function<bool()>;

/// Whether the work may stop.
[[nodiscard]] inline bool IsAbandoned(const AbandonCheck& check) {
    return check && check();
}

}  // namespace rl
