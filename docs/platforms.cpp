#include <filesystem>
#include <iostream>
#include <string>
#include <type_traits>

#include "orva/orva.hpp"

namespace strings = orva::strings;

int main() {
  // Units have the same width everywhere. Where wchar_t has 16 bits, it is the unit of ustring16.
  static_assert(sizeof(strings::code_unit16) == 2 && sizeof(strings::code_unit32) == 4);
  static_assert(std::is_same_v<strings::code_unit16, wchar_t> == (sizeof(wchar_t) == 2));
  std::cout << strings::utf16_to_utf8(strings::from_wchar(L"\u00A9 \U0001F600")) << '\n';

  // Write a path of several parts with the system's own separator.
  std::filesystem::current_path(std::filesystem::temp_directory_path());
  const std::string logs = std::filesystem::path("orva_platforms_guide/logs").make_preferred().string();
  std::cout << std::boolalpha << orva::system::create_directory(logs) << '\n';
  // To open a file, a slash works on Windows too.
  if (orva::system::store_file(logs + "/today.txt", "started\n") != 0) return 1;
  for (const auto& path : orva::system::list_directory(logs)) std::cout << path << '\n';
  std::filesystem::remove_all("orva_platforms_guide");

  // What one system writes, every other reads: code pages have numbers, and bytes a fixed order.
  const std::string price = strings::code_page(strings::code_page::cp_1252).encode("5 \xE2\x82\xAC");
  std::cout << strings::code_page(strings::code_page::cp_1252).as_utf8(price) << ", " << price.size()
            << " bytes\n";
  orva::serialization::serialize_binary_buf buffer;
  buffer.append_uint32(0x01020304);
  std::cout << static_cast<int>(buffer.as_str()[0]) << '\n';
}
