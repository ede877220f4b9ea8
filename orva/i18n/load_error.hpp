/// `load_error`: the result of reading an XMC file. It has a code, and a text for humans that names the place
/// of the failure.
///
///     const load_error error = loader.parse("messages/de.xmc", "de");
///     if (error.type() != load_error::no_error) std::cerr << error.message() << '\n';
///
///     xmc_file_loader::load_error - Invalid element "i"
///      in message element: "disk_free"
///      in catalog element: "app"
///      in file: "messages/de.xmc"
///
/// The first line says what is wrong. Each element around the failure adds a line, the innermost first. A
/// `load_error` is a value; `message_catalogs` returns it as a `result_type`.
///
/// Edge cases: docs/edges.md#messages.
#pragma once

#include "orva/export.hpp"
#include "orva/parser/xml_parser.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::i18n::_private {

class ORVA_API load_error {
 public:
  /// Text means the text that the error is constructed with.
  enum error_type : int {
    no_error = 0,
    no_catalog = 1,              ///< no catalog in an accepted language; text: the file
    no_default_locale = 2,       ///< the caller gave no language
    file_not_found = 3,          ///< text: the file
    xml_parse_error = 4,         ///< not well-formed; constructed from a `parse_error`
    invalid_attribute = 5,       ///< text: the attribute's name
    invalid_element = 6,         ///< text: the element's name, or the file beyond the limits of includes
    not_xmc_file = 7,            ///< text: the name of the root element
    unsupported_version = 8,     ///< text: the version
    br_end_missing = 9,          ///< `br` has content
    msg_end_missing = 10,        ///< text: the message's name
    arg_end_missing = 11,        ///< a placeholder has content; text: the argument's name
    include_end_missing = 12,    ///< `include` has content
    catalog_end_missing = 13,    ///< an element other than `msg` in a catalog; text: the catalog's name
    unexpected_parse_error = 14  ///< the file ends too early, or cannot be read completely
  };

  /// What a line of context names.
  enum append_type : int { in_message = 1, in_catalog = 2, in_file = 3 };

  load_error() : load_error(no_error, strings::ustring8()) {}
  /// `xml_parse_error`, or a type that is not listed, gives "unknown, or unhandle case happened!" and `text`.
  load_error(error_type type, const strings::ustring8& text);
  /// The message depends on `error` alone.
  load_error(error_type type, const parser::xml_parser::parse_error& error);

  error_type type() const noexcept { return type_; }
  const strings::ustring8& message() const noexcept { return message_; }

  /// Adds a line for one more element around the failure.
  void append_error_stack(append_type where, const strings::ustring8& name);

 protected:
  static strings::ustring8 format_msg(error_type type, const strings::ustring8& text);
  static strings::ustring8 format_msg(error_type type, const parser::xml_parser::parse_error& error);

 private:
  error_type type_;
  strings::ustring8 message_;
};

}  // namespace ORVA_NAMESPACE::i18n::_private
