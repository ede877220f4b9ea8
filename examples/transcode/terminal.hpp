/// What the program asks the operating system.
#pragma once

namespace transcode {

/// Whether standard error is shown to a person.
bool error_is_terminal();

/// Lets the standard streams carry bytes as they are.
void make_streams_binary();

}  // namespace transcode
