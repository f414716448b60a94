#pragma once
#include <string>

#include "base/ground.h"
