// Why a modified document is about to go, when the user is asked to save it.
#pragma once

namespace rl {

enum class SaveReason { Closing, Reloading };

}  // namespace rl
