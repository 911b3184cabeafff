#include "view/logic/viewer_layout.h"
