#include "options.hpp"

#include <optional>
#include <string_view>
#include <vector>

namespace transcode {

const char* const help_text =
    "usage: transcode --from ENCODING [--to ENCODING] [OPTION...] [INPUT [OUTPUT]]\n"
    "\n"
    "Converts a text file of any size from one encoding to another, and reports each character that is "
    "lost.\n"
    "INPUT and OUTPUT are files, or - for standard input and output, which is the default.\n"
    "\n"
    "  -f, --from ENCODING   the encoding of INPUT\n"
    "  -t, --to ENCODING     the encoding of OUTPUT; the default is UTF-8\n"
    "      --check           only reports what would be lost, and writes nothing\n"
    "      --mark            begins OUTPUT with a byte order mark, if the encoding has one\n"
    "      --report N        lists the first N losses; the default is 100\n"
    "      --progress        shows the progress at once, even if standard error is no terminal\n"
    "      --no-progress     never shows the progress\n"
    "      --list            lists the encodings with their labels\n"
    "      --help            shows this text\n"
    "\n"
    "exit code: 0 nothing was lost, 1 something was lost, 2 the command line is wrong, 3 a file cannot be "
    "read\n"
    "or written, 4 interrupted. With 2, 3 and 4 an existing OUTPUT is as it was before.\n";

namespace {

std::optional<std::uint64_t> read_count(std::string_view word) {
  constexpr std::size_t most_digits = 18;
  if (word.empty() || word.size() > most_digits || word.find_first_not_of("0123456789") != word.npos)
    return std::nullopt;
  std::uint64_t count = 0;
  for (const char digit : word) count = count * 10 + static_cast<std::uint64_t>(digit - '0');
  return count;
}

class option_reader {
 public:
  option_reader(int argc, char** argv) : words_(argv + 1, argv + argc) {}

  std::variant<options, information, usage_error> read() {
    while (next_ < words_.size()) {
      const std::string word = words_[next_++];
      if (only_names_ || word == "-" || !word.starts_with('-')) {
        names_.push_back(word);
      } else if (word == "--") {
        only_names_ = true;
      } else if (word == "--help") {
        return information::help;
      } else if (word == "--list") {
        return information::list;
      } else if (!read_flag(word) && !read_value(word)) {
        return usage_error{error_.empty() ? "unknown option " + word : error_};
      }
    }
    return take_names();
  }

 private:
  bool read_flag(const std::string& word) {
    if (word == "--check") return result_.only_checks = true;
    if (word == "--mark") return result_.with_mark = true;
    if (word == "--progress") return result_.progress = progress_mode::always, true;
    if (word == "--no-progress") return result_.progress = progress_mode::never, true;
    return false;
  }

  /// "--to UTF-8", "--to=UTF-8"
  bool read_value(const std::string& word) {
    const auto equals = word.find('=');
    const std::string name = word.substr(0, equals);
    if (name != "-f" && name != "--from" && name != "-t" && name != "--to" && name != "--report")
      return false;
    if (equals == word.npos && next_ == words_.size()) return fail(name + " needs a value");
    const std::string value = equals == word.npos ? words_[next_++] : word.substr(equals + 1);
    if (name == "--report") return read_report_limit(value);
    return read_encoding(name == "-f" || name == "--from", value);
  }

  bool read_report_limit(const std::string& value) {
    const auto count = read_count(value);
    if (!count) return fail("--report needs a number, not \"" + value + "\"");
    result_.report_limit = *count;
    return true;
  }

  bool read_encoding(bool is_from, const std::string& label) {
    const auto found = find_encoding(label);
    if (!found) return fail("unknown encoding \"" + label + "\", see --list");
    (is_from ? has_from_ : has_to_) = true;
    (is_from ? result_.from : result_.to) = *found;
    return true;
  }

  std::variant<options, information, usage_error> take_names() {
    if (!has_from_) return usage_error{"the encoding of the input is missing: --from ENCODING"};
    if (!has_to_) result_.to = *find_encoding("UTF-8");
    if (names_.size() > 2) return usage_error{"more than two files: " + names_[2]};
    if (result_.only_checks && names_.size() == 2) return usage_error{"--check writes no file: " + names_[1]};
    if (!names_.empty()) result_.input = names_[0];
    if (names_.size() == 2) result_.output = names_[1];
    return result_;
  }

  bool fail(const std::string& text) {
    error_ = text;
    return false;
  }

  std::vector<std::string> words_;
  std::size_t next_ = 0;
  bool only_names_ = false;
  std::vector<std::string> names_;
  options result_;
  bool has_from_ = false;
  bool has_to_ = false;
  std::string error_;
};

}  // namespace

std::variant<options, information, usage_error> read_options(int argc, char** argv) {
  return option_reader(argc, argv).read();
}

}  // namespace transcode
