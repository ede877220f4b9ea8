// Any file under any calls of xml_stream_parser, compared with the plain reference parser. The place of the
// last error is in the file.
//
// An input is four bytes of settings, then the length of a script, the script, and the file:
//
//     byte 0       the open levels in two bits; 4: a header is put before the file; 8: the file is shifted so
//                  that the edge of the window is in it
//     bytes 1, 2   the position of the edge
//     byte 3       how much of the file is added in the middle of the script
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>

#include "orva/parser/xml_stream_parser.hpp"
#include "tests/support/reference_xml_stream.hpp"
#include "tests/support/xml_stream_file.hpp"
#include "tests/support/xml_stream_transcript.hpp"

namespace {

using orva_test::read_all;
using orva_test::run_script;
using orva_test::transcript;

struct plan {
  unsigned open_depth;
  std::string document;
  std::size_t there_at_first;
  std::string_view script;
};

constexpr std::size_t window = 0x10000;
constexpr std::size_t bytes_of_plan = 5;

plan read_plan(std::string_view input) {
  const auto byte = [input](std::size_t at) { return static_cast<unsigned char>(input[at]); };
  const std::string_view rest = input.substr(bytes_of_plan);
  const std::string_view script = rest.substr(0, byte(4));
  const std::string_view file = rest.substr(script.size());
  plan result{byte(0) & 3u, std::string(file), 0, script};
  if ((byte(0) & 4) != 0) {
    constexpr std::string_view header = "<?xml version='1.0' encoding='UTF-8' standalone='yes'?>";
    result.document.insert(0, header);
    const auto edge = (byte(1) * 256u + byte(2)) % (result.document.size() + 1);
    if ((byte(0) & 8) != 0 && result.document.size() < window)
      result.document.insert(header.size(), window - edge, ' ');
  }
  result.there_at_first =
      result.document.size() - std::min<std::size_t>(byte(3) * file.size() / 255, file.size());
  return result;
}

template <typename Parser, typename Grow>
transcript follow(Parser& parser, const plan& plan, Grow grow) {
  const auto half = plan.script.size() / 2;
  transcript seen = run_script(parser, plan.script.substr(0, half));
  grow();
  for (const auto& more : {run_script(parser, plan.script.substr(half)), read_all(parser)}) {
    seen.insert(seen.end(), more.begin(), more.end());
  }
  return seen;
}

void require_equal(const transcript& actual, const transcript& expected) {
  if (actual == expected) return;
  const auto differ = std::mismatch(actual.begin(), actual.end(), expected.begin(), expected.end());
  std::cerr << "step " << differ.first - actual.begin()
            << "\nthe parser:    " << (differ.first == actual.end() ? "nothing" : *differ.first)
            << "\nthe reference: " << (differ.second == expected.end() ? "nothing" : *differ.second)
            << std::endl;
  std::abort();
}

void require_place_in_file(const ORVA_NAMESPACE::parser::xml_stream_parser& parser, std::size_t size) {
  const auto error = parser.last_error();
  if (error.offset >= 0 &&
      error.offset + static_cast<long long>(error.data.size()) <= static_cast<long long>(size))
    return;
  std::cerr << "not in the file: " << error << std::endl;
  std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < bytes_of_plan) return 0;
  static const orva_test::xml_stream_file file;
  const plan plan = read_plan({reinterpret_cast<const char*>(data), size});
  const std::string_view document = plan.document;
  const auto first = document.substr(0, plan.there_at_first);
  const auto rest = document.substr(plan.there_at_first);

  file.write(first);
  ORVA_NAMESPACE::parser::xml_stream_parser parser(file.path(), plan.open_depth);
  const transcript actual = follow(parser, plan, [&] { file.append(rest); });
  orva_test::reference_xml_stream reference(std::string(first), plan.open_depth);
  const transcript expected = follow(reference, plan, [&] { reference.append(std::string(rest)); });
  require_equal(actual, expected);
  require_place_in_file(parser, document.size());
  return 0;
}
