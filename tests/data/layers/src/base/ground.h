#pragma once
// Reaches up to the top: the check must name this include.
#include "shell/top.h"
