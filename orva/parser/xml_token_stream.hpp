/// `xml_token_stream`: the events of `xml_parser` as one flat list of tokens, for a reader that walks them
/// with iterators.
///
/// It owns its parser and its tokens; iterators stay valid until the stream is assigned to or destroyed, also
/// while a second `parse` appends. The whole document lives in memory as tokens, so this is for documents of
/// the size of a message catalog. One object belongs to one thread at a time.
///
///     <a x="1"><b/>t</a>  =>  element_start "a", attribute_name "x", attribute_value "1", start_tag_end,
///                             element_start "b", start_tag_end, element_end "b", character "t", element_end "a"
///
/// `start_tag_end` is made here, as the events do not tell it: it stands in front of the first event that is
/// no attribute. Only a comment leaves it waiting, so a comment right behind a start tag comes before it.
#pragma once

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
      start_tag_end,      ///< empty: the attributes of the last element_start are over
      comment,            ///< the inner text
      space,              ///< the white space
      character,          ///< a run of text, or a CDATA section
    };

    explicit token(token_type type, ustring8 value = {}) : type_(type), value_(std::move(value)) {}

    token_type type() const noexcept { return type_; }
    const ustring8& value() const noexcept { return value_; }
    /// Open to a reader that takes the text over instead of copying it.
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

  /// Appends the tokens of the text to the list and returns how the parse ended. After an error the tokens in
  /// front of it are in the list. What `xml_parser::parse` throws passes through.
  xml_parser::parse_error parse(const ustring8& text);
  xml_parser::parse_error parse(xml_parser::iterator first, xml_parser::iterator last);

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
  void close_start_tag();

  bool start_tag_closed_ = true;
  // Tokens come by the hundred thousand and go all at once, so that each having memory of its own would be
  // most of the work.
  std::pmr::monotonic_buffer_resource memory_;
  token_list tokens_{&memory_};
  xml_parser parser_;
};

}  // namespace ORVA_NAMESPACE::parser
