// Malformed files and unusual callers: truncations, mutations and random documents under random calls, all
// compared with the plain reference parser; and sizes and depths that must cost no more than their length.
#include <gtest/gtest.h>

#include <cstddef>
#include <list>
#include <random>
#include <string>
#include <string_view>

#include "orva/parser/xml_stream_parser.hpp"
#include "tests/support/native_path.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/reference_xml_stream.hpp"
#include "tests/support/xml_stream_file.hpp"
#include "tests/support/xml_stream_transcript.hpp"

namespace {

using ORVA_NAMESPACE::parser::xml_stream_parser;
using orva_test::read_all;
using orva_test::read_all_recovering;
using orva_test::reference_xml_stream;
using orva_test::run_script;
using orva_test::xml_stream_file;

constexpr std::string_view every_construct =
    "\xEF\xBB\xBF<?xml version='1.0' encoding=\"UTF-8\" ?>\r\n<!-- a - b\n c --><r a=\"1\" "
    "b_2='&lt;&#65;&#x4a;'\n"
    "\tc= \"'&quot;\"d='\">'><include x=''/>\n<a x=\"1\"><b>text &gt;&amp;&apos;&nbsp; end\n "
    "</b><!----><b/>again</a >"
    "< a\n><\xC3\xA4 _=''/></ a\n><s><a>1<b>2</b>3</a></s>\n</r\n> tail <x>";

const std::list<std::string> record_tags{"a", "include"};

class hostile_feed {
 public:
  void expect_as_reference(const std::string& document, unsigned depth) {
    file_.write(document);
    xml_stream_parser parser(file_.path(), depth);
    reference_xml_stream reference(document, depth);
    ASSERT_EQ(read_all_recovering(parser, record_tags), read_all_recovering(reference, record_tags))
        << "depth " << depth << ", document: " << document;
  }

  void expect_as_reference(const std::string& document, unsigned depth, const std::string& script) {
    file_.write(document);
    xml_stream_parser parser(file_.path(), depth);
    reference_xml_stream reference(document, depth);
    ASSERT_EQ(run_script(parser, script), run_script(reference, script))
        << "depth " << depth << ", document: " << document
        << ", script: " << ::testing::PrintToString(script);
  }

 private:
  xml_stream_file file_;
};

class xml_stream_parser_at_depth : public ::testing::TestWithParam<unsigned> {};
INSTANTIATE_TEST_SUITE_P(depths, xml_stream_parser_at_depth, ::testing::Range(0u, 4u));

TEST(xml_stream_parser_hostile, sample_document_ends_well) {
  xml_stream_file file(every_construct);
  xml_stream_parser parser(file.path(), 1);
  const auto seen = read_all(parser);
  EXPECT_EQ(parser.error(), xml_stream_parser::end_of_document);
  EXPECT_EQ(seen.size(), 12u);
}

TEST_P(xml_stream_parser_at_depth, every_truncation_is_as_the_reference_says) {
  hostile_feed feed;
  for (std::size_t length = 0; length <= every_construct.size(); ++length) {
    ASSERT_NO_FATAL_FAILURE(
        feed.expect_as_reference(std::string(every_construct.substr(0, length)), GetParam()));
  }
}

TEST_P(xml_stream_parser_at_depth, every_tail_of_a_document_is_as_the_reference_says) {
  hostile_feed feed;
  for (std::size_t first = 60; first < every_construct.size(); ++first) {
    const std::string tail(every_construct.substr(first));
    ASSERT_NO_FATAL_FAILURE(
        feed.expect_as_reference("<?xml version='1.0' encoding='UTF-8'?><r>" + tail, GetParam()));
    ASSERT_NO_FATAL_FAILURE(
        feed.expect_as_reference("<?xml version='1.0' encoding='UTF-8'?><r><a><b " + tail, GetParam()));
  }
}

/// Of the runs over all texts, which each write a file. Windows' files cost ten times as much, more so where
/// they are emulated, and the code that reads the texts is the same.
constexpr int each_nth = orva_test::on_windows ? 11 : 1;

TEST_P(xml_stream_parser_at_depth, every_byte_in_every_place_is_as_the_reference_says) {
  constexpr std::string_view document =
      "<?xml?><r><a b='&lt;'>x &#x41;</a><!--c--><s><a/> </s ></r>      <a/>";
  hostile_feed feed;
  // For the other depths, the position of the byte matters more than its value.
  const int step = each_nth * (GetParam() == 1 ? 1 : 7);
  for (std::size_t at = 0; at < document.size(); ++at) {
    for (int byte = 0; byte <= 0xFF; byte += step) {
      std::string text(document);
      text[at] = static_cast<char>(byte);
      ASSERT_NO_FATAL_FAILURE(feed.expect_as_reference(text, GetParam()));
    }
  }
}

TEST_P(xml_stream_parser_at_depth, every_short_text_of_the_markup_characters_is_as_the_reference_says) {
  constexpr std::string_view units = "<>/='&;!-a \n";
  const std::string head = "<?xml version='1.0' encoding='UTF-8'?><r>";
  hostile_feed feed;
  for (std::size_t number = 0; number < units.size() * units.size() * units.size(); number += each_nth) {
    std::string tail;
    for (std::size_t rest = number; tail.size() < 3; rest /= units.size()) tail += units[rest % units.size()];
    for (const char* const open : {"<a ", "<a><b>", "<a>t</"}) {
      ASSERT_NO_FATAL_FAILURE(feed.expect_as_reference(head + open + tail + "<a/></r>", GetParam()));
    }
  }
}

/// Documents made of pieces, most of which fit together.
class random_document {
 public:
  explicit random_document(orva_test::random_engine& random) : random_(random) {}

  std::string make(int elements) {
    text_ = "<?xml version='1.0' encoding='UTF-8' standalone='yes'?>";
    budget_ = elements;
    open("r");
    while (budget_ > 0) element(1);
    text_ += "</r>";
    return text_;
  }

 private:
  bool chance(int in) { return std::uniform_int_distribution<int>(1, in)(random_) == 1; }
  template <std::size_t N>
  const char* any(const char* const (&of)[N]) {
    return of[std::uniform_int_distribution<std::size_t>(0, N - 1)(random_)];
  }

  void open(const std::string& name) {
    text_ += "<" + name;
    while (!chance(3))
      text_ += any({" x='1'", " y=\"&amp;2\"", "\nz=''", " long_name='a value of some length'"});
    if (chance(40)) text_ += any({" x", " x='1' x='1'", " x='<'", " x=1", " &", "<"});
  }

  void element(int depth) {
    --budget_;
    const std::string name = chance(30) ? "include" : any({"a", "b", "s", "a"});
    open(name);
    if (chance(4) || depth > 6 || name == "include") {
      text_ += "/>";
      return;
    }
    text_ += chance(10) ? "\n>" : ">";
    while (budget_ > 0 && !chance(3)) {
      if (chance(2)) text_ += any({"text", " t&lt; ", "\n", "<!-- c -->", "&#65;", "&#x1g;", "]]"});
      element(depth + 1);
    }
    text_ += chance(40) ? "</wrong" : "</" + name;
    text_ += chance(10) ? " >" : ">";
    if (chance(60)) text_ += any({">", "&#300;", "text", "<?pi?>", "<!DOCTYPE x>", "--", "</", "</r>"});
  }

  orva_test::random_engine& random_;
  std::string text_;
  int budget_ = 0;
};

TEST(xml_stream_parser_hostile, any_interleaving_of_calls_is_as_the_reference_says) {
  orva_test::random_engine random;
  const auto below = [&random](int limit) {
    return std::uniform_int_distribution<int>(0, limit - 1)(random);
  };
  hostile_feed feed;
  for (int round = 0; round < 1500; ++round) {
    const std::string document = random_document(random).make(1 + below(round % 10 == 0 ? 600 : 40));
    std::string script;
    for (int i = below(40); i >= 0; --i) script += static_cast<char>(below(256));
    ASSERT_NO_FATAL_FAILURE(feed.expect_as_reference(document, static_cast<unsigned>(below(4)), script));
  }
}

// A file that is written while it is read: each call may find more of it.
TEST(xml_stream_parser_hostile, file_that_grows_between_any_calls_is_as_the_reference_says) {
  orva_test::random_engine random;
  const auto below = [&random](int limit) {
    return std::uniform_int_distribution<int>(0, limit - 1)(random);
  };
  for (int round = 0; round < 300; ++round) {
    const std::string document = random_document(random).make(1 + below(30));
    const auto depth = static_cast<unsigned>(below(4));
    xml_stream_file file("");
    xml_stream_parser parser(file.path(), depth);
    reference_xml_stream reference("", depth);
    for (std::size_t written = 0; written < document.size();) {
      const std::string more = document.substr(written, static_cast<std::size_t>(1 + below(90)));
      written += more.size();
      file.append(more);
      reference.append(more);
      const std::string script{'\0', "\4\6\5\3"[below(4)]};
      ASSERT_EQ(run_script(parser, script), run_script(reference, script)) << document.substr(0, written);
    }
  }
}

TEST(xml_stream_parser_hostile, deep_nesting_costs_no_stack) {
  constexpr int depth = 200000;
  std::string document = "<?xml version='1.0' encoding='UTF-8' standalone='yes'?>";
  for (int i = 0; i < depth; ++i) document += "<a>";
  for (int i = 0; i < depth; ++i) document += "</a>";
  xml_stream_file file(document);
  for (const unsigned open_depth : {0u, 1u, 0xFFFFFFFFu}) {
    xml_stream_parser parser(file.path(), open_depth);
    parser.parse();
    std::size_t nodes = 0;
    for (; !parser.node_queue_empty(); ++nodes) parser.node_queue_pop();
    EXPECT_EQ(parser.error(),
              open_depth == 0 ? xml_stream_parser::no_error : xml_stream_parser::end_of_document);
    EXPECT_GE(nodes, static_cast<std::size_t>(depth));
  }
}

TEST(xml_stream_parser_hostile, tag_of_many_attributes_costs_no_more_than_its_length) {
  constexpr int count = 50000;
  std::string document = "<?xml version='1.0' encoding='UTF-8' standalone='yes'?><r><a";
  for (int i = 0; i < count; ++i) document += " x" + std::to_string(i) + "='" + std::to_string(i) + "'";
  document += "/></r>";
  xml_stream_file file(document);
  xml_stream_parser parser(file.path(), 1);
  parser.parse();
  parser.node_queue_pop();
  EXPECT_EQ(parser.node_queue_pop().attribs().size(), static_cast<std::size_t>(count));
}

// Each question about the number of nodes goes on where the last one stopped.
TEST(xml_stream_parser_hostile, size_of_a_long_queue_can_be_asked_at_each_pop) {
  constexpr int count = 100000;
  std::string document = "<?xml version='1.0' encoding='UTF-8' standalone='yes'?><r><a>";
  for (int i = 0; i < count; ++i) document += "<b/>";
  document += "</a></r>";
  xml_stream_file file(document);
  xml_stream_parser parser(file.path(), 1);
  parser.parse();
  ASSERT_EQ(parser.node_queue_size(), count + 3u);
  for (auto left = count + 3u; left > 0; --left) {
    ASSERT_EQ(parser.node_queue_size(), left);
    parser.node_queue_pop();
  }
  EXPECT_TRUE(parser.node_queue_empty());
}

}  // namespace
