/// Language tags of catalogs: the spelling with `_`, and the list of languages that a load accepts.
///
///     normalized_language_tag("de-DE")          =>  "de_DE"
///     accepted_languages("de-DE").weight("de")  =>  3
///
/// `accepted_languages` is a value; any number of threads may read it while none changes it.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "orva/strings/ustring.hpp"
#include "orva/types/integers.hpp"

namespace ORVA_NAMESPACE::i18n::_private {

/// Replaces each `.` and `-` by `_`. A tag of one character is unchanged, for the sake of the neutral tag
/// ".".
///
///     "de-DE.UTF-8"  =>  "de_DE_UTF_8"
///     "."            =>  "."
strings::ustring8 normalized_language_tag(std::string_view tag);

/// The tags that a load accepts, from the least to the most specific: the neutral tag, English, the first
/// part of the wanted language, its first two parts, and so on.
///
///     ""             =>  "."  "en"
///     "de_DE"        =>  "."  "en"  "de"  "de_DE"
///     "en-GB"        =>  "."  "en"  "en_GB"
///     "de__CH"       =>  "."  "en"  "de"  "de_"  "de__CH"
class accepted_languages {
 public:
  /// Accepts nothing.
  accepted_languages() = default;
  /// Takes a language in any spelling that `normalized_language_tag` takes.
  explicit accepted_languages(std::string_view language);

  /// The position of `tag` in the list, counted from 1, or 0 if the tag is not accepted. A greater weight is
  /// a better match. A tag that is not in the list is looked up again in its normalized spelling.
  types::uint32 weight(std::string_view tag) const;

 private:
  types::uint32 position(std::string_view tag) const;

  bool accepts_fixed_tags_ = false;
  strings::ustring8 language_;
  // The lengths of the accepted prefixes of `language_`. As texts, the prefixes of a long tag would need
  // memory in proportion to the square of its length.
  std::vector<std::size_t> prefix_sizes_;
};

}  // namespace ORVA_NAMESPACE::i18n::_private
