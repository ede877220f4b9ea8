/// `config_token`: one token of the configuration language, as `base_config_item::get_token` reads it.
///
///     a.b = "c d" # e      =>  a  .  b  (blank)  =  (blank)  c d  (blank)  #  (blank)  e
///     x1.5                 =>  x  1  .  5        letters and digits are separate runs
///     */                   =>  */
///
/// A token is a plain value. It has no meaning by itself: each source of configuration decides what ends a
/// key, what begins a comment and what separates the elements of an array.
///
/// Edge cases: docs/edges.md#configuration
#pragma once

#include <string>

#include "orva/export.hpp"

namespace ORVA_NAMESPACE::config {

class ORVA_API config_token {
 public:
  /// The comments show the text that matches. `text` is the same where they do not say otherwise.
  enum tok_types : int {
    T_VAR = 0,            // a run of letters, by the C runtime's current locale
    T_NUM = 1,            // a run of decimal digits
    T_NEWLINE = 2,        // a line feed, or carriage return and line feed; `text` is one line feed
    T_TABCHAR = 3,        // one tab
    T_UNKNOWN = 4,        // a carriage return without a line feed
    T_END = 5,            // the end of the source; the token keeps its text and its positions
    T_SPACE = 6,          // a run of blanks, code 32 only; the token keeps its text
    T_EQ = 7,             // =
    T_EQEQ = 8,           // ==
    T_GT = 9,             // >
    T_GTEQ = 10,          // >=
    T_LT = 11,            // <
    T_LTEQ = 12,          // <=
    T_COLON = 13,         // :
    T_COLONEQ = 14,       // :=
    T_POUND = 15,         // #
    T_FSFS = 16,          // //
    T_DOT = 17,           // .
    T_SBRACKET = 18,      // [
    T_EBRACKET = 19,      // ]
    T_PLUS = 20,          // +
    T_MINUS = 21,         // -
    T_PLUSEQ = 22,        // +=
    T_MINUSEQ = 23,       // -=
    T_ENDCOMMENT = 24,    // */
    T_STARTCOMMENT = 25,  // never returned: `/*` gives T_DIV and then the token of `*`
    T_TIMES = 26,         // *
    T_DIV = 27,           // /
    T_TIMESEQ = 28,       // *=
    T_DIVEQ = 29,         // /=
    T_STRING = 30,        // text in double quotes, without the quotes; may hold line ends
    T_NON_ALPHA_NUM = 31  // any other byte
  };

  /// The name of the type, for debugging: "T_EQ". Four names include the text: "T_VAR :[abc]",
  /// "T_UNKNOWN:[...]", "T_STRING:[...]" and "T_NON_ALPHA_NUM:[...]". "unknown type" for T_ENDCOMMENT,
  /// T_STARTCOMMENT and any number outside the enumeration.
  std::string CvtTokStr() const;

  std::string text;
  /// The position after the token. Where a quote is not closed, one more than the length of the source.
  unsigned int end_position = 0;
  unsigned int start_position = 0;
  tok_types type = T_END;
};

}  // namespace ORVA_NAMESPACE::config
