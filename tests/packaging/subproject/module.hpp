/// A module of a program, compiled once for each version of the library, and seen through C functions only.
#pragma once

struct module_functions {
  /// The namespace of the version that the module uses.
  const char* version_namespace;
  /// Raises an exception of the library: a date that no calendar has.
  void (*raise)();
  /// Whether `raise` ends with an exception of the module's own version of the library.
  bool (*catches)(void (*raise)());
  /// The text of a message with a value in it.
  const char* (*message)();
  /// Installs an assertion hook, and how many assertions it has seen.
  void (*install_hook)();
  int (*assertions_seen)();
  /// Fails an assertion of the library.
  void (*fail_assertion)();
};
