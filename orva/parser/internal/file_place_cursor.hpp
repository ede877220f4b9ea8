/// `file_place_cursor`: lines and columns in a file of any size, by the rules of `diagnostics::place_of`.
///
/// Internal. It remembers the last place, so that a series of growing offsets reads the file once.
///
///     file_place_cursor cursor;
///     cursor.place_of(path, 1000000)     =>  line 20431, column 7
#pragma once

#include <cstdint>
#include <string_view>

#include "orva/diagnostics/place.hpp"
#include "orva/platform/native_path.hpp"

namespace ORVA_NAMESPACE::parser::_private {

class file_place_cursor {
 public:
  /// None if the file cannot be opened. An offset after its end gives the place after its last character.
  diagnostics::place place_of(const platform::native_string& path, std::int64_t offset);

 private:
  std::int64_t pass(std::string_view text, std::int64_t count);

  // The place of a byte that begins a character.
  std::int64_t offset_ = 0;
  diagnostics::place place_{1, 1};
};

}  // namespace ORVA_NAMESPACE::parser::_private
