#include "orva/i18n/load_error.hpp"

#include <string>
#include <string_view>

namespace ORVA_NAMESPACE::i18n::_private {

using parser::xml_parser;
using strings::ustring8;

namespace {

constexpr std::string_view prefix = "xmc_file_loader::load_error - ";
constexpr std::string_view unhandled = "unknown, or unhandle case happened! str data=";

/// A sentence around a quoted text. The misspelt ones stay: programs search their logs for them.
struct phrase {
  std::string_view before;
  bool quotes_text;
  std::string_view after = {};
};

const phrase* find_phrase(load_error::error_type type) {
  static constexpr phrase phrases[] = {
      {"No Error", false},
      {"No catalog was loaded in file: \"", true, "\""},
      {"Default locale lookup not supported yet", false},
      {"File \"", true, "\" was not found on disk"},
      {},
      {"Invalid attibute \"", true, "\""},
      {"Invalid element \"", true, "\""},
      {"Not XMC file, root element is not XMC but \"", true, "\""},
      {"XMC version \"", true, "\" is not supported"},
      {"Expected BR end tag not found", false},
      {"Expected msg (message) end tag not found for message \"", true, "\""},
      {"Expected arg (argument) end tag not found for argument \"", true, "\""},
      {"Expected \"include\" end tag not found", false},
      {"Expected catalog end tag not found for catalog \"", true, "\""},
      {"Unexpected parse error happen!", false},
  };
  const bool listed = type >= load_error::no_error && type <= load_error::unexpected_parse_error;
  return listed && type != load_error::xml_parse_error ? &phrases[type] : nullptr;
}

const phrase& find_xml_phrase(int type) {
  static constexpr phrase unknown = {"Unknown Parse error", false};
  static constexpr phrase phrases[] = {
      unknown,
      {"Unexpected end of file during XML parsing", false},
      {"Mismatched end element \"", true, "\" was found"},
      {"No root element was found", false},
      {"Valid XML header not found", false},
      {"Unexpected character \"", true, "\" found while parsing"},
      {"Missing \" while parsing attribute \"", true, "\""},
      {"Unknown enity being parsed", false},
      {"Missing = sign for attribute \"", true, "\""},
      {"attribute \"", true, "\" is being redefined"},
      {"Data found after root element", false},
  };
  const bool listed =
      type > xml_parser::parse_error::no_error && type <= xml_parser::parse_error::data_after_root;
  return listed ? phrases[type] : unknown;
}

/// `data_after_root` and unknown types are reported without a line.
bool has_line(int type) {
  return type > xml_parser::parse_error::no_error && type < xml_parser::parse_error::data_after_root;
}

ustring8 fill(const phrase& words, const ustring8& text) {
  ustring8 result(prefix);
  result += words.before;
  if (words.quotes_text) result += text;
  result += words.after;
  return result;
}

}  // namespace

load_error::load_error(error_type type, const ustring8& text)
    : type_(type), message_(format_msg(type, text)) {}

load_error::load_error(error_type type, const xml_parser::parse_error& error)
    : type_(type), message_(format_msg(type, error)) {}

ustring8 load_error::format_msg(error_type type, const ustring8& text) {
  const phrase* words = find_phrase(type);
  return words != nullptr ? fill(*words, text) : ustring8(unhandled) + text;
}

ustring8 load_error::format_msg(error_type, const xml_parser::parse_error& error) {
  const int type = static_cast<int>(error.type);
  ustring8 result = fill(find_xml_phrase(type), error.data);
  if (has_line(type)) result += "\n at line: \"" + std::to_string(error.line) + "\"";
  return result;
}

void load_error::append_error_stack(append_type where, const ustring8& name) {
  const auto add = [&](std::string_view before, std::string_view after) {
    message_ += before;
    message_ += name;
    message_ += after;
  };
  switch (where) {
    case in_message:
      return add("\n in message element: \"", "\"");
    case in_catalog:
      return add("\n in catalog element: \"", "\"");
    case in_file:
      return add("\n in file: \"", "\"");
  }
  add("\n unknown, or unhandle case happened! str data=", "");
}

}  // namespace ORVA_NAMESPACE::i18n::_private
