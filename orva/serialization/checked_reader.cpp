#include "orva/serialization/checked_reader.hpp"

#include <algorithm>
#include <charconv>
#include <system_error>

#include "orva/generic/convert/read_number.hpp"
#include "orva/serialization/internal/text_form_items.hpp"

namespace ORVA_NAMESPACE::serialization {

namespace convert = generic::convert;

namespace {

const char* code_of(read_error error) {
  switch (error) {
    case read_error::none:
      break;
    case read_error::data_ended:
      return "data.ended";
    case read_error::bad_number:
      return "data.bad_number";
    case read_error::out_of_range:
      return "data.out_of_range";
    case read_error::no_separator:
      return "data.no_separator";
    case read_error::data_left:
      return "data.left";
    case read_error::bad_label:
      return "data.bad_label";
  }
  return "";
}

/// A number that is read, or the place in its text that is wrong.
template <typename Number>
struct parsed {
  Number value = 0;
  read_error error = read_error::none;
  std::size_t position = 0;
};

bool is_digit(char unit) { return unit >= '0' && unit <= '9'; }

/// The first unit at which a text is not an integer as the buffers write it; its size if it is one.
std::size_t end_of_integer(std::string_view text) {
  const std::size_t digits = text.starts_with('-') ? 1 : 0;
  const auto end = std::find_if_not(text.begin() + static_cast<std::ptrdiff_t>(digits), text.end(), is_digit);
  const auto size = static_cast<std::size_t>(end - text.begin());
  const bool is_zero = size > digits && text[digits] == '0';
  // The buffers write no other zero than "0".
  if (is_zero && digits == 1) return digits;
  return is_zero ? 1 : size;
}

template <typename Integer>
parsed<Integer> parse_integer(std::string_view text, Integer min, Integer max) {
  const std::size_t end = end_of_integer(text);
  if (text.empty() || end != text.size() || !is_digit(text.back())) return {0, read_error::bad_number, end};
  Integer value = 0;
  const std::errc error = std::from_chars(text.data(), text.data() + text.size(), value).ec;
  if (error != std::errc{} || value < min || value > max) return {0, read_error::out_of_range, 0};
  return {value};
}

template <typename Floating>
parsed<Floating> parse_floating(std::string_view text) {
  const auto [value, length, error] = convert::read_number<Floating>(text);
  if (error == convert::number_error::no_number || length != text.size())
    return {0, read_error::bad_number, length};
  if (error != convert::number_error::none) return {0, read_error::out_of_range, 0};
  return {value};
}

}  // namespace

diagnostics::finding describe(const read_failure& failure, std::string_view file) {
  if (failure.error == read_error::none)
    return {diagnostics::severity::note, {}, strings::ustring8(file), {}, {}};
  return {diagnostics::severity::error,
          code_of(failure.error),
          strings::ustring8(file),
          {},
          {{"item", failure.item}, {"offset", failure.position}}};
}

std::nullopt_t checked_reader::fail(read_error error, std::size_t position) noexcept {
  if (failure_.error == read_error::none) failure_ = {error, position_, position};
  data_ = data_.substr(0, position_);
  return std::nullopt;
}

bool checked_reader::finish() {
  if (position_ != data_.size()) fail(read_error::data_left, position_);
  return failure_.error == read_error::none;
}

/// Takes the text up to the separator, if `parse` takes the whole of it.
template <typename Number, typename Parse>
std::optional<Number> checked_reader::read_text_number(Parse parse) {
  const std::size_t end = data_.find(_private::separator, position_);
  if (end == data_.npos) return fail(read_error::data_ended, data_.size());
  const parsed<Number> number = parse(data_.substr(position_, end - position_));
  if (number.error != read_error::none) return fail(number.error, position_ + number.position);
  position_ = end + 1;
  return number.value;
}

std::optional<long long> checked_reader::read_text_signed(long long min, long long max) {
  return read_text_number<long long>([=](std::string_view text) { return parse_integer(text, min, max); });
}

std::optional<unsigned long long> checked_reader::read_text_unsigned(unsigned long long max) {
  return read_text_number<unsigned long long>(
      [=](std::string_view text) { return parse_integer(text, 0ULL, max); });
}

std::optional<float> checked_reader::read_text_float() {
  return read_text_number<float>(parse_floating<float>);
}

std::optional<double> checked_reader::read_text_double() {
  return read_text_number<double>(parse_floating<double>);
}

std::optional<std::string_view> checked_reader::read_string_view() {
  const std::size_t begin = position_;
  const auto fail_item = [&](read_error error, std::size_t at) {
    position_ = begin;
    return fail(error, at);
  };
  const auto length = form_ == form::binary
                          ? narrowed<unsigned long long>(read_binary<types::uint32>())
                          : read_text_unsigned(std::numeric_limits<unsigned long long>::max());
  if (!length) return std::nullopt;
  const std::string_view rest = data_.substr(position_);
  const std::size_t tail = form_ == form::text ? 1 : 0;
  if (rest.size() < tail || *length > rest.size() - tail)
    return fail_item(read_error::data_ended, data_.size());
  const auto size = static_cast<std::size_t>(*length);
  if (tail != 0 && rest[size] != _private::separator)
    return fail_item(read_error::no_separator, position_ + size);
  position_ += size + tail;
  return rest.substr(0, size);
}

std::optional<checked_reader> checked_reader::read_buffer(form stored_as) {
  const auto bytes = read_string_view();
  if (!bytes) return std::nullopt;
  const auto begin = static_cast<std::size_t>(bytes->data() - data_.data());
  checked_reader nested(data_.substr(0, begin + bytes->size()), stored_as);
  nested.position_ = begin;
  return nested;
}

}  // namespace ORVA_NAMESPACE::serialization
