#include "orva/parser/internal/stream_window.hpp"

#include <algorithm>
#include <cstring>
#include <ios>
#include <stdexcept>

#include "orva/platform/file.hpp"
#include "orva/platform/symbolic_link.hpp"

namespace ORVA_NAMESPACE::parser::_private {

namespace {

/// The standard stream failure with only these words; the standard library's own `what` adds more.
class stream_failure : public std::ios_base::failure {
 public:
  explicit stream_failure(const char* words) : failure(words), words_(words) {}
  const char* what() const noexcept override { return words_; }

 private:
  const char* words_;
};

stream_window::file_state state_of(const platform::native_string& path) {
  try {
    return platform::is_symbolic_link(path) ? stream_window::file_state::symbolic_link
                                            : stream_window::file_state::readable;
  } catch (const std::runtime_error&) {
    // The system does not give its status, for example because its folder is a circle of links.
    return stream_window::file_state::cannot_be_opened;
  }
}

}  // namespace

stream_window::file_state stream_window::open(const strings::ustring16& file) {
  path_ = platform::to_native(file);
  buffer_.resize(2 * size);
  first_ = last_ = buffer_.data();
  bytes_read_ = 0;
  const file_state state = state_of(path_);
  if (state != file_state::readable) return state;
  return platform::input_file(path_).is_open() ? file_state::readable : file_state::cannot_be_opened;
}

stream_window::load_result stream_window::load() {
  const file_state state = state_of(path_);
  if (state != file_state::readable) return {state, 0};
  platform::input_file file(path_);
  if (!file.is_open()) return {file_state::cannot_be_opened, 0};
  const std::int64_t end = std::min(file.size(), offset() + static_cast<std::int64_t>(size));
  if (end <= bytes_read_) return {state, 0};
  const auto count = static_cast<std::size_t>(end - bytes_read_);
  make_room(count);
  if (file.read(bytes_read_, last_, count) < count) throw stream_failure("ios_base::failbit set");
  bytes_read_ = end;
  last_ += count;
  return {state, count};
}

void stream_window::make_room(std::size_t count) noexcept {
  if (static_cast<std::size_t>(buffer_.data() + buffer_.size() - last_) >= count) return;
  const auto held = static_cast<std::size_t>(last_ - first_);
  std::memmove(buffer_.data(), first_, held);
  first_ = buffer_.data();
  last_ = buffer_.data() + held;
}

std::int64_t stream_window::file_length() const {
  if (state_of(path_) != file_state::readable) return -1;
  const platform::input_file file(path_);
  return file.is_open() ? file.size() : -1;
}

}  // namespace ORVA_NAMESPACE::parser::_private
