/// Tables of a page that only the system knows, made from its answers.
///
/// Windows may assume a page that no table is for, such as 437 or 850 for terminals. Asked once for each unit
/// and for each pair of bytes, in some ten milliseconds, it gives tables like those of all other pages.
///
/// Internal: not installed.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "orva/internal/code_pages/double_byte_page.hpp"
#include "orva/internal/code_pages/single_byte_page.hpp"

namespace ORVA_NAMESPACE::internal::code_pages {

class asked_page {
 public:
  /// The two conversions, by the number of the page. The second argument has no zeros.
  using encode_call = bool (*)(int, std::basic_string_view<strings::code_unit16>, std::string&);
  using decode_call = bool (*)(int, std::string_view, std::basic_string<strings::code_unit16>&);

  /// Characters of more than two bytes, and second bytes below 0x40, count as missing: no page that a system
  /// assumes has them, except UTF-8. So does everything where the calls fail.
  asked_page(int number, encode_call encode, decode_call decode);
  asked_page(const asked_page&) = delete;
  asked_page& operator=(const asked_page&) = delete;

  /// Calls `use` with the tables.
  template <typename Use>
  void with_tables(Use use) const {
    if (rows_.empty()) {
      use(single_byte_);
    } else {
      use(double_byte_);
    }
  }

 private:
  void ask_bytes(decode_call decode);
  bool is_lead(unsigned char byte, decode_call decode) const;
  void add_row(unsigned char lead, decode_call decode);
  void ask_units(encode_call encode);
  std::uint16_t bytes_of(strings::code_unit16 unit, encode_call encode) const;

  int number_;
  std::vector<unsigned char> single_byte_blocks_;
  std::vector<std::uint16_t> double_byte_blocks_;
  std::vector<strings::code_unit16> rows_;
  single_byte_page single_byte_{};
  double_byte_page double_byte_{};
};

}  // namespace ORVA_NAMESPACE::internal::code_pages
