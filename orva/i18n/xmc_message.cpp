// The `msg` element and its content.
#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

#include "orva/i18n/internal/format_attributes.hpp"
#include "orva/i18n/internal/xmc_tokens.hpp"
#include "orva/i18n/xmc_file_loader.hpp"

namespace ORVA_NAMESPACE::i18n::_private {

using strings::ustring8;

/// Collects the pieces of a message. Text is joined until a placeholder or the end of the message follows.
class xmc_file_loader::message_body {
 public:
  /// Reserves memory for that many placeholders and the texts around them.
  explicit message_body(std::size_t placeholders) { items_.reserve(2 * placeholders + 1); }

  template <typename Text>
  void add_text(Text&& text) {
    if (text_.empty()) {
      text_ = std::forward<Text>(text);
    } else {
      text_ += text;
    }
  }

  void add_line_feed() { text_ += '\n'; }

  /// A run of white space is one blank, and is dropped at the start of a message.
  void add_space() {
    const bool wanted = text_.empty() ? !items_.empty() : text_.back() != ' ';
    if (wanted) text_ += ' ';
  }

  void add_placeholder(message_item&& item) {
    end_text();
    items_.push_back(std::move(item));
  }

  std::vector<message_item> finish() {
    end_text();
    return std::move(items_);
  }

 private:
  void end_text() {
    if (text_.empty()) return;
    items_.emplace_back(std::move(text_));
    text_.clear();
  }

  ustring8 text_;
  std::vector<message_item> items_;
};

namespace {

template <typename Token>
bool is_placeholder(const Token& found) {
  return xmc::is_start_of(found, "arg") || xmc::is_start_of(found, "argument");
}

/// The number of placeholders in the message whose content starts at `it`.
template <typename Iterator>
std::size_t count_placeholders(Iterator it, Iterator end) {
  std::size_t count = 0;
  for (; it != end && !xmc::is_end_of(it, end, "msg"); ++it) count += is_placeholder(*it) ? 1 : 0;
  return count;
}

template <typename Iterator>
void parse_line_break(Iterator& it, Iterator end) {
  xmc::skip_comments(++it, end);
  if (!xmc::is_type(it, end, xmc::token::start_tag_end) || !xmc::is_end_of(++it, end, "br")) {
    throw load_error(load_error::br_end_missing, "");
  }
  ++it;
}

}  // namespace

template <typename Iterator>
message_t xmc_file_loader::parse_message(Iterator& it, Iterator end) {
  ustring8 name;
  ustring8 meta;
  try {
    xmc::read_attributes(++it, end, [&](Iterator attribute, Iterator value) {
      if (xmc::is_named(attribute, "name")) {
        name = xmc::take_value(value);
      } else if (xmc::is_named(attribute, "meta")) {
        meta = xmc::take_value(value);
      } else {
        return false;
      }
      return true;
    });
    std::vector<message_item> items = parse_message_content(it, end, name);
    return message_t(std::move(name), std::move(items), std::move(meta));
  } catch (load_error& error) {
    error.append_error_stack(load_error::in_message, name);
    throw;
  }
}

template <typename Iterator>
std::vector<message_item> xmc_file_loader::parse_message_content(Iterator& it, Iterator end,
                                                                 const ustring8& name) {
  message_body body(count_placeholders(it, end));
  for (;;) {
    xmc::require_token(it, end);
    switch (it->type()) {
      case token::element_end:
        if (it->value() != "msg") throw load_error(load_error::msg_end_missing, name);
        ++it;
        return body.finish();
      case token::space:
        body.add_space();
        ++it;
        break;
      case token::character:
        body.add_text(xmc::take_value(it));
        ++it;
        break;
      case token::comment:
        ++it;
        break;
      default:
        parse_message_element(it, end, body);
    }
  }
}

template <typename Iterator>
void xmc_file_loader::parse_message_element(Iterator& it, Iterator end, message_body& body) {
  if (xmc::is_start_of(*it, "br")) {
    parse_line_break(it, end);
    body.add_line_feed();
  } else if (is_placeholder(*it)) {
    body.add_placeholder(parse_message_arg(it, end));
  } else {
    throw xmc::error_at(it, load_error::invalid_element);
  }
}

template <typename Iterator>
message_item xmc_file_loader::parse_message_arg(Iterator& it, Iterator end) {
  const auto element = xmc::take_value(it);
  ustring8 name;
  ustring8 attributes;
  auto type = message_item::string;
  xmc::read_attributes(++it, end, [&](Iterator attribute, Iterator value) {
    if (xmc::is_named(attribute, "name")) {
      name = xmc::take_value(value);
    } else if (xmc::is_named(attribute, "type")) {
      type = parse_message_type(value->value());
    } else {
      attributes.append(1, field_separator).append(attribute->value());
      attributes.append(1, field_separator).append(value->value());
    }
    return true;
  });
  if (!xmc::is_end_of(it, end, element)) throw load_error(load_error::arg_end_missing, name);
  ++it;
  return message_item(std::move(name.append(attributes)), type);
}

template ORVA_API message_t xmc_file_loader::parse_message(xmc::token_iterator&, xmc::token_iterator);
template ORVA_API message_t xmc_file_loader::parse_message(xmc::view_iterator&, xmc::view_iterator);
template ORVA_API message_item xmc_file_loader::parse_message_arg(xmc::token_iterator&, xmc::token_iterator);

message_item::type_t xmc_file_loader::parse_message_type(std::string_view word) const {
  struct type_word {
    std::string_view word;
    message_item::type_t type;
  };
  static constexpr type_word words[] = {
      {"date", message_item::date},
      {"duration", message_item::duration},
      {"memory", message_item::memory},
      {"mem", message_item::memory},
      {"mem_unit", message_item::memory_unit},
      {"memory_unit", message_item::memory_unit},
      {"metric", message_item::metric},
      {"metric_unit", message_item::metric_unit},
      {"number", message_item::number},
      {"int", message_item::integer},
      {"double", message_item::real},
      {"string", message_item::string},
      {"time", message_item::time},
      // The text is then the placeholder itself.
      {"value", message_item::text},
  };
  for (const type_word& known : words) {
    if (word == known.word) return known.type;
  }
  return message_item::string;
}

}  // namespace ORVA_NAMESPACE::i18n::_private
