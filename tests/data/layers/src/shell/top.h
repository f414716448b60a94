#pragma once
// Stands at the top and may use everything below it.
#include "base/ground.h"
