/// `xml_token_stream`: the events of `xml_parser` as one flat list of tokens, for a reader that walks them
/// with iterators.
///
///     xml_token_stream tokens;
///     if (tokens.parse(text).type != xml_parser::parse_error::no_error) return;
///     for (const auto& token : tokens) take(token.type(), token.value());
///
/// It owns its parser and its tokens. Iterators stay valid until the stream is assigned to or destroyed, also
/// while a second `parse` appends. The whole document is in memory as tokens, so this is for documents of the
/// size of a message catalog. One object belongs to one thread at a time.
///
///     <a x="1"><b/>t</a>  =>  element_start "a", attribute_name "x", attribute_value "1", start_tag_end,
///                             element_start "b", start_tag_end, element_end "b", character "t",
///                             element_end "a"
///
/// `start_tag_end` is no event of the parser. It comes before the first event that is neither an attribute
/// nor a comment, so that a comment directly after a start tag comes before it.
///
/// Edge cases: docs/edges.md#xml
#pragma once

#include <cstddef>
#include <list>
#include <memory_resource>
#include <utility>

#include "orva/export.hpp"
#include "orva/parser/xml_parser.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/types/integers.hpp"

namespace ORVA_NAMESPACE::parser {

class ORVA_API xml_token_stream {
 public:
  using ustring8 = strings::ustring8;

  /// One event: its type and its text.
  class token {
   public:
    enum token_type {
      element_start = 0,  ///< the element's name
      element_end,        ///< the element's name
      attribute_name,     ///< the attribute's name; its `attribute_value` is the next token
      attribute_value,    ///< the value, entities expanded
      start_tag_end,      ///< empty; the last element_start has no further attributes
      comment,            ///< the inner text
      space,              ///< the white space
      character,          ///< a run of text, or a CDATA section
    };

    explicit token(token_type type, ustring8 value = {}) : type_(type), value_(std::move(value)) {}

    token_type type() const noexcept { return type_; }
    const ustring8& value() const noexcept { return value_; }
    /// For a reader that moves the text out instead of copying it.
    ustring8& value() noexcept { return value_; }

    bool operator==(const token& other) const { return type_ == other.type_ && value_ == other.value_; }

   private:
    token_type type_;
    ustring8 value_;
  };

  using token_list = std::pmr::list<token>;
  using iterator = token_list::iterator;
  using const_iterator = token_list::const_iterator;

  xml_token_stream();
  /// Copies the tokens and the parser. The copied parser's delegates stay bound to `other`: a `parse` of the
  /// copy puts its tokens into `other`, which must live as long as the copy is used to parse.
  xml_token_stream(const xml_token_stream& other);
  xml_token_stream& operator=(const xml_token_stream& other);
  ~xml_token_stream();

  /// Appends the tokens of the text to the list and returns how the parse ended. After an error the tokens
  /// before it are in the list. Throws what `xml_parser::parse` throws.
  [[nodiscard]] xml_parser::parse_error parse(const ustring8& text);
  [[nodiscard]] xml_parser::parse_error parse(xml_parser::iterator first, xml_parser::iterator last);

  /// Where the last parse stopped; see `xml_parser::offset`.
  std::size_t offset() const noexcept { return parser_.offset(); }

  iterator begin() noexcept { return tokens_.begin(); }
  iterator end() noexcept { return tokens_.end(); }
  const_iterator begin() const noexcept { return tokens_.begin(); }
  const_iterator end() const noexcept { return tokens_.end(); }
  types::uint32 size() const noexcept { return static_cast<types::uint32>(tokens_.size()); }

 protected:
  void on_element_start(const ustring8& name);
  void on_element_end(const ustring8& name);
  void on_attribute(const ustring8& name, const ustring8& value);
  void on_space(const ustring8& text);
  void on_character(const ustring8& text);
  void on_comment(const ustring8& text);

 private:
  auto events();

  bool start_tag_closed_ = true;
  // There may be a hundred thousand tokens, which are freed together. An allocation for each would take most
  // of the time.
  std::pmr::monotonic_buffer_resource memory_;
  token_list tokens_{&memory_};
  xml_parser parser_;
};

}  // namespace ORVA_NAMESPACE::parser
