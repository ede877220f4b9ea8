#include "orva/strings/unicode_case.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>

#include "orva/internal/text/block.hpp"
#include "orva/strings/internal/case_characters.hpp"
#include "orva/strings/internal/case_context.hpp"
#include "orva/strings/internal/case_tables.hpp"

namespace ORVA_NAMESPACE::strings::_private {

namespace {

using namespace unicode_case;

const case_table& table_of(case_form form) {
  if (form == case_form::lower) return lower_table;
  return form == case_form::upper ? upper_table : folded_table;
}

/// Maps a text. What does not change is copied in runs.
template <code_unit Unit>
class case_mapper {
 public:
  using view = std::basic_string_view<Unit>;

  case_mapper(view text, case_form form, case_rules rules)
      : text_(text), form_(form), rules_(rules), table_(table_of(form)) {}

  basic_ustring<Unit> map() {
    result_.reserve(text_.size());
    while (at_ < text_.size()) {
      if (has_ascii_block()) {
        map_ascii_block();
        continue;
      }
      if (rules_ == case_rules::standard) skip_unchanged();
      if (at_ < text_.size()) map_character();
    }
    copy_run();
    flush();
    return std::move(result_);
  }

 private:
  static constexpr std::size_t block = internal::text::block;
  static constexpr std::size_t room_for_a_character =
      longest_case_mapping * sizeof(std::uint32_t) / sizeof(Unit);
  static constexpr std::size_t buffer_size = 512;

  /// Other rules are about letters of ASCII, too.
  bool has_ascii_block() const {
    if (rules_ != case_rules::standard || internal::text::value_of(text_[at_]) >= 0x80) return false;
    return text_.size() - at_ >= block && internal::text::are_ascii<block>(text_.data() + at_);
  }

  void map_ascii_block() {
    copy_run();
    make_room(block);
    const unsigned int first = form_ == case_form::upper ? 'a' : 'A';
    const Unit* const from = text_.data() + at_;
    Unit* const to = buffer_.data() + used_;
    for (std::size_t i = 0; i < block; ++i) {
      const auto unit = static_cast<unsigned char>(from[i]);
      const bool is_letter = static_cast<unsigned char>(unit - first) < 26;
      to[i] = static_cast<Unit>(unit ^ (is_letter ? 0x20 : 0));
    }
    used_ += block;
    copied_ = at_ += block;
  }

  /// Skips letters that stay as they are, and ends at the next ASCII unit. Capital sigma, whose mapping
  /// depends on the letters around, always changes.
  void skip_unchanged() {
    while (at_ < text_.size()) {
      const text_character letter = next_letter(text_.substr(at_));
      if (letter.units == 0 || !is_unchanged(table_, letter.code_point)) return;
      at_ += letter.units;
    }
  }

  void map_character() {
    const text_character found = next_likely_letter(text_.substr(at_));
    if (found.is_malformed) {
      at_ += found.units;
      return;
    }
    const std::uint32_t mapped = simple_mapping(table_, found.code_point);
    const bool may_depend = rules_ != case_rules::standard || found.code_point == capital_sigma;
    if (mapped == several || may_depend) {
      replace(found, in_context(found).value_or(case_mapping(table_, found.code_point)));
    } else if (mapped != found.code_point) {
      replace(found, {{mapped}, 1});
    } else {
      at_ += found.units;
    }
  }

  std::optional<mapped_characters> in_context(const text_character& found) const {
    if (form_ == case_form::folded) return fold_by_rules(found.code_point, rules_);
    const character_in_text<Unit> at{
        found.code_point, {text_.substr(0, at_)}, {text_.substr(at_ + found.units)}};
    return form_ == case_form::lower ? lower_in_context(at, rules_) : upper_in_context(at, rules_);
  }

  void replace(const text_character& found, const mapped_characters& characters) {
    copy_run();
    make_room(room_for_a_character);
    Unit* end = buffer_.data() + used_;
    for (std::size_t i = 0; i < characters.count; ++i) end = internal::text::encode(characters.text[i], end);
    used_ = static_cast<std::size_t>(end - buffer_.data());
    copied_ = at_ += found.units;
  }

  /// What was read since the last change.
  void copy_run() {
    const view run = text_.substr(copied_, at_ - copied_);
    copied_ = at_;
    if (run.size() <= buffer_size - used_) {
      for (const Unit unit : run) buffer_[used_++] = unit;
    } else {
      flush();
      result_.append(run);
    }
  }

  void make_room(std::size_t count) {
    if (buffer_size - used_ < count) flush();
  }

  void flush() {
    result_.append(buffer_.data(), used_);
    used_ = 0;
  }

  view text_;
  case_form form_;
  case_rules rules_;
  const case_table& table_;
  std::size_t at_ = 0;
  std::size_t copied_ = 0;
  std::array<Unit, buffer_size> buffer_;
  std::size_t used_ = 0;
  basic_ustring<Unit> result_;
};

/// The folded characters of a text, one by one.
template <code_unit Unit>
class folded_characters {
 public:
  folded_characters(std::basic_string_view<Unit> text, case_rules rules) : text_(text), rules_(rules) {}

  /// Whether the next folded character begins a character of the text.
  bool at_character() const { return given_ == folded_.count; }
  std::basic_string_view<Unit>& rest() { return text_; }

  /// False at the end.
  bool next(std::uint32_t& character) {
    if (at_character() && !fold_next()) return false;
    character = folded_.text[given_++];
    return true;
  }

 private:
  bool fold_next() {
    if (text_.empty()) return false;
    const text_character found = next_character(text_);
    text_.remove_prefix(found.units);
    given_ = 0;
    if (found.is_malformed) {
      folded_ = {{found.code_point}, 1};
    } else {
      folded_ =
          fold_by_rules(found.code_point, rules_).value_or(case_mapping(folded_table, found.code_point));
    }
    return true;
  }

  std::basic_string_view<Unit> text_;
  case_rules rules_;
  mapped_characters folded_{{}, 0};
  std::size_t given_ = 0;
};

template <code_unit Unit>
bool begin_with_equal_ascii(std::basic_string_view<Unit> left, std::basic_string_view<Unit> right) {
  constexpr std::size_t block = internal::text::block;
  if (internal::text::value_of(left.front()) >= 0x80 || left.size() < block || right.size() < block)
    return false;
  if (!internal::text::are_ascii<block>(left.data()) || !internal::text::are_ascii<block>(right.data()))
    return false;
  const auto small = [](Unit unit) {
    const auto byte = static_cast<unsigned char>(unit);
    return static_cast<unsigned char>(byte | (static_cast<unsigned char>(byte - 'A') < 26 ? 0x20 : 0));
  };
  unsigned int different = 0;
  for (std::size_t i = 0; i < block; ++i)
    different |= static_cast<unsigned int>(small(left[i]) ^ small(right[i]));
  return different == 0;
}

/// The length of whole characters that are the same at the beginning of both.
template <code_unit Unit>
std::size_t same_characters(std::basic_string_view<Unit> left, std::basic_string_view<Unit> right) {
  constexpr std::size_t step = 16;
  const std::size_t size = std::min(left.size(), right.size());
  std::size_t same = 0;
  while (size - same >= step && std::equal(&left[same], &left[same] + step, &right[same])) same += step;
  return same == 0 ? 0 : last_boundary(left.substr(0, same));
}

/// False if they are folded to several characters, too.
bool fold_to_the_same(std::uint32_t left, std::uint32_t right) {
  const std::uint32_t folded = simple_mapping(folded_table, left);
  return folded != several && folded == simple_mapping(folded_table, right);
}

/// Drops characters that are equal by the standard rules and are folded to one character each.
template <code_unit Unit>
void skip_equal(std::basic_string_view<Unit>& left, std::basic_string_view<Unit>& right) {
  const auto drop = [&](std::size_t from_left, std::size_t from_right) {
    left.remove_prefix(from_left);
    right.remove_prefix(from_right);
  };
  bool were_same = true;
  while (!left.empty() && !right.empty()) {
    if (were_same) {
      const std::size_t same = same_characters(left, right);
      drop(same, same);
      were_same = false;
    } else if (begin_with_equal_ascii(left, right)) {
      drop(internal::text::block, internal::text::block);
    } else {
      const text_character left_one = next_likely_letter(left);
      const text_character right_one = next_likely_letter(right);
      were_same = left_one.code_point == right_one.code_point;
      if (!were_same && !fold_to_the_same(left_one.code_point, right_one.code_point)) return;
      drop(left_one.units, right_one.units);
    }
  }
}

}  // namespace

template <code_unit Unit>
basic_ustring<Unit> map_case(std::basic_string_view<Unit> text, case_form form, case_rules rules) {
  return case_mapper<Unit>(text, form, rules).map();
}

template <code_unit Unit>
std::strong_ordering compare_caseless(std::basic_string_view<Unit> left, std::basic_string_view<Unit> right,
                                      case_rules rules) {
  folded_characters<Unit> left_characters(left, rules);
  folded_characters<Unit> right_characters(right, rules);
  for (;;) {
    if (rules != case_rules::turkic && left_characters.at_character() && right_characters.at_character()) {
      skip_equal(left_characters.rest(), right_characters.rest());
    }
    std::uint32_t left_one = 0;
    std::uint32_t right_one = 0;
    const bool has_left = left_characters.next(left_one);
    const bool has_right = right_characters.next(right_one);
    if (!has_left || !has_right) return has_left <=> has_right;
    if (left_one != right_one) return left_one <=> right_one;
  }
}

template ustring8 map_case(ustring8::view, case_form, case_rules);
template ustring16 map_case(ustring16::view, case_form, case_rules);
template ustring32 map_case(ustring32::view, case_form, case_rules);
template std::strong_ordering compare_caseless(ustring8::view, ustring8::view, case_rules);
template std::strong_ordering compare_caseless(ustring16::view, ustring16::view, case_rules);
template std::strong_ordering compare_caseless(ustring32::view, ustring32::view, case_rules);

}  // namespace ORVA_NAMESPACE::strings::_private
