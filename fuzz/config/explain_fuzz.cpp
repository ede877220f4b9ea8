/// Explains every key of a manager whose file, arguments and environment are the input, and compares the
/// values with those of the manager. The input has three parts, separated by a line of "==": the file, the
/// arguments and the variables, one in each line.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "fuzz/config/fuzz_input.hpp"
#include "fuzz/require.hpp"
#include "orva/config/config_manager.hpp"
#include "orva/config/explain.hpp"
#include "orva/config/std_config_dispatch.hpp"

namespace {

using namespace orva_fuzz;
using namespace ORVA_NAMESPACE::config;

/// Moves the first part of `rest` to the result.
std::string_view next_part(std::string_view& rest) {
  constexpr std::string_view mark = "\n==\n";
  const auto end = rest.find(mark);
  const std::string_view part = rest.substr(0, end);
  rest.remove_prefix(end == rest.npos ? rest.size() : end + mark.size());
  return part;
}

/// The lines of a text as an array of the C runtime.
class text_block {
 public:
  text_block(std::string first, std::string_view text) {
    if (!first.empty()) lines_.push_back(std::move(first));
    std::istringstream stream{std::string(text)};
    for (std::string line; std::getline(stream, line);) lines_.push_back(line.c_str());
    for (const auto& line : lines_) pointers_.push_back(line.c_str());
    pointers_.push_back(nullptr);
  }

  const char* const* get() const { return pointers_.data(); }
  int size() const { return static_cast<int>(lines_.size()); }

 private:
  std::vector<std::string> lines_;
  std::vector<const char*> pointers_;
};

/// The value of a plain file: its place is known, and so are the numbers of arguments.
void require_origin(const explained_step& step, std::size_t lines, int arguments) {
  if (step.origin.kind == origin_kind::file && step.kind != node_kind::section) {
    require(step.origin.at.line >= 1 && step.origin.at.line <= lines);
    require(step.origin.at.column >= 1);
  }
  if (step.origin.kind == origin_kind::argument && step.kind != node_kind::section) {
    require(!step.origin.name.empty() || step.origin.argument == 0);
    require(step.origin.argument < static_cast<std::size_t>(arguments));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const scratch_file file("-explain.cfg");
  static const auto silent = std::freopen("/dev/null", "w", stdout);
  if (size > longest_input || silent == nullptr) return 0;
  std::string_view rest = text_of(data, size);
  const std::string_view text = next_part(rest);
  const text_block arguments("app.exe", next_part(rest));
  const text_block environment("", rest);
  file.write(text);

  config_manager manager;
  manager.init(std_config_dispatch(arguments.size(), arguments.get(), environment.get(), file.path(), ""));
  // The input may name another file of this machine.
  manager.load();
  if (manager.value_exist("cfg_file")) return 0;

  const explainer sources(manager);
  const auto lines = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) + 1;
  std::ostringstream stream;
  for (const auto& key : sources.keys()) {
    const explanation explained = sources.explain(key, 5);
    const auto expected = manager.get_value(key, 5);
    require(explained.value.type() == expected.type());
    require(explained.value.as_string() == expected.as_string());
    require(!explained.steps.empty());
    for (const explained_step& step : explained.steps) require_origin(step, lines, arguments.size());
    write_text(stream, explained);
    write_json(stream, explained);
  }
  return 0;
}
