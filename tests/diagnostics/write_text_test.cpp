#include <gtest/gtest.h>

#include <iostream>
#include <sstream>

#include "orva/diagnostics/write.hpp"

namespace {

using namespace orva::diagnostics;
using orva::generic::argument;

finding at(std::size_t line, std::size_t column) {
  return {severity::error, "app.own", "a.txt", {line, column}, argument("text", "Wrong.")};
}

std::string written(const finding& found, std::string_view source, bool colour = false) {
  text_options options;
  options.colour = colour;
  options.source = [source](const auto&) { return source; };
  std::ostringstream stream;
  write_text(stream, found, options);
  return stream.str();
}

std::string with_excerpt(std::string_view place, std::string_view line, std::size_t caret) {
  std::string text = "a.txt:";
  text.append(place).append(": error: Wrong. [app.own]\n");
  text.append("    1 | ").append(line).append("\n      | ").append(caret, ' ').append("^\n");
  return text;
}

TEST(write_text, documentation_example) {
  const finding found{severity::error, "xml.missing_equals", "a.xml", {3, 12}, {{"name", "width"}}};
  const std::string text = "<?xml?>\n<r>\n<img x=\"1\" width \"7\"/>\n</r>\n";
  text_options options;
  options.colour = shows_colour(std::ostringstream());
  options.source = [&](const auto& file) { return file == "a.xml" ? std::string_view(text) : ""; };
  std::ostringstream stream;
  write_text(stream, found, options);
  EXPECT_EQ(stream.str(),
            "a.xml:3:12: error: The attribute width has no = after its name. [xml.missing_equals]\n"
            "    3 | <img x=\"1\" width \"7\"/>\n"
            "      |            ^\n");
}

TEST(write_text, shows_the_line_with_a_caret_under_the_place) {
  EXPECT_EQ(written(at(1, 3), "one two\nthree"), with_excerpt("1:3", "one two", 2));
}

TEST(write_text, shows_the_end_of_a_line) {
  EXPECT_EQ(written(at(1, 4), "one\r\ntwo"), with_excerpt("1:4", "one", 3));
  EXPECT_EQ(written(at(1, 9), "one"), with_excerpt("1:9", "one", 3));
  EXPECT_EQ(written(at(2, 1), "one\n"), "a.txt:2:1: error: Wrong. [app.own]\n    2 | \n      | ^\n");
}

TEST(write_text, puts_the_caret_under_wide_and_combining_characters) {
  // Two columns each before the third character.
  EXPECT_EQ(written(at(1, 3), "日本x"), with_excerpt("1:3", "日本x", 4));
  // An accent has no column of the terminal.
  EXPECT_EQ(written(at(1, 3), "e\xCC\x81x"), with_excerpt("1:3", "e\xCC\x81x", 1));
  EXPECT_EQ(written(at(1, 2), "\tx"), with_excerpt("1:2", " x", 1));
}

TEST(write_text, hides_control_characters_of_the_line) {
  EXPECT_EQ(written(at(1, 5), "a\x1B[mx\xFFy"), with_excerpt("1:5", "a\xEF\xBF\xBD[mx\xEF\xBF\xBDy", 4));
}

TEST(write_text, shows_the_part_of_a_long_line_around_the_place) {
  const std::string line = std::string(200, 'a') + "X" + std::string(200, 'b');
  const std::string expected = "..." + std::string(47, 'a') + "X" + std::string(46, 'b') + "...";
  EXPECT_EQ(expected.size(), max_source_columns);
  EXPECT_EQ(written(at(1, 201), line), with_excerpt("1:201", expected, 50));
  EXPECT_EQ(written(at(1, 1), line), with_excerpt("1:1", std::string(94, 'a') + "...", 0));
  EXPECT_EQ(written(at(1, 402), line), with_excerpt("1:402", "..." + std::string(47, 'b'), 50));
}

TEST(write_text, every_place_of_a_long_line_is_within_the_columns) {
  std::string line;
  for (int i = 0; i < 120; ++i) line += i % 3 == 0 ? "日" : i % 3 == 1 ? "a" : "e\xCC\x81";
  for (std::size_t column = 1; column <= 161; ++column) {
    const std::string text = written(at(1, column), line);
    const std::size_t caret = text.size() - 2 - (text.rfind("| ") + 2);
    EXPECT_LT(caret, max_source_columns) << column;
  }
}

TEST(write_text, leaves_out_a_line_that_is_not_there) {
  const std::string expected = "a.txt:7:1: error: Wrong. [app.own]\n";
  EXPECT_EQ(written(at(7, 1), "one\n"), expected);
  EXPECT_EQ(written(at(7, 1), ""), expected);
  EXPECT_EQ(written(at(1, 1), std::string(max_source_line + 1, 'x')), "a.txt:1:1: error: Wrong. [app.own]\n");
  EXPECT_EQ(written(at(1, 0), "one"), "a.txt:1: error: Wrong. [app.own]\n");
}

TEST(write_text, colours_the_place_the_severity_and_the_caret) {
  EXPECT_EQ(written(at(1, 1), "x", true),
            "\x1B[1ma.txt:1:1:\x1B[0m \x1B[1;31merror:\x1B[0m Wrong. [app.own]\n    1 | x\n      | "
            "\x1B[1;32m^\x1B[0m\n");
}

TEST(write_text, takes_the_sentence_of_another_language) {
  text_options options;
  options.sentence = [](const finding&) { return "Falsch."; };
  std::ostringstream stream;
  write_text(stream, at(1, 1), options);
  EXPECT_EQ(stream.str(), "a.txt:1:1: error: Falsch. [app.own]\n");
}

TEST(write_text, asks_for_each_file_of_a_report_once_in_a_row) {
  report findings(3);
  findings.add(at(1, 1));
  findings.add(at(2, 1));
  finding other = at(1, 1);
  other.file = "b.txt";
  findings.add(other);
  findings.add(other);
  std::vector<std::string> asked;
  text_options options;
  options.source = [&](const auto& file) {
    asked.push_back(file);
    return std::string_view(file == "a.txt" ? "one\ntwo" : "three");
  };
  std::ostringstream stream;
  write_text(stream, findings, options);
  EXPECT_EQ(asked, (std::vector<std::string>{"a.txt", "b.txt"}));
  EXPECT_EQ(stream.str(),
            "a.txt:1:1: error: Wrong. [app.own]\n    1 | one\n      | ^\n"
            "a.txt:2:1: error: Wrong. [app.own]\n    2 | two\n      | ^\n"
            "b.txt:1:1: error: Wrong. [app.own]\n    1 | three\n      | ^\n"
            "note: Findings that are not shown: 1. [diagnostics.not_kept]\n");
}

TEST(shows_colour, is_false_for_a_stream_that_is_no_output_of_the_process) {
  const std::ostringstream stream;
  EXPECT_FALSE(shows_colour(stream));
  const std::ostream none(nullptr);
  EXPECT_FALSE(shows_colour(none));
}

}  // namespace
