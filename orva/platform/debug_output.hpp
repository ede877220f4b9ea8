/// The debug output: the channel for diagnostics that no caller asked for.
///
/// Internal: not installed. A port provides a channel that developers watch and that is not a program's own
/// output: the debugger's on Windows, standard error elsewhere, never standard output. Any thread may write
/// at any time. One text arrives in one piece as far as the channel can promise it.
#pragma once

#include <string_view>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::platform {

/// Sends `text` unchanged, without a line feed added and without a buffer. A channel that is closed or fails
/// takes nothing and reports nothing.
void debug_output(std::string_view text) noexcept;

}  // namespace ORVA_NAMESPACE::platform
