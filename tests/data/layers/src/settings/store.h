#pragma once
// Side by side with analysis: the check must name this include.
#include "analysis/words.h"
