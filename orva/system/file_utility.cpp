#include "orva/system/file_utility.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "orva/internal/raise.hpp"
#include "orva/platform/file.hpp"
#include "orva/platform/file_operations.hpp"
#include "orva/platform/memory.hpp"
#include "orva/platform/symbolic_link.hpp"

namespace ORVA_NAMESPACE::system {

namespace {

constexpr std::int64_t largest_size = 0x7FFFFFFF;

/// Clears `contents` and gives it room for `size` bytes, without copying the old bytes. They stay if there is
/// no memory.
void reserve_anew(std::string& contents, std::size_t size) {
  if (size > contents.capacity()) {
    std::string larger;
    larger.reserve(size);
    platform::expect_filling(larger.data(), size);
    contents = std::move(larger);
  }
  contents.clear();
}

void read_whole(platform::input_file& file, std::size_t size, std::string& contents) {
  // Resized in pieces: the zeros of a piece are still in the cache when the file's bytes overwrite them.
  // Zeros for the whole of a large file would pass through memory twice.
  constexpr std::size_t piece_size = 0x20000;
  reserve_anew(contents, size);
  while (contents.size() < size) {
    const std::size_t begin = contents.size();
    const std::size_t count = std::min(piece_size, size - begin);
    contents.resize(begin + count);
    if (file.read(static_cast<std::int64_t>(begin), contents.data() + begin, count) < count) break;
  }
  contents.resize(size);
}

bool make_directory(std::basic_string_view<strings::code_unit16> path) {
  return platform::make_directory(platform::to_native(path));
}

}  // namespace

int load_file(const path_argument& path, std::string& contents) {
  const auto native = platform::to_native(path.view());
  if (platform::is_symbolic_link(native)) return 1;
  platform::input_file file(native);
  if (!file.is_open()) return 1;
  if (file.size() > largest_size) {
    ORVA_RAISE(exceptions::runtime_error, std::to_string(file.size()) + " is large than a string can hold",
               ORVA_QUALIFIED("system::load_file"));
  }
  read_whole(file, static_cast<std::size_t>(file.size()), contents);
  return 0;
}

int store_file(const path_argument& path, const std::string& contents) {
  const auto native = platform::to_native(path.view());
  if (platform::is_symbolic_link(native)) return 1;
  return platform::write_file(native, contents) ? 0 : 1;
}

bool create_directory(const path_argument& path) {
  const std::basic_string_view<strings::code_unit16> whole = path.view();
  const auto native = platform::to_native(whole);
  const bool separator_at_end = whole.ends_with(platform::separator);
  // The status of "logs/" is not used: systems differ on a separator at the end, and the result is that of
  // the loop below on all of them.
  const bool has_status = !separator_at_end || platform::is_root(native);
  if (has_status && platform::status(native).is_directory) return true;
  if (whole.find(strings::code_unit16{}) != whole.npos) return false;

  bool made = false;
  for (auto at = whole.find(platform::separator, 1); at != whole.npos;
       at = whole.find(platform::separator, at + 1))
    made = make_directory(whole.substr(0, at));
  if (!separator_at_end) made = make_directory(whole);
  return made;
}

bool have_read_access(const path_argument& path) {
  return platform::status(platform::to_native(path.view())).owner_may_read;
}

}  // namespace ORVA_NAMESPACE::system
