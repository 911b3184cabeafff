// The one file compiled with the two roots, so that a compiler cache serves all others anywhere.
#include "tests/support/test_paths.h"

namespace rl::test {

std::filesystem::path SourceRoot() {
    return ROWLARK_SOURCE_DIR;
}

std::filesystem::path BuildRoot() {
    return ROWLARK_BINARY_DIR;
}

}  // namespace rl::test
