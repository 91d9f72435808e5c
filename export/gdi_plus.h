// GDI+ as its header wants to be included: behind two others, and with min and max of its own.
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
