#include "orva/exceptions/exception.hpp"

#include <cstddef>

namespace ORVA_NAMESPACE::exceptions {

namespace {

template <std::size_t Size>
void copy_text(char (&to)[Size], const char* from) noexcept {
  std::size_t length = 0;
  while (length + 1 < Size && from[length] != '\0') {
    to[length] = from[length];
    ++length;
  }
  to[length] = '\0';
}

}  // namespace

exception::state::state(unsigned int line, const char* file, const char* function) noexcept : line_(line) {
  if (file != nullptr) copy_text(file_, file);
  if (function != nullptr) copy_text(function_, function);
}

exception::state::state(const state& other) noexcept : line_(other.line_) {
  // Copies the texts, not the whole arrays: every throw makes a copy, and the texts are short.
  if (other.file_[0] != '\0') copy_text(file_, other.file_);
  if (other.function_[0] != '\0') copy_text(function_, other.function_);
}

exception::exception(unsigned int line, const char* file, const char* function)
    : state_(line, file, function) {}

exception::exception(const state& raised_at) : state_(raised_at) {}

logic_error::logic_error(const std::string& message, const state& raised_at)
    : exception(raised_at), message_(message) {}

logic_error::logic_error(const std::string& message, unsigned int line, const char* file,
                         const char* function)
    : exception(line, file, function), message_(message) {}

const char* logic_error::get_message() const { return message_.c_str(); }

runtime_error::runtime_error(const std::string& message, const state& raised_at)
    : exception(raised_at), message_(message) {}

runtime_error::runtime_error(const std::string& message, unsigned int line, const char* file,
                             const char* function)
    : exception(line, file, function), message_(message) {}

const char* runtime_error::get_message() const { return message_.c_str(); }

// The destructors are defined here so that each class has one type_info, which all modules of a program
// share. A handler in one module must catch what another module throws.
exception::~exception() = default;
logic_error::~logic_error() = default;
runtime_error::~runtime_error() = default;
invalid_argument_value::~invalid_argument_value() = default;
length_error::~length_error() = default;
out_of_range::~out_of_range() = default;
empty_error::~empty_error() = default;
full_error::~full_error() = default;
overflow_error::~overflow_error() = default;
underflow_error::~underflow_error() = default;

}  // namespace ORVA_NAMESPACE::exceptions
