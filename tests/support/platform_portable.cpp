#include "load/text/platform.h"
