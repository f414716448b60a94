// A tool may use every layer of the core.
#include "shell/top.h"
