/// What a conversion between text and bytes of a code page lost, and where.
///
///     const auto result = encode_checked(code_page::cp_1252, "\xC4\x80 \xE2\x88\x9E \xD0\x96");
///     result.bytes                       =>  "A 8 ?"
///     result.losses.count                =>  3
///     result.losses.first[0].kind        =>  loss_kind::best_fit
///     result.losses.first[0].character   =>  U+0100, at place 0, written as "A"
///
/// `diagnostics::describe` (diagnostics/text_findings.hpp) says each in words.
///
/// Lists of `page_encoder.hpp` and `page_decoder.hpp`. Places count from 0: code units in text, bytes in
/// bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::strings {

enum class loss_kind {
  best_fit,   ///< the page lacks the character; another one that resembles it is written
  missing,    ///< the page lacks the character; a question mark is written
  undefined,  ///< the bytes are no character of the page
  malformed,  ///< the text is not UTF-8, UTF-16 or UTF-32 here: a bad sequence, a surrogate without the other
  cut,        ///< the text or the bytes end within a character
};

/// A character of a text that its bytes do not give back.
struct encoding_loss {
  loss_kind kind;
  /// Where the character begins in the text, and its number of code units.
  std::uint64_t place;
  std::size_t size;
  /// The code point; U+FFFD where the text is malformed or cut.
  char32_t character;
  /// The bytes that replace it, and where they begin in the result.
  std::uint64_t result_place;
  std::string written;

  bool operator==(const encoding_loss&) const = default;
};

/// Bytes that are no character.
struct decoding_loss {
  loss_kind kind;
  /// Where the bytes begin.
  std::uint64_t place;
  std::string bytes;
  /// The character that replaces them, and where it begins in the text.
  std::uint64_t result_place;
  char32_t read_as;

  bool operator==(const decoding_loss&) const = default;
};

/// The first losses of a conversion are listed, all are counted: so the memory for them has a bound.
inline constexpr std::size_t max_losses = 1000;

template <typename Loss>
struct loss_list {
  /// In the order of their places, `max_losses` at most.
  std::vector<Loss> first;
  std::uint64_t count = 0;

  bool operator==(const loss_list&) const = default;
};

/// Why nothing was converted.
enum class conversion_error {
  none,
  invalid_page,  ///< the code page has no valid type, as a default `code_page`
};

}  // namespace ORVA_NAMESPACE::strings
