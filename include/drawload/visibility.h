#ifndef DRAWLOAD_VISIBILITY_H
#define DRAWLOAD_VISIBILITY_H

/* Marks the few names that the shared library exports; everything else is hidden. The library's own build
 * defines DRAWLOAD_BUILDING. */
#if defined(_WIN32) && defined(DRAWLOAD_BUILDING)
#define DRAWLOAD_API __declspec(dllexport)
#elif defined(_WIN32)
#define DRAWLOAD_API __declspec(dllimport)
#else
#define DRAWLOAD_API __attribute__((visibility("default")))
#endif

#endif
