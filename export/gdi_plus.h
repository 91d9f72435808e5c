// Includes the GDI+ header with what it needs: two other headers first, and its own min and max.
#pragma once

#include <objidl.h>
#include <propidl.h>
#include <windows.h>

#include <algorithm>

namespace Gdiplus {
using std::max;
using std::min;
}  // namespace Gdiplus
#include <gdiplus.h>
