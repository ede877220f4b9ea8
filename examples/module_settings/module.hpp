/// The interface between the host and a module.
#pragma once

extern "C" {

/// Reads the settings of the module from these files, the first with the highest precedence, and writes them
/// to standard output. Every module exports it under the name "module_describe".
using module_describe_function = void(const char* const* files, unsigned int count,
                                      const char* const* environment);
}
