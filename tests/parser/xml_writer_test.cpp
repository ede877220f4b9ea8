// What each call writes, and what it refuses.
#include "orva/parser/xml_writer.hpp"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <ostream>
#include <sstream>
#include <streambuf>
#include <string>
#include <vector>

#include "orva/parser/xml_stream_parser.hpp"
#include "tests/support/single_byte_locale.hpp"
#include "tests/support/xml_events.hpp"

namespace {

using ORVA_NAMESPACE::parser::xml_writer;
using ORVA_NAMESPACE::parser::xml_writer_settings;
using ORVA_NAMESPACE::strings::ustring8;
using orva_test::parse_xml;
using error = xml_writer::error;
using result = xml_writer::result;

constexpr std::string_view declaration = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n";

const xml_writer_settings fragment{.declaration = false};
const xml_writer_settings indented{.indent = 2, .declaration = false};

void must(const result& done) { ASSERT_EQ(done.error, error::none) << done; }

/// The output of calls that are all accepted.
std::string written(const std::function<void(xml_writer&)>& calls,
                    const xml_writer_settings& settings = fragment) {
  std::string text;
  xml_writer writer(text, settings);
  calls(writer);
  return text;
}

/// `<r>` and what the calls write into it.
std::string written_in_root(const std::function<void(xml_writer&)>& calls,
                            const xml_writer_settings& settings = fragment) {
  return written(
      [&](xml_writer& writer) {
        must(writer.start_element("r"));
        calls(writer);
      },
      settings);
}

TEST(xml_writer, documentation_example) {
  ustring8 text;
  xml_writer writer(text);
  must(writer.start_element("menu"));
  must(writer.attribute("title", "File & more"));
  must(writer.text("Quit"));
  must(writer.finish());
  EXPECT_EQ(text, std::string(declaration) + "<menu title=\"File &amp; more\">Quit</menu>");
}

TEST(xml_writer, adds_to_the_end_of_a_string) {
  std::string text = "before ";
  xml_writer writer(text, fragment);
  must(writer.start_element("a"));
  must(writer.finish());
  EXPECT_EQ(text, "before <a></a>");
}

TEST(xml_writer, nothing_is_written_before_the_first_construct) {
  EXPECT_EQ(written([](xml_writer&) {}, {}), "");
}

TEST(xml_writer, declaration_comes_before_the_first_construct) {
  EXPECT_EQ(written([](xml_writer& writer) { must(writer.comment("c")); }, {}),
            std::string(declaration) + "<!--c-->");
}

TEST(xml_writer, text_is_escaped) {
  const auto text = [](std::string_view of) {
    return written_in_root([of](xml_writer& writer) { must(writer.text(of)); });
  };
  EXPECT_EQ(text("a<b>c&d\"e'f"), "<r>a&lt;b&gt;c&amp;d\"e'f");
  EXPECT_EQ(text("]]>"), "<r>]]&gt;");
  EXPECT_EQ(text("a\rb\r\nc"), "<r>a&#13;b&#13;\nc");
  EXPECT_EQ(text("a b\tc\nd"), "<r>a b\tc\nd");
  EXPECT_EQ(text("gr\xC3\xBC\xC3\x9F \xE6\x97\xA5 \xF0\x9D\x84\x9E"),
            "<r>gr\xC3\xBC\xC3\x9F \xE6\x97\xA5 \xF0\x9D\x84\x9E");
}

TEST(xml_writer, white_space_that_a_parser_would_take_out_of_the_text_is_a_reference) {
  const auto text = [](std::string_view of) {
    return written_in_root([of](xml_writer& writer) { must(writer.text(of)); });
  };
  EXPECT_EQ(text(" a "), "<r>&#32;a ");
  EXPECT_EQ(text("a  b"), "<r>a &#32;b");
  EXPECT_EQ(text("a   b"), "<r>a &#32; b");
  EXPECT_EQ(text("a\n\tb"), "<r>a\n&#9;b");
  EXPECT_EQ(text("\n"), "<r>&#10;");
}

TEST(xml_writer, white_space_between_two_texts_is_as_in_one) {
  const auto texts = [](std::string_view first, std::string_view second) {
    return written_in_root([&](xml_writer& writer) {
      must(writer.text(first));
      must(writer.text(""));
      must(writer.text(second));
    });
  };
  EXPECT_EQ(texts("a", " b"), "<r>a b");
  EXPECT_EQ(texts("a ", " b"), "<r>a &#32;b");
  EXPECT_EQ(texts("a&", " b"), "<r>a&amp; b");
  EXPECT_EQ(texts(" ", " "), "<r>&#32; ");
}

TEST(xml_writer, white_space_at_the_beginning_of_a_run_after_markup_is_a_reference) {
  EXPECT_EQ(written_in_root([](xml_writer& writer) {
              must(writer.text("a"));
              must(writer.comment("c"));
              must(writer.text(" b"));
              must(writer.cdata("d"));
              must(writer.text(" e"));
              must(writer.start_element("s"));
              must(writer.end_element());
              must(writer.text(" f"));
            }),
            "<r>a<!--c-->&#32;b<![CDATA[d]]>&#32;e<s/>&#32;f");
}

TEST(xml_writer, value_is_escaped) {
  const auto value = [](std::string_view of) {
    return written_in_root([of](xml_writer& writer) { must(writer.attribute("a", of)); });
  };
  EXPECT_EQ(value(""), "<r a=\"\"");
  EXPECT_EQ(value("a<b>c&d\"e'f"), "<r a=\"a&lt;b>c&amp;d&quot;e'f\"");
  EXPECT_EQ(value(" a  b\t\n\r"), "<r a=\" a  b&#9;&#10;&#13;\"");
}

TEST(xml_writer, cdata_and_comments_are_written_as_they_are) {
  EXPECT_EQ(written_in_root([](xml_writer& writer) {
              must(writer.cdata(" <a> & ]] > \n"));
              must(writer.cdata(""));
              must(writer.comment(" <a> & - \n"));
              must(writer.comment(""));
            }),
            "<r><![CDATA[ <a> & ]] > \n]]><![CDATA[]]><!-- <a> & - \n--><!---->");
}

TEST(xml_writer, empty_element_on_an_open_level_gets_an_end_tag) {
  const auto nested = [](unsigned int open_depth) {
    return written(
        [](xml_writer& writer) {
          for (const char* name : {"a", "b", "c"}) {
            must(writer.start_element(name));
            must(writer.start_element("d"));
            must(writer.end_element());
          }
          must(writer.start_element("include"));
          must(writer.finish());
        },
        {.declaration = false, .open_depth = open_depth});
  };
  EXPECT_EQ(nested(1), "<a><d/><b><d/><c><d/><include/></c></b></a>");
  EXPECT_EQ(nested(2), "<a><d></d><b><d/><c><d/><include/></c></b></a>");
  EXPECT_EQ(nested(4), "<a><d></d><b><d></d><c><d></d><include/></c></b></a>");

  EXPECT_EQ(written_in_root([](xml_writer& writer) { must(writer.finish()); }), "<r></r>");
  EXPECT_EQ(written_in_root([](xml_writer& writer) { must(writer.finish()); },
                            {.declaration = false, .open_depth = 0}),
            "<r/>");
}

TEST(xml_writer, finish_closes_what_is_open_and_does_nothing_a_second_time) {
  EXPECT_EQ(written_in_root([](xml_writer& writer) {
              must(writer.start_element("a"));
              must(writer.start_element("b"));
              EXPECT_EQ(writer.depth(), 3u);
              must(writer.finish());
              EXPECT_EQ(writer.depth(), 0u);
              must(writer.finish());
            }),
            "<r><a><b/></a></r>");
}

// Indentation.

TEST(xml_writer, indent_puts_elements_and_comments_on_lines) {
  EXPECT_EQ(written(
                [](xml_writer& writer) {
                  must(writer.comment("before"));
                  must(writer.start_element("a"));
                  must(writer.start_element("b"));
                  must(writer.attribute("c", "1"));
                  must(writer.end_element());
                  must(writer.comment("d"));
                  must(writer.start_element("e"));
                  must(writer.start_element("f"));
                  must(writer.end_element());
                  must(writer.end_element());
                  must(writer.end_element());
                  must(writer.comment("after"));
                  must(writer.finish());
                },
                indented),
            "<!--before-->\n<a>\n  <b c=\"1\"/>\n  <!--d-->\n  <e>\n    <f/>\n  </e>\n</a>\n<!--after-->\n");
}

TEST(xml_writer, indent_leaves_an_element_with_text_and_all_inside_it_as_they_are) {
  EXPECT_EQ(written(
                [](xml_writer& writer) {
                  must(writer.start_element("a"));
                  must(writer.start_element("b"));
                  must(writer.text("x"));
                  must(writer.start_element("c"));
                  must(writer.start_element("d"));
                  must(writer.end_element());
                  must(writer.comment("e"));
                  must(writer.end_element());
                  must(writer.end_element());
                  must(writer.start_element("f"));
                  must(writer.cdata(""));
                  must(writer.finish());
                },
                indented),
            "<a>\n  <b>x<c><d/><!--e--></c></b>\n  <f><![CDATA[]]></f>\n</a>\n");
}

TEST(xml_writer, text_after_indented_children_is_refused_unless_the_element_is_mixed) {
  const auto text_after_child = [](bool mixed, bool by_cdata) {
    return written(
        [&](xml_writer& writer) {
          must(mixed ? writer.start_mixed_element("a") : writer.start_element("a"));
          must(writer.start_element("b"));
          must(writer.end_element());
          const auto done = by_cdata ? writer.cdata("x") : writer.text("x");
          EXPECT_EQ(done.error, mixed ? error::none : error::children_on_lines);
          must(writer.finish());
        },
        indented);
  };
  for (const bool by_cdata : {false, true}) {
    EXPECT_EQ(text_after_child(false, by_cdata), "<a>\n  <b/>\n</a>\n");
    EXPECT_EQ(text_after_child(true, by_cdata), by_cdata ? "<a><b/><![CDATA[x]]></a>\n" : "<a><b/>x</a>\n");
  }
}

TEST(xml_writer, indent_goes_on_after_a_mixed_element) {
  EXPECT_EQ(written(
                [](xml_writer& writer) {
                  must(writer.start_element("a"));
                  must(writer.start_mixed_element("b"));
                  must(writer.start_mixed_element("c"));
                  must(writer.end_element());
                  must(writer.end_element());
                  must(writer.start_element("d"));
                  must(writer.start_element("e"));
                  must(writer.finish());
                },
                indented),
            "<a>\n  <b><c/></b>\n  <d>\n    <e/>\n  </d>\n</a>\n");
}

TEST(xml_writer, indentation_has_a_limit) {
  std::string text;
  xml_writer writer(text, {.indent = 0xFFFFFFFF, .declaration = false});
  for (int depth = 0; depth < 3; ++depth) must(writer.start_element("a"));
  const std::string line = "\n" + std::string(xml_writer::longest_indentation, ' ');
  EXPECT_EQ(text, "<a>" + line + "<a>" + line + "<a");
}

// Refused calls.

struct refused_call {
  const char* what;
  std::function<void(xml_writer&)> before;
  std::function<result(xml_writer&)> call;
  result expected;
};

void start_root(xml_writer& writer) { must(writer.start_element("r")); }
void start_and_close_root(xml_writer& writer) {
  start_root(writer);
  must(writer.end_element());
}
void finish_root(xml_writer& writer) {
  start_root(writer);
  must(writer.finish());
}

const std::vector<refused_call>& refused_calls() {
  static const std::vector<refused_call> calls = {
      {"empty name", start_root, [](auto& w) { return w.start_element(""); }, {error::bad_name, 0}},
      {"digit", start_root, [](auto& w) { return w.start_element("1a"); }, {error::bad_name, 0}},
      {"underscore", start_root, [](auto& w) { return w.start_element("_a"); }, {error::bad_name, 0}},
      {"colon", start_root, [](auto& w) { return w.start_element("xs:a"); }, {error::bad_name, 2}},
      {"letter", start_root, [](auto& w) { return w.start_element("gr\xC3\xBC"); }, {error::bad_name, 2}},
      {"mixed", start_root, [](auto& w) { return w.start_mixed_element("a b"); }, {error::bad_name, 1}},
      {"attribute", start_root, [](auto& w) { return w.attribute("data-id", ""); }, {error::bad_name, 4}},

      {"value", start_root, [](auto& w) { return w.attribute("a", "b\xFF"); }, {error::malformed_text, 1}},
      {"text", start_root, [](auto& w) { return w.text("a b\xC3"); }, {error::malformed_text, 3}},
      {"overlong", start_root, [](auto& w) { return w.text("<\xC0\xAF"); }, {error::malformed_text, 1}},
      {"surrogate", start_root, [](auto& w) { return w.text("\xED\xA0\x80"); }, {error::malformed_text, 0}},
      {"above", start_root, [](auto& w) { return w.cdata("\xF4\x90\x80\x80"); }, {error::malformed_text, 0}},
      {"comment", start_root, [](auto& w) { return w.comment("\x80"); }, {error::malformed_text, 0}},

      {"zero", start_root, [](auto& w) { return w.text(std::string(2, '\0')); }, {error::bad_character, 0}},
      {"escape", start_root, [](auto& w) { return w.attribute("a", "  \x1B"); }, {error::bad_character, 2}},
      {"FFFE", start_root, [](auto& w) { return w.text("a\xEF\xBF\xBE"); }, {error::bad_character, 1}},
      {"FFFF", start_root, [](auto& w) { return w.cdata("\xEF\xBF\xBF"); }, {error::bad_character, 0}},
      {"return", start_root, [](auto& w) { return w.cdata("a\r\n"); }, {error::bad_character, 1}},
      {"return", start_root, [](auto& w) { return w.comment("\r"); }, {error::bad_character, 0}},

      {"-- in comment", start_root, [](auto& w) { return w.comment("a -- b"); }, {error::closing_mark, 2}},
      {"- at the end", start_root, [](auto& w) { return w.comment("a-"); }, {error::closing_mark, 1}},
      {"]]> in CDATA", start_root, [](auto& w) { return w.cdata("a]]]>"); }, {error::closing_mark, 2}},

      {"attribute at first",
       [](auto&) {},
       [](auto& w) { return w.attribute("a", ""); },
       {error::no_start_tag, 0}},
      {"attribute after text",
       [](auto& w) {
         start_root(w);
         must(w.text("t"));
       },
       [](auto& w) { return w.attribute("a", ""); },
       {error::no_start_tag, 0}},
      {"attribute after end",
       start_and_close_root,
       [](auto& w) { return w.attribute("a", ""); },
       {error::no_start_tag, 0}},
      {"attribute twice",
       [](auto& w) {
         start_root(w);
         must(w.attribute("a", "1"));
       },
       [](auto& w) { return w.attribute("a", "2"); },
       {error::duplicate_attribute, 0}},

      {"end at first", [](auto&) {}, [](auto& w) { return w.end_element(); }, {error::nothing_open, 0}},
      {"end after root",
       start_and_close_root,
       [](auto& w) { return w.end_element(); },
       {error::nothing_open, 0}},
      {"text at first", [](auto&) {}, [](auto& w) { return w.text("t"); }, {error::outside_root, 0}},
      {"text after root",
       start_and_close_root,
       [](auto& w) { return w.text("t"); },
       {error::outside_root, 0}},
      {"CDATA after root",
       start_and_close_root,
       [](auto& w) { return w.cdata(""); },
       {error::outside_root, 0}},
      {"second root",
       start_and_close_root,
       [](auto& w) { return w.start_element("a"); },
       {error::second_root, 0}},
      {"no root",
       [](auto& w) { must(w.comment("c")); },
       [](auto& w) { return w.finish(); },
       {error::no_root, 0}},
      {"comment after finish", finish_root, [](auto& w) { return w.comment("c"); }, {error::finished, 0}},
      {"end after finish", finish_root, [](auto& w) { return w.end_element(); }, {error::finished, 0}},
      {"text after finish", finish_root, [](auto& w) { return w.text(""); }, {error::finished, 0}},
      {"attribute after finish",
       finish_root,
       [](auto& w) { return w.attribute("a", ""); },
       {error::finished, 0}},
  };
  return calls;
}

TEST(xml_writer, refused_call_says_why_and_where) {
  for (const auto& [what, before, call, expected] : refused_calls()) {
    std::string text;
    xml_writer writer(text);
    before(writer);
    EXPECT_EQ(call(writer), expected) << what;
  }
}

TEST(xml_writer, refused_call_leaves_the_output_as_it_was) {
  for (const auto& [what, before, call, expected] : refused_calls()) {
    std::string text;
    xml_writer writer(text);
    before(writer);
    const std::string text_before = text;
    const auto depth_before = writer.depth();
    EXPECT_NE(call(writer).error, error::none) << what;
    EXPECT_EQ(text, text_before) << what;
    EXPECT_EQ(writer.depth(), depth_before) << what;
  }
}

TEST(xml_writer, document_goes_on_after_refused_calls_as_if_they_had_not_been_made) {
  for (const auto& [what, before, call, expected] : refused_calls()) {
    std::ostringstream text;
    std::ostringstream without;
    for (auto* const to : {&text, &without}) {
      xml_writer writer(*to);
      before(writer);
      if (to == &text) {
        EXPECT_EQ(call(writer), expected) << what;
      }
      if (expected.error == error::finished) continue;
      if (writer.depth() == 1) {
        if (writer.attribute("b", "1").error == error::none) must(writer.text(" x"));
        must(writer.start_element("e"));
      }
      if (expected.error == error::no_root) start_root(writer);
      if (writer.depth() > 0) must(writer.finish());
    }
    EXPECT_EQ(text.str(), without.str()) << what;
  }
}

TEST(xml_writer, attribute_of_a_refused_value_may_be_written_again) {
  EXPECT_EQ(written_in_root([](xml_writer& writer) {
              EXPECT_EQ(writer.attribute("a", "\x01").error, error::bad_character);
              must(writer.attribute("a", "1"));
            }),
            "<r a=\"1\"");
}

TEST(xml_writer, result_is_written_in_words) {
  const auto words = [](const result& done) { return (std::ostringstream() << done).str(); };
  EXPECT_EQ(words({}), "none");
  EXPECT_EQ(words({error::bad_name, 3}),
            "bad_name at byte 3: a name is an ASCII letter, then ASCII letters, digits and _");
  EXPECT_EQ(words({error::finished, 0}), "finished at byte 0: nothing comes after finish");
}

TEST(xml_writer, errors_have_names) {
  const std::vector<std::pair<error, std::string_view>> names = {
      {error::none, "none"},
      {error::bad_name, "bad_name"},
      {error::malformed_text, "malformed_text"},
      {error::bad_character, "bad_character"},
      {error::closing_mark, "closing_mark"},
      {error::no_start_tag, "no_start_tag"},
      {error::duplicate_attribute, "duplicate_attribute"},
      {error::nothing_open, "nothing_open"},
      {error::outside_root, "outside_root"},
      {error::second_root, "second_root"},
      {error::no_root, "no_root"},
      {error::children_on_lines, "children_on_lines"},
      {error::finished, "finished"},
      {error::stream_failed, "stream_failed"},
  };
  for (const auto& [which, name] : names) EXPECT_EQ(name_of(which), name);
}

// Names and characters, all of them.

bool is_letter(int byte) { return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z'); }
bool is_in_name(int byte) { return is_letter(byte) || (byte >= '0' && byte <= '9') || byte == '_'; }

void expect_every_name_of_two_bytes() {
  std::string text;
  for (int first = 0; first <= 0xFF; ++first) {
    for (int second = 0; second <= 0xFF; ++second) {
      const std::string name{static_cast<char>(first), static_cast<char>(second)};
      text.clear();
      const result done = xml_writer(text, fragment).start_element(name);
      const result expected = !is_letter(first)     ? result{error::bad_name, 0}
                              : !is_in_name(second) ? result{error::bad_name, 1}
                                                    : result{};
      ASSERT_EQ(done, expected) << first << ' ' << second;
    }
  }
}

TEST(xml_writer, every_name_of_two_bytes_is_accepted_if_all_parsers_read_it) {
  expect_every_name_of_two_bytes();
}

TEST(xml_writer, names_do_not_depend_on_the_locale) {
  const orva_test::single_byte_locale latin1("ISO-8859-1", "de_DE");
  if (!latin1.made()) GTEST_SKIP() << "the system cannot make the locale";
  expect_every_name_of_two_bytes();
}

std::string utf8_of(unsigned int code_point) {
  const auto byte = [](unsigned int value) { return static_cast<char>(static_cast<unsigned char>(value)); };
  if (code_point < 0x80) return {byte(code_point)};
  if (code_point < 0x800) return {byte(0xC0 | code_point >> 6), byte(0x80 | (code_point & 0x3F))};
  if (code_point < 0x10000) {
    return {byte(0xE0 | code_point >> 12), byte(0x80 | (code_point >> 6 & 0x3F)),
            byte(0x80 | (code_point & 0x3F))};
  }
  return {byte(0xF0 | code_point >> 18), byte(0x80 | (code_point >> 12 & 0x3F)),
          byte(0x80 | (code_point >> 6 & 0x3F)), byte(0x80 | (code_point & 0x3F))};
}

/// The characters of XML 1.0, by its production [2].
bool is_xml_character(unsigned int code_point) {
  return code_point == 0x9 || code_point == 0xA || code_point == 0xD ||
         (code_point >= 0x20 && code_point <= 0xD7FF) || (code_point >= 0xE000 && code_point <= 0xFFFD) ||
         (code_point >= 0x10000 && code_point <= 0x10FFFF);
}

TEST(xml_writer, every_character_is_written_if_xml_has_it) {
  std::string text;
  xml_writer writer(text);
  must(writer.start_element("r"));
  std::string accepted;
  for (unsigned int code_point = 0; code_point <= 0x10FFFF; ++code_point) {
    const std::string character = utf8_of(code_point);
    const result done = writer.text(character);
    if (done.error == error::none) accepted += character;
    const bool is_surrogate = code_point >= 0xD800 && code_point <= 0xDFFF;
    ASSERT_EQ(done.error, is_surrogate                   ? error::malformed_text
                          : is_xml_character(code_point) ? error::none
                                                         : error::bad_character)
        << code_point;
  }
  must(writer.finish());
  const auto events = parse_xml(text).events;
  ASSERT_EQ(events.size(), 3u);
  EXPECT_TRUE(events[1] == "character " + accepted);
}

TEST(xml_writer, every_sequence_of_two_and_three_bytes_is_accepted_if_it_is_well_formed) {
  std::vector<std::string> well_formed;
  for (unsigned int code_point = 0x80; code_point <= 0xFFFD; ++code_point) {
    if (is_xml_character(code_point)) well_formed.push_back(utf8_of(code_point));
  }
  std::sort(well_formed.begin(), well_formed.end());
  const auto is_well_formed = [&](const std::string& sequence) {
    return std::binary_search(well_formed.begin(), well_formed.end(), sequence);
  };
  std::string text;
  xml_writer writer(text, fragment);
  must(writer.start_element("r"));
  for (int lead = 0x80; lead <= 0xFF; ++lead) {
    for (int second = 0; second <= 0xFF; ++second) {
      const std::string two{static_cast<char>(lead), static_cast<char>(second)};
      ASSERT_EQ(writer.text(two).error == error::none, is_well_formed(two)) << lead << ' ' << second;
      for (const char third : {'\x7F', '\x80', '\x8F', '\x90', '\x9F', '\xA0', '\xBF', '\xC0', '\xFF'}) {
        const std::string three = two + third;
        const bool expected = is_well_formed(three) || (third == '\x7F' && is_well_formed(two));
        ASSERT_EQ(writer.text(three).error == error::none, expected)
            << lead << ' ' << second << ' ' << +third;
      }
    }
  }
}

// Streams.

TEST(xml_writer, stream_gets_what_a_string_gets) {
  const auto write = [](xml_writer& writer) {
    must(writer.start_element("r"));
    must(writer.attribute("a", "1"));
    must(writer.text("t "));
    must(writer.text(" u"));
    must(writer.finish());
  };
  std::ostringstream stream;
  xml_writer writer(stream);
  write(writer);
  EXPECT_EQ(stream.str(), written(write, {}));
}

/// Takes so many bytes, and no more.
class full_disk : public std::streambuf {
 public:
  explicit full_disk(std::size_t capacity) : capacity_(capacity) {}
  std::string taken;

 protected:
  int_type overflow(int_type c) override {
    if (taken.size() == capacity_) return traits_type::eof();
    taken += traits_type::to_char_type(c);
    return c;
  }

 private:
  std::size_t capacity_;
};

TEST(xml_writer, stream_that_fails_is_reported_by_the_call_that_wrote_and_by_all_later_ones) {
  const std::vector<std::function<result(xml_writer&)>> calls = {
      [](auto& w) { return w.comment("c"); },        [](auto& w) { return w.start_element("r"); },
      [](auto& w) { return w.attribute("a", "1"); }, [](auto& w) { return w.text("t"); },
      [](auto& w) { return w.cdata("d"); },          [](auto& w) { return w.start_mixed_element("e"); },
      [](auto& w) { return w.end_element(); },       [](auto& w) { return w.finish(); },
  };
  std::vector<std::size_t> ends;
  std::string whole;
  {
    xml_writer writer(whole);
    for (const auto& call : calls) {
      must(call(writer));
      ends.push_back(whole.size());
    }
  }
  for (std::size_t capacity = 0; capacity <= whole.size(); ++capacity) {
    full_disk disk(capacity);
    std::ostream stream(&disk);
    xml_writer writer(stream);
    for (std::size_t i = 0; i < calls.size(); ++i) {
      const error expected = ends[i] <= capacity ? error::none : error::stream_failed;
      EXPECT_EQ(calls[i](writer).error, expected) << capacity << ' ' << i;
    }
    EXPECT_EQ(disk.taken, whole.substr(0, capacity));
  }
}

TEST(xml_writer, stream_that_is_repaired_stays_refused) {
  full_disk disk(10);
  std::ostream stream(&disk);
  xml_writer writer(stream);
  EXPECT_EQ(writer.start_element("r").error, error::stream_failed);
  stream.clear();
  EXPECT_EQ(writer.comment("c").error, error::stream_failed);
  EXPECT_EQ(writer.finish().error, error::stream_failed);
}

TEST(xml_writer, stream_that_has_failed_before_gets_nothing) {
  std::ostringstream stream;
  stream.setstate(std::ios::failbit);
  xml_writer writer(stream);
  EXPECT_EQ(writer.start_element("r").error, error::stream_failed);
  EXPECT_EQ(stream.str(), "");
}

class unflushable : public full_disk {
 public:
  using full_disk::full_disk;

 protected:
  int sync() override { return -1; }
};

TEST(xml_writer, stream_that_cannot_be_flushed_is_reported_by_finish) {
  unflushable disk(1000);
  std::ostream stream(&disk);
  xml_writer writer(stream);
  must(writer.start_element("r"));
  EXPECT_EQ(writer.finish().error, error::stream_failed);
  EXPECT_EQ(writer.finish().error, error::stream_failed);
}

TEST(xml_writer, exception_of_a_stream_passes_through_and_the_writer_stays_refused) {
  full_disk disk(10);
  std::ostream stream(&disk);
  stream.exceptions(std::ios::badbit);
  xml_writer writer(stream);
  EXPECT_THROW(static_cast<void>(writer.start_element("r")), std::ios_base::failure);
  stream.clear();
  EXPECT_EQ(writer.end_element().error, error::stream_failed);
}

}  // namespace
