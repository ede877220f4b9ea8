/// `decode_checked` and `page_decoder`: text from bytes of a code page, with a list of what was no character.
///
///     const auto result = decode_checked(code_page::cp_1252, "\x80 \x81");
///     result.text                   =>  "\xE2\x82\xAC \xC2\x81"
///     result.losses.first[0].kind   =>  loss_kind::undefined, place 2, bytes "\x81", read as U+0081
///
///     page_decoder decoder(code_page::cp_932);                       // a file of any size
///     while (read(file, piece)) decoder.decode(piece, text);         // appends to `text`
///     decoder.finish(text);                                          // the file may end within a character
///
/// The text is that of `code_page::as_utf8` and its siblings, with one difference: a zero byte is a character
/// like any other, U+0000, and ends nothing. Bytes that are no character are listed:
///
///     the bytes                                     the text                           kind
///     an undefined byte                             a control, a private character     undefined
///     an undefined pair, a lead byte before a zero  U+30FB in cp_932, else '?'         undefined
///     bad UTF-8                                     U+FFFD for the bytes to the fault  malformed
///     an end within a character                     as for what is undefined or bad    cut
///
/// On Windows `ansi` and `oem` are the system's own pages; tables are made from its answers when it is first
/// asked for one that is not among those of `code_page`. All others give the same on every system.
///
/// `diagnostics::describe` (diagnostics/text_findings.hpp) says in words what was lost, or why nothing was
/// converted. Inverse: `strings/page_encoder.hpp`. Labels of pages: `strings/code_page_names.hpp`.
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

template <code_unit Unit>
struct decoded_text {
  basic_ustring<Unit> text;
  loss_list<decoding_loss> losses;
  conversion_error error = conversion_error::none;

  /// Whether every byte is part of a character that the text has.
  bool is_lossless() const { return error == conversion_error::none && losses.count == 0; }
};

/// The text of all `bytes`, in UTF-8 or in the encoding of `Unit`.
template <code_unit Unit = char>
[[nodiscard]] ORVA_API decoded_text<Unit> decode_checked(const code_page& page, std::string_view bytes);

extern template decoded_text<char> decode_checked(const code_page&, std::string_view);
extern template decoded_text<code_unit16> decode_checked(const code_page&, std::string_view);
extern template decoded_text<code_unit32> decode_checked(const code_page&, std::string_view);

/// Reads a file in pieces of any size. The text is the same however the file is cut, and memory is needed for
/// one piece and its text. A decoder belongs to one thread at a time; a copy continues where the original is.
template <code_unit Unit>
class basic_page_decoder {
 public:
  /// A page of an invalid type raises `exceptions::invalid_argument_value`, as its conversions do.
  ORVA_API explicit basic_page_decoder(const code_page& page);

  /// Appends the text of the next bytes to `text`. The bytes of a character that the piece cuts are kept.
  ORVA_API void decode(std::string_view piece, std::basic_string<Unit>& text);

  /// Appends the replacement of a character that the end of the file cuts. The decoder is then at the
  /// beginning of another file; its losses stay.
  ORVA_API void finish(std::basic_string<Unit>& text);

  const loss_list<decoding_loss>& losses() const { return losses_; }

  /// Returns the losses and forgets them, so that a long file can have more than a list takes.
  loss_list<decoding_loss> take_losses() { return std::exchange(losses_, {}); }

 private:
  template <typename Page>
  void convert(const Page& page, std::string_view bytes, std::basic_string<Unit>& text, bool is_cut);

  int system_type_;
  _private::cut_character<char> cut_;
  std::uint64_t bytes_read_ = 0;
  std::uint64_t units_written_ = 0;
  loss_list<decoding_loss> losses_;
};

/// Into UTF-8.
using page_decoder = basic_page_decoder<char>;

}  // namespace ORVA_NAMESPACE::strings
