/// Reads any text as a whole flat form. What is taken is read by the buffer itself in the same way, and is
/// read again from what is written; what is not taken leaves the buffer alone.
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>

#include "fuzz/require.hpp"
#include "orva/serialization/exact_flat_form.hpp"

namespace {

using namespace ORVA_NAMESPACE::serialization;
using orva_fuzz::require;

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(data, data + size);
  labeled_text_buffer exact;
  exact.add_value("kept", 1);
  const read_failure failure = read_exact_flat_form(text, exact);
  if (failure.error != read_error::none) {
    require(failure.item <= failure.position && failure.position <= size && !describe(failure).code.empty());
    require(exact.has_value("kept"));
    return 0;
  }
  const std::string written = write_exact_flat_form(exact);
  require(written.size() <= size && written == exact.as_str());
  require(labeled_text_buffer(text).as_str() == written);
  labeled_text_buffer again;
  require(read_exact_flat_form(written, again).error == read_error::none && again.as_str() == written);
  return 0;
}
