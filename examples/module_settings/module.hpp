/// What the host knows of a module.
#pragma once

extern "C" {

/// Reads the settings of the module from these files, the first before the second, and writes them to
/// standard output. Every module exports it under the name "module_describe".
using module_describe_function = void(const char* const* files, unsigned int count,
                                      const char* const* environment);
}
