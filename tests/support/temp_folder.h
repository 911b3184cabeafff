// The folder of one test, by the name that tests know it by.
#pragma once

#include "tools/common/temp_folder.h"

namespace rl::test {

using tools::TempFolder;

}  // namespace rl::test
