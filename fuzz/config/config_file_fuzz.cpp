/// Reads any bytes as a configuration file, and compares the keys with those of the reference reader.
#include <cstddef>
#include <cstdint>

#include "fuzz/config/fuzz_input.hpp"
#include "fuzz/require.hpp"
#include "orva/config/file_item.hpp"
#include "tests/support/config_item.hpp"

namespace {

using namespace orva_fuzz;
using ORVA_NAMESPACE::config::file_item;

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const scratch_file file("-read.cfg");
  if (size > longest_input) return 0;
  const std::string text(text_of(data, size));
  file.write(text);
  file_item item(file.path());
  require(item.load());
  const orva_test::reference_file_reader reference(text);
  require(orva_test::listing_of(item) == reference.tree.listing());
  require(item.load());
  item.unload();
  require(orva_test::listing_of(item).empty());
  return 0;
}
