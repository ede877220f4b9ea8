/// `checked_reader`: reads what a `serialize_buffer` has stored, and reports whether the data held it.
///
///     checked_reader in(data, checked_reader::form::binary);
///     const auto path = in.read_string();
///     const auto size = in.read_uint32();
///     if (!in.finish()) return report(describe(in.failure()));
///     use(*path, *size);
///
/// The buffers themselves read 0 and empty text where the data ends, cut a string that claims too much, and
/// take "12abc" as 12. This class reads the same bytes, and takes each item as a whole and exactly, or
/// returns an empty `optional`. The first failure stays: every later read is empty too, so that a program may
/// read a whole record and look once. `failure` has what is wrong and where.
///
///     data                  read            result
///     05 00 (binary)        read_uint32     data_ended at 2: two bytes of four
///     05 00 00 00 61        read_string     data_ended at 5: one byte of five
///     12~ (text)            read_int32      12
///     12                    read_int32      data_ended at 2: the rest of the number may be missing
///     12abc~                read_int32      bad_number at 2
///     300~                  read_uint8      out_of_range at 0
///     9~abc~                read_string     data_ended at 6
///     2~abc~                read_string     no_separator at 4
///
/// A number of the text form, in which ~ is the byte 0x01, is what the buffers write. An integer is decimal,
/// without leading zeros and without a plus: a leading 0 would be octal to the other readers. A floating
/// value is what `convert::read_number` takes: decimal with a point, or `inf` or `nan`, in every locale. A
/// comma is a `bad_number`, as "1,234" means different numbers in different places.
/// `serialize_text_buf::append_exact` writes a point in every locale.
///
/// Strings are measured before they are copied: a length that is too large allocates nothing. Reading does
/// not change the data. It must outlive the reader, the readers of nested buffers, and the results of
/// `read_string_view`. A reader belongs to one thread.
#pragma once

#include <bit>
#include <cstddef>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

#include "orva/diagnostics/finding.hpp"
#include "orva/export.hpp"
#include "orva/generic/convert/byte_order.hpp"
#include "orva/serialization/serialize_binary_buf.hpp"
#include "orva/serialization/serialize_text_buf.hpp"
#include "orva/types/integers.hpp"

namespace ORVA_NAMESPACE::serialization {

/// The rule that is broken where a read fails.
enum class read_error {
  none,          ///< No read has failed.
  data_ended,    ///< The data holds the whole item.
  bad_number,    ///< The text of a number is a number and nothing else.
  out_of_range,  ///< A number fits into its type.
  no_separator,  ///< A string of the text form is closed by the byte 0x01.
  data_left,     ///< `finish`: the data ends after the last item.
  bad_label,     ///< `read_exact_flat_form`: labels are not empty, are trimmed, and differ.
};

/// The first failure of a reader. Offsets are bytes from the beginning of the outermost data.
struct read_failure {
  read_error error = read_error::none;
  /// The first byte of the item that could not be read.
  std::size_t item = 0;
  /// The byte that is wrong; for `data_ended`, the end of the data.
  std::size_t position = 0;

  bool operator==(const read_failure&) const = default;
};

/// The failure in words; a note without a code if there is none.
///
///     {data_ended, 4, 5}   =>  error: The data ends at offset 5, in the item that begins at offset 4.
///                              [data.ended]
///
/// The codes are "data." and the name of the error, from which a second "data" is removed. Arguments:
/// `item` and `offset`, the position. docs/diagnostic_codes.md explains each code. `file` is the name that
/// the user knows, and only passed on.
[[nodiscard]] ORVA_API diagnostics::finding describe(const read_failure& failure, std::string_view file = {});

class ORVA_API checked_reader {
 public:
  enum class form {
    binary,  ///< As `serialize_binary_buf` stores values.
    text,    ///< As `serialize_text_buf` does.
  };

  checked_reader(std::string_view data, form stored_as) noexcept : data_(data), form_(stored_as) {}
  /// The data of a buffer from its beginning. Its own read position does not matter, and does not move.
  explicit checked_reader(const serialize_binary_buf& buffer) noexcept
      : checked_reader(buffer.as_str(), form::binary) {}
  explicit checked_reader(const serialize_text_buf& buffer) noexcept
      : checked_reader(buffer.as_str(), form::text) {}
  explicit checked_reader(serialize_binary_buf&& temporary) = delete;
  explicit checked_reader(serialize_text_buf&& temporary) = delete;

  [[nodiscard]] std::optional<signed char> read_int8() { return read_number<signed char>(); }
  [[nodiscard]] std::optional<short> read_int16() { return read_number<short>(); }
  [[nodiscard]] std::optional<types::int32> read_int32() { return read_number<types::int32>(); }
  [[nodiscard]] std::optional<long long> read_int64() { return read_number<long long>(); }
  [[nodiscard]] std::optional<unsigned char> read_uint8() { return read_number<unsigned char>(); }
  [[nodiscard]] std::optional<unsigned short> read_uint16() { return read_number<unsigned short>(); }
  [[nodiscard]] std::optional<types::uint32> read_uint32() { return read_number<types::uint32>(); }
  [[nodiscard]] std::optional<unsigned long long> read_uint64() { return read_number<unsigned long long>(); }
  [[nodiscard]] std::optional<float> read_float() { return read_number<float>(); }
  [[nodiscard]] std::optional<double> read_double() { return read_number<double>(); }
  [[nodiscard]] std::optional<std::string> read_string() {
    const auto bytes = read_string_view();
    return bytes ? std::optional<std::string>(*bytes) : std::nullopt;
  }
  /// The same without a copy.
  [[nodiscard]] std::optional<std::string_view> read_string_view();
  /// A reader of the bytes of a nested buffer. Its offsets count from the beginning of the outermost data. It
  /// has a failure and an end of its own.
  [[nodiscard]] std::optional<checked_reader> read_buffer() { return read_buffer(form_); }
  [[nodiscard]] std::optional<checked_reader> read_buffer(form stored_as);

  /// Whether no read has failed, and no data is left. False after a failure: a loop `while (!in.at_end())`
  /// also ends at an empty result.
  [[nodiscard]] bool at_end() const noexcept {
    return position_ == data_.size() && failure_.error == read_error::none;
  }
  /// The first byte that has not been read. After a failure, that of the item that could not be read.
  [[nodiscard]] std::size_t position() const noexcept { return position_; }

  /// Whether every item was read, and no data is left. Data that is left is a failure too.
  [[nodiscard]] bool finish();
  [[nodiscard]] const read_failure& failure() const noexcept { return failure_; }

 private:
  template <typename Number>
  std::optional<Number> read_number() {
    return form_ == form::binary ? read_binary<Number>() : read_text<Number>();
  }

  template <typename Number>
  std::optional<Number> read_binary() {
    if (data_.size() - position_ < sizeof(Number)) return fail(read_error::data_ended, data_.size());
    const char* const bytes = data_.data() + position_;
    position_ += sizeof(Number);
    return generic::convert::_private::read_bytes<Number, std::endian::little>(bytes, sizeof(Number));
  }

  template <typename Number>
  std::optional<Number> read_text() {
    using limits = std::numeric_limits<Number>;
    if constexpr (std::is_same_v<Number, float>) {
      return read_text_float();
    } else if constexpr (std::is_same_v<Number, double>) {
      return read_text_double();
    } else if constexpr (limits::is_signed) {
      return narrowed<Number>(read_text_signed(limits::min(), limits::max()));
    } else {
      return narrowed<Number>(read_text_unsigned(limits::max()));
    }
  }

  template <typename Number, typename Wide>
  static std::optional<Number> narrowed(const std::optional<Wide>& value) {
    return value ? std::optional(static_cast<Number>(*value)) : std::nullopt;
  }

  std::optional<long long> read_text_signed(long long min, long long max);
  std::optional<unsigned long long> read_text_unsigned(unsigned long long max);
  std::optional<float> read_text_float();
  std::optional<double> read_text_double();

  template <typename Number, typename Parse>
  std::optional<Number> read_text_number(Parse parse);

  /// Records the first failure, and ends the data at the present item, so that every later read fails by the
  /// same test of what is left.
  std::nullopt_t fail(read_error error, std::size_t position) noexcept;

  std::string_view data_;
  std::size_t position_ = 0;
  form form_;
  read_failure failure_;
};

}  // namespace ORVA_NAMESPACE::serialization
