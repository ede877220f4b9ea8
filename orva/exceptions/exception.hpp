/// The library's exceptions.
///
///     try {
///       system::load_file("large.bin", text);
///     } catch (const exceptions::exception& failure) {
///       log(failure.message(), failure.error_state().function());
///     }
///
/// The hierarchy does not derive from `std::exception`: catch `exceptions::exception` or one of its branches,
/// by reference. An exception is a plain value, which owns its message and the source location at which it
/// was raised. Exceptions share nothing between threads.
///
///     exception                         abstract root
///       logic_error                     an error of the calling code
///         invalid_argument_value        an argument outside the valid values
///         length_error                  for applications; the library does not raise it
///         out_of_range                  a date or time field out of the valid range
///       runtime_error                   an error that only shows at run time
///         empty_error, full_error       for applications; the library does not raise them
///         overflow_error                a number above the range of its type
///         underflow_error               a number below the range of its type
///
/// `orva/exceptions/describe.hpp` writes any exception as one text: class, message, place and causes.
///
/// Edge cases: docs/edges.md#core
#pragma once

#include <string>

#include "orva/export.hpp"

namespace ORVA_NAMESPACE::exceptions {

class ORVA_API exception {
 public:
  /// The source location at which an exception was raised. The texts are in the object itself, so that making
  /// one allocates nothing.
  class ORVA_API state {
   public:
    /// `file` and `function` are copied; null leaves the text empty.
    /// REQUIRES: each text is shorter than 256 characters. A longer one is cut.
    state(unsigned int line, const char* file, const char* function) noexcept;
    state(const state& other) noexcept;
    state& operator=(const state& other) noexcept = default;
    ~state() = default;

    unsigned int line() const noexcept { return line_; }
    /// The source file: its path under the source root, without extension. Example: `strings/code_page`.
    const char* file() const noexcept { return file_; }
    /// The qualified name of the raising function: `ORVA_<major>_<minor>::system::load_file`.
    const char* function() const noexcept { return function_; }

   private:
    unsigned int line_;
    char file_[256] = {};
    char function_[256] = {};
  };

  exception(unsigned int line, const char* file, const char* function);
  explicit exception(const state& raised_at);
  exception(const exception& other) = default;
  exception& operator=(const exception& other) = default;
  virtual ~exception();

  /// The message for a person. Valid as long as this object.
  const char* message() const { return get_message(); }
  const state& error_state() const noexcept { return state_; }

 private:
  virtual const char* get_message() const = 0;

  state state_;
};

/// A mistake that the caller could have avoided.
class ORVA_API logic_error : public exception {
 public:
  /// Takes the source location from another exception: for raising a new one in its place.
  logic_error(const std::string& message, const state& raised_at);
  logic_error(const std::string& message, unsigned int line, const char* file, const char* function);
  logic_error(const logic_error& other) = default;
  logic_error& operator=(const logic_error& other) = default;
  ~logic_error() override;

 private:
  const char* get_message() const override;

  std::string message_;
};

/// A condition that no caller can rule out beforehand.
class ORVA_API runtime_error : public exception {
 public:
  /// Takes the source location from another exception: for raising a new one in its place.
  runtime_error(const std::string& message, const state& raised_at);
  runtime_error(const std::string& message, unsigned int line, const char* file, const char* function);
  runtime_error(const runtime_error& other) = default;
  runtime_error& operator=(const runtime_error& other) = default;
  ~runtime_error() override;

 private:
  const char* get_message() const override;

  std::string message_;
};

// The derived classes differ only in their type, by which a handler selects.

/// An argument has a value that the function does not take.
class ORVA_API invalid_argument_value : public logic_error {
 public:
  using logic_error::logic_error;
  invalid_argument_value(const invalid_argument_value& other) = default;
  invalid_argument_value& operator=(const invalid_argument_value& other) = default;
  ~invalid_argument_value() override;
};

/// A length or a size is too large. For applications; the library does not raise it.
class ORVA_API length_error : public logic_error {
 public:
  using logic_error::logic_error;
  length_error(const length_error& other) = default;
  length_error& operator=(const length_error& other) = default;
  ~length_error() override;
};

/// A field of a date or a time has a value that no calendar or clock has.
class ORVA_API out_of_range : public logic_error {
 public:
  using logic_error::logic_error;
  out_of_range(const out_of_range& other) = default;
  out_of_range& operator=(const out_of_range& other) = default;
  ~out_of_range() override;
};

/// Something was asked of a container that holds nothing. For applications too.
class ORVA_API empty_error : public runtime_error {
 public:
  using runtime_error::runtime_error;
  empty_error(const empty_error& other) = default;
  empty_error& operator=(const empty_error& other) = default;
  ~empty_error() override;
};

/// Something was added to a container that takes no more. For applications too.
class ORVA_API full_error : public runtime_error {
 public:
  using runtime_error::runtime_error;
  full_error(const full_error& other) = default;
  full_error& operator=(const full_error& other) = default;
  ~full_error() override;
};

/// A number is above the range of its type.
class ORVA_API overflow_error : public runtime_error {
 public:
  using runtime_error::runtime_error;
  overflow_error(const overflow_error& other) = default;
  overflow_error& operator=(const overflow_error& other) = default;
  ~overflow_error() override;
};

/// A number is below the range of its type.
class ORVA_API underflow_error : public runtime_error {
 public:
  using runtime_error::runtime_error;
  underflow_error(const underflow_error& other) = default;
  underflow_error& operator=(const underflow_error& other) = default;
  ~underflow_error() override;
};

}  // namespace ORVA_NAMESPACE::exceptions
