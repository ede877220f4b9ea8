#include "orva/strings/replace.hpp"

#include <cstddef>
#include <functional>
#include <stdexcept>

#include "orva/strings/internal/search.hpp"

namespace ORVA_NAMESPACE::strings {

namespace {

template <typename Unit>
using view = std::basic_string_view<Unit>;

template <typename Unit>
std::size_t count_matches(view<Unit> text, _private::searcher<Unit>& matches, std::size_t size) {
  std::size_t count = 0;
  for (std::size_t at = matches.find(text, 0); at != text.npos; at = matches.find(text, at + size)) ++count;
  return count;
}

struct rewrite_result {
  std::size_t size;
  std::size_t count;
};

/// Writes the text with its replacements from the front of `units`, and reads the old text from `read` to the
/// end. REQUIRES: the writing position never passes the reading position.
template <typename Unit>
rewrite_result rewrite(std::basic_string<Unit>& units, std::size_t read, _private::searcher<Unit>& matches,
                       std::size_t from_size, view<Unit> to) {
  using traits = std::char_traits<Unit>;
  std::size_t write = 0;
  const auto keep_until = [&](std::size_t position) {
    if (read != write) traits::move(&units[write], &units[read], position - read);
    write += position - read;
    read = position;
  };
  for (std::size_t count = 0;; ++count) {
    const std::size_t match = matches.find(units, read);
    keep_until(match == units.npos ? units.size() : match);
    if (match == units.npos) return {write, count};
    traits::copy(&units[write], to.data(), to.size());
    write += to.size();
    read += from_size;
  }
}

template <typename Unit>
bool is_part_of(view<Unit> part, view<Unit> text) {
  const std::less<> before;
  return !before(part.data(), text.data()) && !before(text.data() + text.size(), part.data());
}

/// The units by which the result is longer than the text. The product cannot wrap.
template <typename Unit>
std::size_t room(const std::basic_string<Unit>& text, std::size_t count, std::size_t growth) {
  if (count == 0) return 0;
  if (growth > (text.max_size() - text.size()) / count) throw std::length_error("string too long");
  return count * growth;
}

template <typename Unit>
std::size_t replace_separate(std::basic_string<Unit>& text, view<Unit> from, view<Unit> to) {
  _private::searcher<Unit> matches(from);
  std::size_t read = 0;
  if (to.size() > from.size()) {
    // The old text moves to the end of the room for the new one, so that one pass from the front is enough.
    read = room(text, count_matches(view<Unit>(text), matches, from.size()), to.size() - from.size());
    if (read == 0) return 0;
    text.insert(0, read, Unit{});
  }
  const auto [size, count] = rewrite(text, read, matches, from.size(), to);
  text.resize(size);
  return count;
}

}  // namespace

template <code_unit Unit>
types::int32 replace_all(std::basic_string<Unit>& text,
                         std::type_identity_t<std::basic_string_view<Unit>> from,
                         std::type_identity_t<std::basic_string_view<Unit>> to) {
  if (from.empty()) return 0;
  const bool separate = !is_part_of<Unit>(from, text) && !is_part_of<Unit>(to, text);
  if (separate) return static_cast<types::int32>(replace_separate<Unit>(text, from, to));
  return static_cast<types::int32>(
      replace_separate<Unit>(text, std::basic_string<Unit>(from), std::basic_string<Unit>(to)));
}

template types::int32 replace_all(std::string&, std::string_view, std::string_view);
template types::int32 replace_all(wide_string&, ustring16::view, ustring16::view);
template types::int32 replace_all(ustring32::standard_string&, ustring32::view, ustring32::view);

}  // namespace ORVA_NAMESPACE::strings
