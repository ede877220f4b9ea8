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
