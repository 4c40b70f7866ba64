#ifndef DRAWLOAD_PLATFORM_WINDOWS_SYSTEM_H
#define DRAWLOAD_PLATFORM_WINDOWS_SYSTEM_H

// The system's header without its macros min and max and without what the library does not use.
#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

#endif
