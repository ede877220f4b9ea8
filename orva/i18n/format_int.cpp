#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "orva/i18n/formatters.hpp"
#include "orva/i18n/internal/append_formatted.hpp"
#include "orva/i18n/internal/format_attributes.hpp"
#include "orva/internal/number_text/integer_text.hpp"

namespace ORVA_NAMESPACE::i18n::_private {

namespace {

struct number_base {
  std::string_view keyword;
  unsigned int radix;
  bool spaced;
  std::string_view mark_before;
  std::string_view mark_behind;

  std::size_t marks_length() const { return mark_before.size() + mark_behind.size(); }
};

constexpr number_base bases[] = {
    {"dec", 10, false, "", ""},   {"default", 10, false, "", ""}, {"spaced_dec", 10, true, "", ""},
    {"hex", 16, false, "0x", ""}, {"oct", 8, false, "o", ""},     {"bin", 2, false, "", "b"},
};

struct int_attributes {
  const number_base* base = &bases[0];
  std::int64_t fieldsize = 0;

  bool set(std::string_view key, std::string_view value) {
    if (selects(key, "base")) return set_base(value);
    if (!selects(key, "fieldsize")) return false;
    fieldsize = to_number(value);
    return true;
  }

  bool set_base(std::string_view word) {
    const auto found = std::find_if(std::begin(bases), std::end(bases),
                                    [&](const number_base& known) { return selects(word, known.keyword); });
    if (found == std::end(bases)) return false;
    base = found;
    return true;
  }
};

/// Hexadecimal numbers are shown in whole groups of this many digits.
constexpr int hex_group = 4;

/// The power of the radix that makes a negative value its complement when it is added. It is reckoned modulo
/// 2^64, where a power that is too large becomes 0.
class complement_power {
 public:
  complement_power(std::int64_t value, unsigned int radix) : radix_(radix) {
    for (; value != 0; value /= radix) add_digit();
  }

  /// Room for the sign: without it the complement of, say, -200 would read as the number 56.
  void widen_for(std::int64_t value) {
    if (value < -static_cast<std::int64_t>(power_ / 2)) add_digit();
    if (radix_ == 16) {
      while (digits_ % hex_group != 0) add_digit();
    }
  }

  void widen_to(std::int64_t digits) {
    while (digits_ < digits && power_ != 0) add_digit();
  }

  std::int64_t complement_of(std::int64_t value) const {
    return static_cast<std::int64_t>(static_cast<std::uint64_t>(value) + power_);
  }

 private:
  void add_digit() {
    power_ *= radix_;
    ++digits_;
  }

  unsigned int radix_;
  std::uint64_t power_ = 1;
  std::int64_t digits_ = 0;
};

std::int64_t complement(std::int64_t value, const int_attributes& attributes) {
  complement_power power(value, attributes.base->radix);
  if (attributes.fieldsize == 0) {
    power.widen_for(value);
  } else {
    power.widen_to(attributes.fieldsize - static_cast<std::int64_t>(attributes.base->marks_length()));
  }
  return power.complement_of(value);
}

std::size_t zeros_before(std::size_t digits, const int_attributes& attributes) {
  const number_base& base = *attributes.base;
  if (attributes.fieldsize != 0) {
    return static_cast<std::size_t>(attributes.fieldsize) - digits - base.marks_length();
  }
  return base.radix == 16 ? (hex_group - digits % hex_group) % hex_group : 0;
}

void append_in_groups_of_three(std::string& text, std::string_view digits) {
  if (digits.front() == '-') {
    text += '-';
    digits.remove_prefix(1);
  }
  for (std::size_t i = 0; i < digits.size(); ++i) {
    if (i > 0 && (digits.size() - i) % 3 == 0) text += ' ';
    text += digits[i];
  }
}

/// The form of a placeholder without attributes. The digits are written into the text directly: to copy them
/// at once would wait for them to be stored.
void append_plain(std::string& text, std::int64_t value) {
  const std::size_t begin = text.size();
  text.resize(begin + internal::integer_text_size);
  const char* const end = internal::write_integer(value, text.data() + begin);
  text.resize(static_cast<std::size_t>(end - text.data()));
}

/// The digits of a number, with a minus in front if it is negative.
class number_digits {
 public:
  number_digits(std::int64_t value, unsigned int radix) {
    const auto bits = static_cast<std::uint64_t>(value);
    units_[0] = '-';
    end_ = internal::write_digits(value < 0 ? 0 - bits : bits, radix, units_ + (value < 0 ? 1 : 0));
  }

  std::string_view view() const { return {units_, end_}; }

 private:
  static constexpr std::size_t most_digits = 64;

  char units_[1 + most_digits];
  const char* end_;
};

}  // namespace

bool append_int(std::string& text, std::int64_t value, std::string_view attrs) {
  if (attrs.empty()) {
    append_plain(text, value);
    return true;
  }
  int_attributes attributes;
  if (!read_attributes(attrs, attributes)) return false;
  const number_base& base = *attributes.base;
  if (value < 0 && base.radix != 10) value = complement(value, attributes);

  const number_digits number(value, base.radix);
  const std::string_view digits = number.view();
  const std::size_t blanks = base.spaced ? (digits.size() - (value < 0 ? 1 : 0) - 1) / 3 : 0;
  const auto length = static_cast<std::int64_t>(digits.size() + blanks + base.marks_length());
  if (attributes.fieldsize != 0 && attributes.fieldsize < length) return false;

  const bool padded = value >= 0 && base.radix != 10;
  const std::size_t zeros = padded ? zeros_before(digits.size(), attributes) : 0;
  if (zeros > max_padding) return false;

  text.append(base.mark_before).append(zeros, '0');
  if (base.spaced) {
    append_in_groups_of_three(text, digits);
  } else {
    text.append(digits);
  }
  text.append(base.mark_behind);
  return true;
}

strings::ustring8 format_int(std::int64_t value, std::string_view attrs) {
  return text_or_refused(append_int, value, attrs);
}

}  // namespace ORVA_NAMESPACE::i18n::_private
