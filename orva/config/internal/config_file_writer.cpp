#include "orva/config/internal/config_file_writer.hpp"

#include <cstddef>
#include <map>
#include <string_view>

#include "orva/config/internal/array_flags.hpp"
#include "orva/generic/convert/str_to_x.hpp"

namespace ORVA_NAMESPACE::config::_private {

namespace {

using value_entry = config_tree::value_entry;

constexpr std::string_view line_end = "\r\n";

unsigned int flags_of(const value_entry& entry) { return entry.second.first; }

/// The text after the last dot. One dot at the very end is ignored.
std::string_view last_part(std::string_view name) {
  if (name.ends_with('.')) name.remove_suffix(1);
  return name.substr(name.rfind('.') + 1);
}

/// Whether the name is that of an array's element after the first.
bool is_later_element(const value_entry& entry) {
  const std::string_view name = last_part(entry.first);
  return !name.empty() &&
         generic::convert::str_to_int32(name.data(), name.size(), types::radix_t::prefix, false) != 0;
}

class writer {
 public:
  explicit writer(const std::vector<value_entry>& entries) : entries_(entries) {
    for (std::size_t i = 0; i < entries.size(); ++i) assign_to_sections(i);
  }

  strings::ustring8 write() {
    for (const value_entry& entry : entries_) {
      if (flags_of(entry) == 0) write_section(entry.first);
    }
    return std::move(text_);
  }

 private:
  /// An entry is written in every section whose name is as long as the part of the entry's name before its
  /// last dot, not only in its own: lengths are compared, names are not.
  void assign_to_sections(std::size_t index) {
    const value_entry& entry = entries_[index];
    const std::string_view name = entry.first;
    const std::size_t length = last_part(name).size();
    if (flags_of(entry) == 0 || name.size() <= length || !name.ends_with(last_part(name))) return;
    by_section_length_[name.size() - length - 1].push_back(index);
  }

  void write_section(const strings::ustring8& name) {
    text_ += '[';
    write_quoted(name);
    text_ += ']';
    text_ += line_end;
    std::size_t next = 0;
    for (const std::size_t index : by_section_length_[name.size()]) {
      if (index >= next) next = write_entry(index);
    }
    text_ += line_end;
  }

  /// Returns the index of the first entry that may follow in the section.
  std::size_t write_entry(std::size_t index) {
    const value_entry& entry = entries_[index];
    const bool is_array = flags_of(entry) == array_flags;
    write_quoted(last_part(entry.first));
    text_ += is_array ? "[]=" : "=";
    std::size_t next = index + 1;
    if (is_array) {
      next = write_elements(next);
    } else {
      write_quoted(entry.second.second.as_utf8());
    }
    text_ += line_end;
    return next;
  }

  /// Writes element 0 and the elements after it. The entry that ends the array is skipped without being
  /// written.
  std::size_t write_elements(std::size_t index) {
    if (index < entries_.size() && last_part(entries_[index].first) == "0") {
      write_quoted(entries_[index].second.second.as_utf8());
      for (++index; index < entries_.size() && is_later_element(entries_[index]); ++index) {
        text_ += ',';
        write_quoted(entries_[index].second.second.as_utf8());
      }
    }
    return index + 1;
  }

  void write_quoted(std::string_view text) {
    const bool quoted = text.find_first_of(" \r\t\n") != text.npos;
    if (quoted) text_ += '"';
    text_ += text;
    if (quoted) text_ += '"';
  }

  const std::vector<value_entry>& entries_;
  std::map<std::size_t, std::vector<std::size_t>> by_section_length_;
  strings::ustring8 text_;
};

}  // namespace

strings::ustring8 write_config_file(const std::vector<value_entry>& entries) {
  return writer(entries).write();
}

}  // namespace ORVA_NAMESPACE::config::_private
