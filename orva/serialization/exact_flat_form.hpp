/// The flat form of a `labeled_text_buffer` without loss: numbers exactly, in every locale, and no malformed
/// text read as something else.
///
///     labeled_text_buffer circle;
///     circle.add_value("radius", 0.1);
///     const std::string text = write_exact_flat_form(circle);      // "6~radius~3~0.1~"
///
///     labeled_text_buffer copy;
///     const read_failure failure = read_exact_flat_form(text, copy);
///     if (failure.error != read_error::none) return report(describe(failure));
///     copy.retrieve_value("radius").try_as<double>();               // 0.1
///
/// The form is that of `labeled_text_buffer::as_str`, so that `assign` reads it too. `as_str` writes a
/// floating value with six digits and with the decimal point of the global locale, and `assign` gives what
/// can be read of a text that is not a flat form; both stay as they are.
#pragma once

#include <string>
#include <string_view>

#include "orva/export.hpp"
#include "orva/serialization/checked_reader.hpp"
#include "orva/serialization/labeled_text_buffer.hpp"

namespace ORVA_NAMESPACE::serialization {

/// As `as_str`, except that a floating value is the shortest text that reads back as the same value, with a
/// point in every locale. Infinity is `inf`, NaN `nan`; the other bits of a NaN are not stored. Throws
/// `std::length_error`, "string too long", as `as_str` does.
///
///     3.14159265358979    =>  3.14159265358979      as_str: 3.14159, or 3,14159 in some locales
///     1e300               =>  1e+300
///     0.1f                =>  0.1                   a float, which reads back as a float
[[nodiscard]] ORVA_API std::string write_exact_flat_form(const labeled_text_buffer& buffer);

/// Replaces the content by that of a flat form. If the text is not one as a whole, the buffer is unchanged
/// and the result has what is wrong and where. A text in which something would be lost is not one: with a
/// label that is empty, is not trimmed, or has two values or groups. The order of the labels does not matter.
[[nodiscard]] ORVA_API read_failure read_exact_flat_form(std::string_view text, labeled_text_buffer& buffer);

/// Stores the shortest text of a number, so that `as_str` also writes it exactly and in every locale.
/// `retrieve_value` then has a byte string. Its `try_as<double>` is the same number, and so is its
/// `as_double` where the global locale has a point.
ORVA_API labeled_serialize_buffer::result_type add_exact(labeled_serialize_buffer& buffer,
                                                         const std::string& label, double value);
ORVA_API labeled_serialize_buffer::result_type add_exact(labeled_serialize_buffer& buffer,
                                                         const std::string& label, float value);

}  // namespace ORVA_NAMESPACE::serialization
