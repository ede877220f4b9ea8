#include "orva/internal/xml/lexical_rules.hpp"

#include <gtest/gtest.h>

#include <string_view>

#include "orva/exceptions/exception.hpp"

namespace {

namespace xml = ORVA_NAMESPACE::internal::xml;
using xml::character_reference;

constexpr std::string_view letters_and_digits =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";

bool holds(std::string_view set, int byte) { return set.find(static_cast<char>(byte)) != set.npos; }

TEST(lexical_rules, byte_classes_hold_exactly_their_bytes) {
  for (int byte = 0; byte <= 0xFF; ++byte) {
    const char c = static_cast<char>(byte);
    EXPECT_EQ(xml::is_white_space(c), holds(" \t\r\n", byte)) << byte;
    EXPECT_EQ(xml::is_quote(c), holds("'\"", byte)) << byte;
    EXPECT_EQ(xml::is_in(c, xml::markup), holds("<&", byte)) << byte;
    EXPECT_EQ(xml::is_in(c, xml::ascii_name), holds(letters_and_digits, byte) || c == '_') << byte;
    EXPECT_EQ(xml::is_in(c, xml::above_ascii), byte >= 128) << byte;
  }
}

TEST(lexical_rules, names_of_documents_and_of_streams_differ_at_the_start_and_from_128_on) {
  EXPECT_TRUE(xml::is_document_name_start('a'));
  for (const char c : {'1', '_', '\xC3'}) {
    EXPECT_FALSE(xml::is_document_name_start(c));
    EXPECT_TRUE(xml::is_stream_name_character(c));
  }
  EXPECT_FALSE(xml::is_document_name_character('\xC3'));
  for (const char c : {'-', ':', '.', ' '}) {
    EXPECT_FALSE(xml::is_document_name_character(c));
    EXPECT_FALSE(xml::is_stream_name_character(c));
  }
}

TEST(lexical_rules, letters_of_an_entity_are_those_of_no_other) {
  for (const auto& entity : xml::named_entities) {
    EXPECT_TRUE(entity.text.starts_with(entity.letters));
    for (const auto& other : xml::named_entities) {
      EXPECT_EQ(other.text.starts_with(entity.letters), &other == &entity) << other.text;
    }
  }
}

struct reference_case {
  std::string_view text;
  bool is_cut_off;
  bool is_closed;
  int value;
};

TEST(lexical_rules, character_references_are_read_up_to_the_first_character_that_is_no_digit) {
  for (const auto& [text, is_cut_off, is_closed, value] : {reference_case{"&#65;", false, true, 'A'},
                                                           {"&#x41;rest", false, true, 'A'},
                                                           {"&#x4a;", false, true, 'J'},
                                                           {"&#;", false, true, 0},
                                                           {"&#x;", false, true, 0},
                                                           {"&#255;", false, true, 255},
                                                           {"&#", true, false, 0},
                                                           {"&#x", true, false, 0},
                                                           {"&#65", true, false, 0},
                                                           {"&#6x;", false, false, 0},
                                                           {"&#X41;", false, false, 0},
                                                           {"&#xg;", false, false, 0}}) {
    const character_reference reference(text);
    EXPECT_EQ(reference.is_cut_off(), is_cut_off) << text;
    ASSERT_EQ(reference.is_closed(), is_closed) << text;
    if (is_closed) {
      EXPECT_EQ(static_cast<unsigned char>(reference.value()), value) << text;
    }
  }
}

TEST(lexical_rules, character_reference_above_255_throws) {
  for (const std::string_view text : {"&#256;", "&#x100;", "&#99999999999999999999;"}) {
    EXPECT_THROW((void)character_reference(text).value(), ORVA_NAMESPACE::exceptions::overflow_error) << text;
  }
}

}  // namespace
