#ifndef DRAWLOAD_VISIBILITY_H
#define DRAWLOAD_VISIBILITY_H

/* Marks the few names that the shared library exports; everything else is hidden. */
#if defined(_WIN32)
#define DRAWLOAD_API
#else
#define DRAWLOAD_API __attribute__((visibility("default")))
#endif

#endif
