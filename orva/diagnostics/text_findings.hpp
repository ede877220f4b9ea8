/// `describe`: what is wrong with a text, or was lost in its conversion, as a finding.
///
///     if (const auto bad = strings::first_malformed(text))
///       std::cerr << diagnostics::describe(*bad, text, "menu.txt");
///         =>  menu.txt:3:7: error: A byte continues no character: 0x80. [text.stray_continuation]
///
///     const auto encoded = strings::encode_checked(page, text);
///     const line_index lines(text);
///     for (const auto& loss : encoded.losses.first)
///       found.add(describe(loss, lines.place_of(loss.place), "menu.txt"));
///         =>  menu.txt:1:3: error: The code page lacks U+0416, which is lost; ? is written.
///             [code_page.missing]
///
/// Malformed parts have the codes "text." and the name of the malformation; conversions with a code page have
/// "code_page." and the kind of the loss. docs/diagnostic_codes.md explains each. `file` is the name that the
/// user knows, and only passed on.
///
/// The results of `strings/standard_transforms.hpp` have a malformed part: `describe(*result.first_malformed,
/// source)`.
#pragma once

#include <string_view>

#include "orva/diagnostics/finding.hpp"
#include "orva/export.hpp"
#include "orva/strings/conversion_loss.hpp"
#include "orva/strings/text_view.hpp"
#include "orva/strings/well_formed.hpp"

namespace ORVA_NAMESPACE::diagnostics {

/// `text` is what was examined. It is read up to the end of the part. Argument: `units`, the code units of
/// the part.
[[nodiscard]] ORVA_API finding describe(const strings::malformed_part& part, const strings::text_view& text,
                                        std::string_view file = {});

/// A loss of `page_encoder.hpp`; a best fit is a warning. Its text may have been converted in pieces, so the
/// caller gives the place: `lines.place_of(loss.place)` in a text of UTF-8. Arguments: `character`; `offset`
/// of the character, in code units of the text; `result`, what is written for it.
[[nodiscard]] ORVA_API finding describe(const strings::encoding_loss& loss, place at = {},
                                        std::string_view file = {});

/// A loss of `page_decoder.hpp`. A place can be had from the text that was made:
/// `lines.place_of(loss.result_place)`. Arguments: `bytes`; their `offset`; `result`, the character that they
/// are read as.
[[nodiscard]] ORVA_API finding describe(const strings::decoding_loss& loss, place at = {},
                                        std::string_view file = {});

/// Why nothing was converted.
[[nodiscard]] ORVA_API finding describe(strings::conversion_error error, std::string_view file = {});

/// For a label of which `strings::find_code_page` knows no page. Argument: `label`.
[[nodiscard]] ORVA_API finding unknown_code_page(std::string_view label, place at = {},
                                                 std::string_view file = {});

}  // namespace ORVA_NAMESPACE::diagnostics
