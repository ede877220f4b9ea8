// The texts of load results.
#include <ostream>
#include <string_view>

#include "orva/i18n/message_catalogs.hpp"

namespace ORVA_NAMESPACE::i18n {

using _private::load_error;
using strings::ustring8;

namespace {

constexpr std::string_view prefix = "message_catalogs::result_type - ";

struct outcome {
  message_catalogs::error_type type;
  std::string_view heading;
};

outcome outcome_of(load_error::error_type type) {
  switch (type) {
    case load_error::no_error:
      return {message_catalogs::no_error, "No Error\n"};
    case load_error::no_catalog:
      return {message_catalogs::no_catalog, "No catalog was loaded\n"};
    case load_error::no_default_locale:
      return {message_catalogs::no_default_locale, "Default locale lookup not supported yet\n"};
    case load_error::file_not_found:
      return {message_catalogs::file_not_found, "File was not found on disk\n"};
    case load_error::xml_parse_error:
      return {message_catalogs::xml_parse_error, "XML parse error, XML file not well formed\n"};
    case load_error::invalid_attribute:
    case load_error::invalid_element:
    case load_error::not_xmc_file:
    case load_error::unsupported_version:
    case load_error::br_end_missing:
    case load_error::msg_end_missing:
    case load_error::arg_end_missing:
    case load_error::include_end_missing:
    case load_error::catalog_end_missing:
      return {message_catalogs::xmc_invalid, "XMC file is not valid\n"};
    case load_error::unexpected_parse_error:
      return {message_catalogs::unexpected_error, "Unexpected error happened during loading\n"};
  }
  return {message_catalogs::unexpected_error, "Unhandled case\n"};
}

}  // namespace

message_catalogs::result_type::result_type(error_type type, const ustring8& text)
    : type_(type), message_(format_message(type, text)) {}

message_catalogs::result_type::result_type(const load_error& error) {
  const outcome result = outcome_of(error.type());
  type_ = result.type;
  message_.append(prefix).append(result.heading).append(error.message());
}

ustring8 message_catalogs::result_type::format_message(error_type type, const ustring8& text) {
  const auto quoted = [&](std::string_view before, std::string_view after) {
    ustring8 result(prefix);
    return result.append(before).append("\"").append(text).append("\"").append(after);
  };
  switch (type) {
    case no_error:
      return ustring8(prefix) + "No Error";
    case no_catalog:
      return quoted("No catalog was loaded in file: ", "");
    case file_not_found:
      return quoted("File ", " was not found on disk");
    case directory_not_found:
      return quoted("Directory ", " was not found on disk");
    case entity_not_found:
      return quoted("Entity (file or directory) ", " was not found on disk");
    default:
      return "unknown, or unhandle case happened! str data=" + text;
  }
}

std::ostream& operator<<(std::ostream& stream, const message_catalogs::result_type& result) {
  return stream << result.message();
}

}  // namespace ORVA_NAMESPACE::i18n
