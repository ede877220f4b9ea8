/// Language tags as catalogs know them: parts joined by `_`, the parts of a tag being its parents.
///
/// Used by the loader, which weighs the languages of a file, and by the catalogs, which answer for what was
/// loaded. Plain values, safe to read from many threads.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "orva/strings/ustring.hpp"
#include "orva/types/integers.hpp"

namespace ORVA_NAMESPACE::i18n::_private {

/// Every `.` and `-` becomes `_`, but for a tag of one character, so that the neutral tag "." stays.
///
///     "de-DE.UTF-8"  =>  "de_DE_UTF_8"
///     "."            =>  "."
strings::ustring8 normalized_language_tag(std::string_view tag);

/// The tags that a load accepts, from the least to the most specific: the neutral tag, English, then the
/// wanted language by growing prefixes.
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

  /// The place of `tag` in the list, counted from 1; 0 if it is not accepted. The bigger, the better the
  /// match. A tag that is not found as it stands is tried again normalized.
  types::uint32 weight(std::string_view tag) const;

 private:
  types::uint32 position(std::string_view tag) const;

  bool accepts_fixed_tags_ = false;
  strings::ustring8 language_;
  // The prefixes are kept by their lengths: written out, those of a long tag would take its length squared.
  std::vector<std::size_t> prefix_sizes_;
};

}  // namespace ORVA_NAMESPACE::i18n::_private
