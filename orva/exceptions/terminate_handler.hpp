/// `install_terminate_handler`: an exception that nothing catches shows its text and place before the program
/// ends.
///
///     int main() {
///       exceptions::install_terminate_handler();
///       ...
///     }
///
/// The program then ends with, on standard error,
///
///     terminated by app::queue_full: no room for job 8 [app::push, app/queue:21]
///
/// and with what it ended before: the handler calls the one that was installed before it, by default the one
/// of the runtime, which aborts. The text is that of `describe`, causes included. If `std::terminate` was
/// called without an exception, the text is "terminated without a C++ exception". GCC also calls it so where
/// it has joined a throw, and the `noexcept` function that the exception would leave, into one function.
///
/// The handler allocates nothing by itself and uses no locale, so that it also works when memory is
/// exhausted; class names then are those of the linker. A failure in the handler itself leaves out the rest
/// of the text. Where several threads fail at once, the first one shows its exception and ends the program;
/// the others wait for that. The handler is not made for signals: a program that ends by one, such as a
/// segmentation fault, does not call it.
#pragma once

#include "orva/export.hpp"

namespace ORVA_NAMESPACE::exceptions {

/// Installs the handler by `std::set_terminate`, for all threads. To do it twice changes nothing; to do it
/// after something else has installed a handler puts this one in front again.
ORVA_API void install_terminate_handler() noexcept;

}  // namespace ORVA_NAMESPACE::exceptions
