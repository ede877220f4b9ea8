/// Reads any text as the flat form of a labeled buffer, compared with the plain recursive reader. Then writes
/// the content and reads it again, copies it, and overlays it with itself.
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>

#include "fuzz/require.hpp"
#include "orva/serialization/labeled_text_buffer.hpp"
#include "tests/support/reference_serialization.hpp"

namespace {

using orva_fuzz::require;
using ORVA_NAMESPACE::serialization::labeled_text_buffer;

template <typename Read>
bool throws(Read read) {
  try {
    read();
    return false;
  } catch (const std::out_of_range&) {
    return true;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(data, data + size);
  labeled_text_buffer buffer;
  orva_test::reference_labeled reference;
  bool reference_throws = false;
  try {
    reference_throws = throws([&] { reference.read(text); });
  } catch (const orva_test::reference_labeled::too_much_effort&) {
    throws([&] { buffer.assign(text); });
    return 0;
  }
  require(throws([&] { buffer.assign(text); }) == reference_throws);
  require(reference.is_content_of(buffer));

  labeled_text_buffer copy(buffer);
  copy.overlay(buffer);
  require(reference.is_content_of(copy));

  const std::string flat = buffer.as_str();
  if (reference.has_empty_label()) return 0;
  buffer.assign(flat);
  require(buffer.as_str() == flat);
  return 0;
}
