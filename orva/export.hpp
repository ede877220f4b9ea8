/// ORVA_API marks what the shared library exports. Everything else is hidden, so that a name that is not
/// marked here can change without breaking a program that is already linked.
#pragma once

#include "orva/version.hpp"

#if defined(_WIN32)
#if defined(ORVA_BUILDING_LIBRARY)
#define ORVA_API __declspec(dllexport)
#else
#define ORVA_API __declspec(dllimport)
#endif
#else
#define ORVA_API __attribute__((visibility("default")))
#endif

// Two warnings of Clang name what is meant so: names that are specified although the language reserves them
// (`-Wreserved-identifier`), and classes whose virtual functions are all in the header, for speed or for
// constant expressions (`-Wweak-vtables`). Only such declarations are between these two.
#if defined(__clang__)
#define ORVA_BEGIN_EXEMPT_FROM(warning) _Pragma("clang diagnostic push") _Pragma(warning)
#define ORVA_END_EXEMPT _Pragma("clang diagnostic pop")
#else
#define ORVA_BEGIN_EXEMPT_FROM(warning)
#define ORVA_END_EXEMPT
#endif
#define ORVA_BEGIN_RESERVED_NAMES ORVA_BEGIN_EXEMPT_FROM("clang diagnostic ignored \"-Wreserved-identifier\"")
#define ORVA_END_RESERVED_NAMES ORVA_END_EXEMPT
#define ORVA_BEGIN_INLINE_VTABLE ORVA_BEGIN_EXEMPT_FROM("clang diagnostic ignored \"-Wweak-vtables\"")
#define ORVA_END_INLINE_VTABLE ORVA_END_EXEMPT
