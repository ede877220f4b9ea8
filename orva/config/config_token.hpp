/// `config_token`: one token of the configuration language, as `base_config_item::get_token` cuts it out of a
/// text.
///
/// A plain value that belongs to its caller. The tokens only cut: what ends a key, what starts a comment and
/// what separates the elements of an array is decided by each source of configuration.
///
///     a.b = "c d" # e      =>  a  .  b  (blank)  =  (blank)  c d  (blank)  #  (blank)  e
///     x1.5                 =>  x  1  .  5        letters and digits are runs of their own
///     */                   =>  */
#pragma once

#include <string>

#include "orva/export.hpp"

namespace ORVA_NAMESPACE::config {

class ORVA_API config_token {
 public:
  /// The texts that match are in the comment; `text` holds the same unless told otherwise.
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
    T_STARTCOMMENT = 25,  // never made: of /* come T_DIV and what the star begins
    T_TIMES = 26,         // *
    T_DIV = 27,           // /
    T_TIMESEQ = 28,       // *=
    T_DIVEQ = 29,         // /=
    T_STRING = 30,        // text in double quotes, without them; may hold line ends
    T_NON_ALPHA_NUM = 31  // any other byte
  };

  /// What the token is, for people: "T_EQ", and with their text "T_VAR :[abc]", "T_UNKNOWN:[...]",
  /// "T_STRING:[...]" and "T_NON_ALPHA_NUM:[...]". Of T_ENDCOMMENT, T_STARTCOMMENT and any other number
  /// "unknown type".
  std::string CvtTokStr() const;

  std::string text;
  /// Just behind the token. One behind the end of the source for text in quotes that are not closed.
  unsigned int end_position = 0;
  unsigned int start_position = 0;
  tok_types type = T_END;
};

}  // namespace ORVA_NAMESPACE::config
