/// Renders any message with a fixed list of arguments. Each line of the input is an item: its first byte is
/// the type, the rest its data.
///
/// Failed placeholders write to standard error: run it with -close_fd_mask=2.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/require.hpp"
#include "orva/i18n/message.hpp"

namespace {

using namespace ORVA_NAMESPACE;
using generic::argument;
using i18n::message_item;
using orva_fuzz::require;

std::vector<message_item> read_items(std::string_view text) {
  std::vector<message_item> items;
  while (!text.empty()) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    if (line.empty()) continue;
    const auto type = static_cast<message_item::type_t>(static_cast<unsigned char>(line[0]) % 16);
    items.emplace_back(strings::ustring8(line.substr(1)), type);
  }
  return items;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const i18n::message_t message(read_items({reinterpret_cast<const char*>(data), size}));
  const generic::varg_list args(argument("n", 1500000), argument("d", -1234.5), argument("t", "0x7fff"),
                                argument(7), argument("z", types::nil), argument("-0", "-0"));
  std::string pieces;
  for (const message_item& item : message) pieces += item.as_string(args);
  require(message.as_string(args) == pieces);
  require(message.argument_count() <= message.count());
  require(message.arguments().size() <= message.argument_count());
  require(message.as_utf16(args) == message.as_wstring(args));
  message.as_utf32(args);
  message.has_valid_args(args);
  return 0;
}
