#include "orva/strings/standard_transforms.hpp"

#include <concepts>
#include <cstdint>
#include <span>
#include <string_view>

#include "orva/internal/text/code_point.hpp"
#include "orva/internal/text/fast_path_from_utf8.hpp"
#include "orva/internal/text/fast_path_to_utf8.hpp"
#include "orva/internal/transforms/output_text.hpp"

namespace ORVA_NAMESPACE::strings {

namespace {

namespace text_kernels = internal::text;
using text_kernels::cursor;

constexpr std::uint32_t replacement_character = 0xFFFD;

/// Converts the source in turns: `convert` takes what is well-formed, and `replace` writes U+FFFD for one
/// malformed part.
template <typename From, typename To, typename Convert, typename Replace>
void transform_parts(std::basic_string_view<From> source, on_malformed policy, transformed<To>& result,
                     Convert convert, Replace replace) {
  for (std::size_t done = 0;;) {
    const auto rest = source.substr(done);
    const auto malformed = first_malformed(rest);
    convert(rest.substr(0, malformed ? malformed->offset : rest.size()));
    if (!malformed) return;
    if (!result.first_malformed) {
      result.first_malformed = malformed;
      result.first_malformed->offset += done;
    }
    if (policy == on_malformed::stop) return;
    replace();
    ++result.replaced;
    done += malformed->offset + malformed->length;
  }
}

/// The most units that `units` units give, and the room that the fast paths need.
template <typename To, typename From>
std::size_t most_units(std::size_t units) {
  if constexpr (std::same_as<To, char>) return text_kernels::times(units, 4);
  if constexpr (sizeof(From) > sizeof(To)) return text_kernels::times(units, 2);
  return units;
}

/// REQUIRES: well-formed text.
template <typename From, typename To>
cursor<From, To> converted(cursor<From, To> at, const From* end) {
  while (at.from != end) {
    at = text_kernels::fast_path(at, end);
    if constexpr (std::same_as<From, code_unit16> && std::same_as<To, code_unit32>) {
      at = text_kernels::fast_path_pairs(at, end);
    }
    for (const From* const stop = text_kernels::block_end(at.from, end); at.from < stop;) {
      const auto found = text_kernels::decode(at.from, static_cast<std::size_t>(end - at.from));
      at.to = text_kernels::encode(found.code_point, at.to);
      at.from += found.units;
    }
  }
  return at;
}

template <typename To, typename From>
transformed<To> transform(std::basic_string_view<From> source, on_malformed policy) {
  transformed<To> result;
  const auto write = [&](std::span<To> output) {
    To* to = output.data();
    transform_parts(
        source, policy, result,
        [&](std::basic_string_view<From> good) {
          to = converted(cursor<From, To>{good.data(), to}, good.data() + good.size()).to;
        },
        [&] { to = text_kernels::encode(replacement_character, to); });
    return static_cast<std::size_t>(to - output.data());
  };
  result.text = internal::transforms::make_text<To>(most_units<To, From>(source.size()), write);
  return result;
}

/// A copy, for text that has the units of the result.
template <typename Unit>
transformed<Unit> copy(std::basic_string_view<Unit> source, on_malformed policy) {
  Unit units[4];
  const std::basic_string_view<Unit> replacement(units, text_kernels::encode(replacement_character, units));
  transformed<Unit> result;
  result.text.reserve(source.size());
  transform_parts(
      source, policy, result, [&](std::basic_string_view<Unit> good) { result.text.append(good); },
      [&] { result.text.append(replacement); });
  return result;
}

template <typename To>
transformed<To> transform_any(const text_view& text, on_malformed policy) {
  return text.visit([&]<typename From>(std::basic_string_view<From> source) {
    if constexpr (std::same_as<From, To>) {
      return copy(source, policy);
    } else {
      return transform<To>(source, policy);
    }
  });
}

}  // namespace

transformed<char> to_utf8(const text_view& text, on_malformed policy) {
  return transform_any<char>(text, policy);
}

transformed<code_unit16> to_utf16(const text_view& text, on_malformed policy) {
  return transform_any<code_unit16>(text, policy);
}

transformed<code_unit32> to_utf32(const text_view& text, on_malformed policy) {
  return transform_any<code_unit32>(text, policy);
}

}  // namespace ORVA_NAMESPACE::strings
