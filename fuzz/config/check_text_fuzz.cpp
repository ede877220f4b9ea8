/// Checks any bytes as the text of a configuration file. Places are in the text and in order. A text without
/// errors and warnings reads as it looks, and one without any finding comes back after a save.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "fuzz/config/fuzz_input.hpp"
#include "fuzz/require.hpp"
#include "orva/config/check_file.hpp"
#include "orva/config/file_item.hpp"
#include "tests/support/config_item.hpp"
#include "tests/support/reference_config_lines.hpp"

namespace {

using namespace orva_fuzz;
using ORVA_NAMESPACE::config::file_item;
using ORVA_NAMESPACE::diagnostics::line_index;
using ORVA_NAMESPACE::diagnostics::place;
using ORVA_NAMESPACE::diagnostics::report;
using ORVA_NAMESPACE::diagnostics::severity;

bool is_before(const place& left, const place& right) {
  return std::pair(left.line, left.column) < std::pair(right.line, right.column);
}

void require_places_in(std::string_view text, const report& found) {
  const line_index lines(text);
  const place end = lines.place_of(text.size());
  place last{1, 1};
  for (const auto& each : found.findings()) {
    require(!is_before(each.at, last) && !is_before(end, each.at));
    require(sentence(each) != each.code);
    last = each.at;
  }
}

void require_few_are_the_first(std::string_view text, const report& found) {
  report few(2);
  ORVA_NAMESPACE::config::check_text(text, "", few);
  require(few.count() == found.count() && few.count(severity::error) == found.count(severity::error));
  for (std::size_t i = 0; i < few.findings().size(); ++i) {
    require(few.findings()[i].code == found.findings()[i].code);
    require(few.findings()[i].at == found.findings()[i].at);
  }
}

void require_saved_as_it_was(const file_item& item) {
  static const scratch_file saved("-saved.cfg");
  file_item other(saved.path());
  static_cast<ORVA_NAMESPACE::config::base_config_item&>(other) = item;
  require(other.save());
  other.unload();
  require(other.load());
  require(orva_test::listing_of(other) == orva_test::listing_of(item));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const scratch_file file("-checked.cfg");
  if (size > longest_input) return 0;
  const std::string text(text_of(data, size));
  report found(2 * longest_input + 100);
  ORVA_NAMESPACE::config::check_text(text, "", found);
  require(found.not_kept() == 0);
  require_places_in(text, found);
  require_few_are_the_first(text, found);
  if (found.count(severity::error) + found.count(severity::warning) > 0) return 0;
  file.write(text);
  file_item item(file.path());
  require(item.load());
  require(orva_test::listing_of(item) == orva_test::reference_line_reader(text).tree.listing());
  if (found.empty()) require_saved_as_it_was(item);
  return 0;
}
