/// `describe`: an exception of any kind as text, for logs and messages.
///
///     try {
///       job.run();
///     } catch (...) {
///       log(exceptions::describe());
///     }
///
/// writes for example
///
///     app::job_failed: cannot save the report [app::job::run, app/job:52]
///     caused by std::runtime_error: the disk is full
///
/// One line for each exception, in UTF-8 if the messages are, without a line feed at the end:
///
///     what was thrown                                what the line has
///     a class derived from `exceptions::exception`   the class, the message, where it was raised
///     a class derived from `std::exception`          the class, `what()`
///     a `std::string`, a C string                    "text: " and the text
///     anything else                                  "an object of type int", with the type that was thrown
///     nothing, or an exception of another language   "no C++ exception"
///
/// The causes are the exceptions that the one before them has nested, by `std::throw_with_nested` or a class
/// derived from `std::nested_exception`. A part that is missing is left out: an empty message, a place
/// without a function. Any thread may call.
///
/// `orva/exceptions/terminate_handler.hpp` shows this text for a failure that nothing catches.
#pragma once

#include <exception>
#include <string>

#include "orva/export.hpp"

namespace ORVA_NAMESPACE::exceptions {

/// The exceptions that one text describes at most. After them it says that there are more.
inline constexpr int max_described_exceptions = 100;

/// The exception that is being handled, or the one given. Throws only on lack of memory.
[[nodiscard]] ORVA_API std::string describe(const std::exception_ptr& failure = std::current_exception());

}  // namespace ORVA_NAMESPACE::exceptions
