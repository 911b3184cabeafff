// Both compilers we build with answer this themselves; another one needs its own few lines here.
#include "load/text/cpu_features.h"

namespace rl {

bool HasAvx2() noexcept {
    static const bool has = __builtin_cpu_supports("avx2") && __builtin_cpu_supports("bmi") &&
                            __builtin_cpu_supports("bmi2");
    return has;
}

}  // namespace rl
