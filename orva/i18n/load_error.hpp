/// How the reading of an XMC file ended: a code, and a text for humans that also says where.
///
/// A plain value. The loader makes it at the place of the failure, and each element around that place adds
/// its line on the way out, from the inside to the outside:
///
///     xmc_file_loader::load_error - Invalid element "i"
///      in message element: "disk_free"
///      in catalog element: "app"
///      in file: "messages/de.xmc"
#pragma once

#include "orva/export.hpp"
#include "orva/parser/xml_parser.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::i18n::_private {

class ORVA_API load_error {
 public:
  /// The x of a comment is the text that the error is made with.
  enum error_type : int {
    no_error = 0,
    no_catalog = 1,              ///< the file holds no catalog in an accepted language; x is the file
    no_default_locale = 2,       ///< the caller names no language
    file_not_found = 3,          ///< x is the file
    xml_parse_error = 4,         ///< not well-formed; made from a `parse_error`
    invalid_attribute = 5,       ///< x is the attribute's name
    invalid_element = 6,         ///< x is the element's name, or the file that is included too deep
    not_xmc_file = 7,            ///< x is the name of the root element
    unsupported_version = 8,     ///< x is the version
    br_end_missing = 9,          ///< `br` has content
    msg_end_missing = 10,        ///< x is the message's name
    arg_end_missing = 11,        ///< a placeholder has content; x is the argument's name
    include_end_missing = 12,    ///< `include` has content
    catalog_end_missing = 13,    ///< something other than `msg` in a catalog; x is the catalog's name
    unexpected_parse_error = 14  ///< the file ends too early, or cannot be read to its end
  };

  /// The element that a line of context names.
  enum append_type : int { in_message = 1, in_catalog = 2, in_file = 3 };

  load_error() : load_error(no_error, strings::ustring8()) {}
  /// A type outside the table, `xml_parse_error` included, gives "unknown, or unhandle case happened!" and
  /// `text`.
  load_error(error_type type, const strings::ustring8& text);
  /// The text follows `error`, whatever the type.
  load_error(error_type type, const parser::xml_parser::parse_error& error);

  error_type type() const noexcept { return type_; }
  const strings::ustring8& message() const noexcept { return message_; }

  /// Adds the line that names one more element around the failure.
  void append_error_stack(append_type where, const strings::ustring8& name);

 protected:
  static strings::ustring8 format_msg(error_type type, const strings::ustring8& text);
  static strings::ustring8 format_msg(error_type type, const parser::xml_parser::parse_error& error);

 private:
  error_type type_;
  strings::ustring8 message_;
};

}  // namespace ORVA_NAMESPACE::i18n::_private
