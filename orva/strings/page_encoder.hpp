/// `encode_checked` and `page_encoder`: bytes of a code page from text, with a list of what the page lacks.
///
///     const auto result = encode_checked(code_page::cp_1252, "\xE2\x82\xAC \xD0\x96");         // "€ Ж"
///     result.bytes                   =>  "\x80 ?"
///     result.losses.first[0].kind    =>  loss_kind::missing, place 4, U+0416, written as "?"
///     result.is_lossless()           =>  false
///
///     page_encoder encoder(code_page::cp_932);                       // a text of any size
///     while (read(text, piece)) encoder.encode(piece, bytes);        // appends to `bytes`
///     encoder.finish(bytes);
///
/// The bytes are those of `code_page::encode`, except where that loses more: a zero unit is a character like
/// any other and ends nothing, UTF-32 is taken whole, and malformed text costs its malformed part only.
///
///     the text                                  the bytes                           kind
///     a character that the page lacks           the nearest one that it has         best_fit
///                                               else '?', "??" for a surrogate pair missing
///     a bad sequence, an unpaired surrogate,    U+FFFD in utf8, else '?'            malformed
///     a value above 0x10FFFF
///     an end within a character                 the same                            cut
///
/// A text without a loss is what `decode_checked` reads in its bytes. The full-width question mark is a best
/// fit where it is written as '?'.
///
/// `diagnostics::describe` (diagnostics/text_findings.hpp) says in words what was lost, or why nothing was
/// converted. Inverse: `strings/page_decoder.hpp`. Labels of pages: `strings/code_page_names.hpp`.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "orva/export.hpp"
#include "orva/strings/code_page.hpp"
#include "orva/strings/conversion_loss.hpp"
#include "orva/strings/internal/pieces.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::strings {

struct encoded_text {
  std::string bytes;
  loss_list<encoding_loss> losses;
  conversion_error error = conversion_error::none;

  /// Whether the bytes give back the whole text.
  bool is_lossless() const { return error == conversion_error::none && losses.count == 0; }
};

/// The bytes of a whole text. Places of losses are in its code units.
[[nodiscard]] ORVA_API encoded_text encode_checked(const code_page& page, ustring8::view text);
[[nodiscard]] ORVA_API encoded_text encode_checked(const code_page& page, ustring16::view text);
[[nodiscard]] ORVA_API encoded_text encode_checked(const code_page& page, ustring32::view text);

/// Writes a text in pieces of any size. The bytes are the same however the text is cut, and memory is needed
/// for one piece and its bytes. An encoder belongs to one thread at a time; a copy continues where the
/// original is.
template <code_unit Unit>
class basic_page_encoder {
 public:
  /// A page of an invalid type raises `exceptions::invalid_argument_value`, as its conversions do.
  ORVA_API explicit basic_page_encoder(const code_page& page);

  /// Appends the bytes of the next part of the text to `bytes`. The units of a character that the piece cuts
  /// are kept.
  ORVA_API void encode(std::basic_string_view<Unit> piece, std::string& bytes);

  /// Appends the replacement of a character that the end of the text cuts. The encoder is then at the
  /// beginning of another text; its losses stay.
  ORVA_API void finish(std::string& bytes);

  const loss_list<encoding_loss>& losses() const { return losses_; }

  /// Returns the losses and forgets them, so that a long text can have more than a list takes.
  loss_list<encoding_loss> take_losses() { return std::exchange(losses_, {}); }

 private:
  template <typename Page>
  void convert(const Page& page, std::basic_string_view<Unit> text, std::string& bytes, bool is_cut);

  int system_type_;
  _private::cut_character<Unit> cut_;
  std::uint64_t units_read_ = 0;
  std::uint64_t bytes_written_ = 0;
  loss_list<encoding_loss> losses_;
};

/// From UTF-8.
using page_encoder = basic_page_encoder<char>;

}  // namespace ORVA_NAMESPACE::strings
