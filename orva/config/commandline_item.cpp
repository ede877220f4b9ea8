#include "orva/config/commandline_item.hpp"

#include <iostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "orva/config/internal/argument_values.hpp"
#include "orva/config/internal/lower_case_key.hpp"
#include "orva/config/internal/unformatted_output.hpp"
#include "orva/strings/split.hpp"

namespace ORVA_NAMESPACE::config {

using _private::argument_value;
using _private::write_unformatted;
using generic::varg_list;
using generic::abilities::create_dynamic;
using tok_types = config_token::tok_types;

namespace {

std::vector<std::string_view> arguments_of(unsigned int argc, const char* const* argv) {
  std::vector<std::string_view> arguments;
  if (argv == nullptr) return arguments;
  for (unsigned int i = 1; i < argc && argv[i] != nullptr; ++i) arguments.emplace_back(argv[i]);
  return arguments;
}

bool is_option(std::string_view argument) { return argument.starts_with('-') || argument.starts_with('/'); }

}  // namespace

/// Reads all arguments with one token: a blank at the beginning of an argument repeats the last text of the
/// argument before it.
class commandline_item::reader {
 public:
  /// With `values` these are noted, too, and nothing is written on standard output.
  explicit reader(commandline_item& item, std::vector<argument_value>* values = nullptr)
      : item_(item), values_(values), arguments_(arguments_of(item.argc_, item.argv_)) {}

  void read() {
    while (next_ < arguments_.size()) {
      const std::string_view argument = arguments_[next_++];
      option_ = next_;
      if (is_option(argument)) {
        read_option(argument);
      } else if (values_ == nullptr) {
        write_unformatted(std::cout, "Warning! unknown key:");
        write_unformatted(std::cout, argument);
        write_unformatted(std::cout, "\nIgnoring key and continuing\n");
      }
    }
  }

 private:
  void read_option(std::string_view argument) {
    unsigned int position = 1;
    key_.clear();
    while (continues_key(item_.get_token(argument, position, token_))) key_ += token_.text;
    if (token_.text == "$") return store_one(types::variant(joined_text(argument, position)));
    if (token_.type == tok_types::T_END) return read_bare_option();
    read_attached_values(argument, position);
  }

  /// The first character of a pair like `+=` still belongs to the key.
  bool continues_key(tok_types scanned) {
    if (scanned == tok_types::T_END) return false;
    switch (token_.type) {
      case tok_types::T_EQ:
      case tok_types::T_COLON:
      case tok_types::T_COLONEQ:
        return false;
      case tok_types::T_GTEQ:
      case tok_types::T_LTEQ:
      case tok_types::T_PLUSEQ:
      case tok_types::T_MINUSEQ:
      case tok_types::T_TIMESEQ:
      case tok_types::T_DIVEQ:
        key_ += token_.text.front();
        return false;
      case tok_types::T_NON_ALPHA_NUM:
        return token_.text != "$";
      default:
        return true;
    }
  }

  /// The joined texts of all tokens from `position` on.
  std::string joined_text(std::string_view argument, unsigned int position) {
    std::string text;
    while (item_.get_token(argument, position, token_) != tok_types::T_END) text += token_.text;
    return text;
  }

  /// An option with nothing attached: the words after it are its values. After the first value, words that
  /// begin with `/` are values, too.
  void read_bare_option() {
    if (next_ == arguments_.size() || is_option(arguments_[next_])) return store_flag();
    varg_list values;
    do {
      values.push_back(types::variant(joined_text(arguments_[next_++], 0)));
    } while (next_ < arguments_.size() && !arguments_[next_].starts_with('-'));
    store(values, values.size() > 1);
  }

  void read_attached_values(std::string_view argument, unsigned int position) {
    varg_list values;
    std::string value;
    bool is_array = false;
    while (item_.get_token(argument, position, token_) != tok_types::T_END) {
      if (token_.type == tok_types::T_NON_ALPHA_NUM && token_.text == ",") {
        is_array = true;
        values.push_back(types::variant(std::exchange(value, {})));
      } else {
        value += token_.text;
      }
    }
    values.push_back(types::variant(std::move(value)));
    store(values, is_array);
  }

  void store(const varg_list& values, bool is_array) {
    if (!is_array) return store_one(values[0].value());
    item_.set_array(key_, values, {});
    if (values_ == nullptr) return;
    note(_private::canonical_key(key_), {}, true);
    for (types::uint32 i = 0; i < values.size(); ++i)
      note(_private::joined_segments(key_) + '.' + std::to_string(i), values[i].value().as_string());
  }

  void store_one(const types::variant& value) {
    item_.set(key_, value, 0);
    if (values_ != nullptr) note(_private::canonical_key(key_), value.as_string());
  }

  /// The key of a flag is read once more, as an expression.
  void store_flag() {
    item_.set(key_, 1);
    if (values_ == nullptr) return;
    const auto [key, value] = item_.make_key_value(key_, tok_types::T_EQ);
    note(_private::canonical_key(key), value.as_string());
  }

  void note(std::string key, strings::ustring8 text, bool is_array = false) {
    values_->push_back({std::move(key), option_, std::move(text), is_array});
  }

  commandline_item& item_;
  std::vector<argument_value>* values_;
  std::vector<std::string_view> arguments_;
  std::size_t next_ = 0;
  /// The number of the option that is being read, as in argv.
  std::size_t option_ = 0;
  std::string key_;
  config_token token_;
};

commandline_item::commandline_item(unsigned int argc, const char* const* argv) : argc_(argc), argv_(argv) {
  id_ = "command line";
}

bool commandline_item::load() {
  load_program_name();
  reader(*this).read();
  return true;
}

void commandline_item::unload() { tree_.erase(); }

commandline_item* commandline_item::clone() const { return create_dynamic<commandline_item>(*this); }

/// `file_item` looks for the file of the raw name. A program without a dot in its name has an empty one.
void commandline_item::load_program_name() {
  if (argv_ == nullptr || argv_[0] == nullptr) return;
  const auto pieces = strings::split_string(std::string(argv_[0]), "\\", 0);
  const std::string name = pieces.empty() ? std::string() : pieces.back();
  set("application.name", name, 0);
  const auto parts = strings::split_string(name, ".", 0);
  if (parts.size() > 1) set("application.name.extention", parts.back(), 0);
  std::string raw;
  for (std::size_t i = 0; i + 1 < parts.size(); ++i) raw += parts[i];
  set("application.name.raw", raw, 0);
}

std::vector<_private::argument_value> _private::values_of_arguments(const commandline_item& item) {
  std::vector<argument_value> values;
  commandline_item scratch(item.argc_, item.argv_);
  scratch.load_program_name();
  for (const char* const key : {"application.name", "application.name.extention", "application.name.raw"})
    if (const auto* const node = scratch.get_value(key))
      if ((node->first & config_tree::NODE_VALUE_SET) != 0)
        values.push_back({key, 0, node->second.as_string()});
  commandline_item::reader(scratch, &values).read();
  return values;
}

}  // namespace ORVA_NAMESPACE::config
