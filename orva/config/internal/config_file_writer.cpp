#include "orva/config/internal/config_file_writer.hpp"

#include <cstddef>
#include <map>
#include <string_view>

#include "orva/generic/convert/str_to_x.hpp"

namespace ORVA_NAMESPACE::config::_private {

namespace {

using value_entry = config_tree::value_entry;

constexpr unsigned int array_flags = config_tree::NODE_VALUE_SET | config_tree::NODE_ARRAY;
constexpr std::string_view line_end = "\r\n";

unsigned int flags_of(const value_entry& entry) { return entry.second.first; }

/// What stands behind the last dot that has anything behind it, up to the next dot: an empty part at the end
/// counts for nothing.
std::string_view last_part(std::string_view name) {
  if (name.ends_with('.')) name.remove_suffix(1);
  return name.substr(name.rfind('.') + 1);
}

/// Whether the name of an array's element. Element 0 begins an array and never goes on with one.
bool is_later_element(const value_entry& entry) {
  const std::string_view name = last_part(entry.first);
  return !name.empty() &&
         generic::convert::str_to_int32(name.data(), name.size(), types::radix_t::prefix, false) != 0;
}

class writer {
 public:
  explicit writer(const std::vector<value_entry>& entries) : entries_(entries) {
    for (std::size_t i = 0; i < entries.size(); ++i) sort_by_place(i);
  }

  strings::ustring8 write() {
    for (const value_entry& entry : entries_) {
      if (flags_of(entry) == 0) write_section(entry.first);
    }
    return std::move(text_);
  }

 private:
  /// An entry is written in every section whose name has the length of what stands before the entry's last
  /// part. Readers of written files count on keys under all of these sections.
  void sort_by_place(std::size_t index) {
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
    std::size_t behind_array = 0;
    for (const std::size_t index : by_section_length_[name.size()]) {
      if (index >= behind_array) behind_array = write_entry(index);
    }
    text_ += line_end;
  }

  /// The index of the first entry that may follow in the section.
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

  /// Element 0 and the others behind it. The entry that ends the array goes with it, unwritten.
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
