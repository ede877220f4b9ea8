/// Reads any bytes as tokens, as expressions with each separator, and as a key.
#include <cstddef>
#include <cstdint>
#include <sstream>

#include "fuzz/config/fuzz_input.hpp"
#include "fuzz/require.hpp"
#include "tests/support/config_item.hpp"

namespace {

using namespace orva_fuzz;
using namespace orva_test;
using ORVA_NAMESPACE::config::config_token;

void compare_tokens(const std::string& text) {
  const auto tokens = tokens_of(text);
  require(tokens == reference_tokens(text));
  std::size_t end = 0;
  for (const auto& token : tokens) {
    require(token.start == end && token.end > token.start);
    end = token.end;
  }
  require(end == text.size() || end == text.size() + 1);
}

/// Key and value have no more text than the source.
void split(const plain_item& item, const std::string& text) {
  for (int type = -1; type < 34; ++type) {
    const auto [key, value] = item.make_key_value(text, static_cast<config_token::tok_types>(type));
    require(key.size() + value.as_string().size() <= text.size());
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > longest_input) return 0;
  const std::string text(text_of(data, size));
  compare_tokens(text);

  plain_item item;
  split(item, text);
  reference_tree reference;
  item.set(text, 0);
  const auto [key, value] = item.make_key_value(text, config_token::T_EQ);
  reference.set(key, value.as_string(), 0);
  item.set(text, 17, 4);
  reference.set(text, "17", 4);
  require(listing_of(item) == reference.listing());
  require(item.get_value(text) != nullptr);

  const plain_item copy(item);
  item.unload();
  require(listing_of(copy) == reference.listing());
  std::ostringstream stream;
  if (size < 300) stream << copy;
  return 0;
}
