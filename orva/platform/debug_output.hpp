/// The debug output: where diagnostics go that no caller asked for.
///
/// Internal: not installed. A port owes a channel that a developer watches and a program's user does not read
/// as the program's output: the debugger's on Windows, standard error elsewhere, never standard output. Any
/// thread may write at any time; one text arrives whole as far as the channel can promise it.
#pragma once

#include <string_view>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::platform {

/// Sends `text` as it stands, without a line feed of its own and without a buffer. A channel that is closed
/// or fails takes nothing and reports nothing.
void debug_output(std::string_view text) noexcept;

}  // namespace ORVA_NAMESPACE::platform
