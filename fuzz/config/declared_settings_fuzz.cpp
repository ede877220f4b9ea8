/// Reads any bytes as the command line, the environment and the file of a program with declared settings. The
/// first byte selects the style; words end with a zero byte. A word that begins with the byte 1 is a variable
/// of the environment, and one that begins with the byte 2 the text of the file.
#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/config/fuzz_input.hpp"
#include "fuzz/require.hpp"
#include "orva/config/settings.hpp"
#include "orva/diagnostics/finding.hpp"

namespace {

using namespace ORVA_NAMESPACE::config;
using orva_fuzz::require;
using ORVA_NAMESPACE::diagnostics::sentence;

declaration make_declaration(const std::string& file) {
  declaration command("");
  command.add(setting("depth", integer()).option('d').required());
  command.add_positional(setting("first", file_path()).required());
  command.add_positional(setting("rest", list_of(integer())));
  declaration declared("tool");
  declared.version("1").allow_section("free");
  declared.add(setting("n", integer_between(-50, 50)).option('n').environment("N").by_default(7));
  declared.add(setting("ratio", number_between(0, 1)).option('r').environment("R"));
  declared.add(setting("verbose", flag()).option('v').environment("V"));
  declared.add(setting("all", flag()).option('a').by_default(true));
  declared.add(setting("name", text()).option('t', "title").environment("T"));
  declared.add(setting("mode", one_of({"fast", "small"})).option('m'));
  declared.add(setting("size", byte_size()).option('s').by_default("1 KiB"));
  declared.add(setting("time.limit", duration()).option('l'));
  declared.add(setting("list", list_of(integer())).option('i').environment("L"));
  declared.add(setting("texts", list_of(text())));
  declared.add(setting("paths", list_of(file_path())).environment("P"));
  declared.add(setting("old", integer_between(-50, 50)).deprecated("n").environment("O"));
  declared.add(setting("pin", integer()).secret().option('p').environment("PIN"));
  declared.add(setting("cfg_file", file_path()).option('c', "config").by_default(file));
  declared.add_command("do", "Does it.", command);
  declaration around("");
  around.add_command("do", "Does it, too.", command).command_required();
  declared.add_command("Deep", "Has more.", around);
  return declared;
}

/// The strings of an input, and the pointers to them as `main` gets them.
class pointers_to {
 public:
  explicit pointers_to(const std::vector<std::string>& words) {
    for (const std::string& word : words) pointers_.push_back(word.c_str());
    pointers_.push_back(nullptr);
  }
  int size() const { return static_cast<int>(pointers_.size()) - 1; }
  const char* const* data() const { return pointers_.data(); }

 private:
  std::vector<const char*> pointers_;
};

struct input {
  settings_options options;
  std::vector<std::string> words{"tool"};
  std::vector<std::string> variables;
  std::string file;
};

input input_of(std::string_view text) {
  input result;
  const char first = text.empty() ? '\0' : text[0];
  result.options.style = first % 2 == 0 ? command_line_style::gnu : command_line_style::single_dash;
  result.options.slash_asks_for_help = first % 4 >= 2;
  text.remove_prefix(std::min<std::size_t>(text.size(), 1));
  while (!text.empty()) {
    const std::string word(text.substr(0, text.find('\0')));
    text.remove_prefix(std::min(text.size(), word.size() + 1));
    if (word.starts_with('\1')) {
      result.variables.push_back(word.substr(1));
    } else if (word.starts_with('\2')) {
      result.file = word.substr(1);
    } else {
      result.words.push_back(word);
    }
  }
  return result;
}

/// Each value that there is keeps what its type promises, and is there again in a command line of its own.
class value_check {
 public:
  value_check(const settings& values, const declaration& declared) : values_(values), declared_(declared) {}

  void check_all() const {
    check<int>("n", [](int value) { return value >= -50 && value <= 50; });
    check<int>("old", [](int value) { return value >= -50 && value <= 50; });
    check<double>("ratio", [](double value) { return value >= 0 && value <= 1; });
    check<bool>("verbose", [](bool) { return true; });
    check<bool>("all", [](bool) { return true; });
    check<std::string>("name", [](const std::string&) { return true; });
    check<std::string>("mode", [](const std::string& word) { return word == "fast" || word == "small"; });
    check<std::uint64_t>("size", [](std::uint64_t) { return true; });
    check<std::chrono::nanoseconds>("time.limit", [](auto value) { return value.count() >= 0; });
    check<int>("pin", [](int) { return true; });
    check<std::string>("cfg_file", [](const std::string& path) { return !path.empty(); });
  }

 private:
  template <typename T, typename Test>
  void check(std::string_view key, Test is_right) const {
    const std::optional<T> value = values_.find<T>(key);
    if (!value) return;
    require(is_right(*value));
    // A flag that no source has is false.
    if (!values_.manager().value_exist(key)) return;
    // The manager's text is that of the command line, of the file, of the variable or of the default.
    const std::string text = values_.manager().get_value(key).as_string();
    if (text.find('\0') != text.npos) return;
    const std::string option = key == "name" ? "title" : key == "cfg_file" ? "config" : std::string(key);
    const std::vector<std::string> words{"tool", "--" + option + "=" + text};
    const pointers_to arguments(words);
    const settings again(declared_, arguments.size(), arguments.data());
    require(again.find<T>(key) == value);
  }

  const settings& values_;
  const declaration& declared_;
};

/// The secret is once in the input, in the value of its setting: no message has it.
void check_secret(const input& given, const settings& values) {
  constexpr std::string_view secret = "hunter2";
  const std::string pin = values.manager().get_value("pin").as_string();
  if (pin.find(secret) == pin.npos) return;
  int count = 0;
  const auto count_in = [&](const std::string& text) {
    for (auto at = text.find(secret); at != text.npos; at = text.find(secret, at + 1)) ++count;
  };
  for (const std::string& word : given.words) count_in(word);
  for (const std::string& word : given.variables) count_in(word);
  count_in(given.file);
  if (count != 1) return;
  for (const auto& found : values.report().findings()) {
    require(sentence(found).find(secret) == std::string::npos);
  }
}

void check_findings(const input& given, const settings& values) {
  for (const auto& found : values.report().findings()) {
    require(found.code.starts_with("config."));
    if (found.file == "command line") require(found.at.line >= 1 && found.at.line < given.words.size());
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > orva_fuzz::longest_input) return 0;
  static const orva_fuzz::scratch_file file("-declared.cfg");
  static const declaration declared = make_declaration(file.path());
  const input given = input_of(orva_fuzz::text_of(data, size));
  file.write(given.file);
  const pointers_to words(given.words);
  const pointers_to variables(given.variables);
  const settings values(declared, words.size(), words.data(), variables.data(), given.options);
  require(declared.find_command(values.command()) != nullptr);
  check_findings(given, values);
  check_secret(given, values);
  // With a key below that of a setting, a manager finds a section.
  const auto& found = values.report().findings();
  const auto is_unknown_key = [](const auto& each) { return each.code == "config.unknown_key"; };
  if (std::none_of(found.begin(), found.end(), is_unknown_key)) value_check(values, declared).check_all();
  return 0;
}
