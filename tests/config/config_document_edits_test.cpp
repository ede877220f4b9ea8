// Random edits of random documents: what file_item reads before and after an edit differs by the edit, and by
// nothing else.
#include <gtest/gtest.h>

#include <cstddef>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "tests/config/config_files.hpp"
#include "tests/support/document_edits.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/short_texts.hpp"

namespace {

using namespace orva_test;
using ORVA_NAMESPACE::strings::ustring8;

stored_nodes read_text(const std::string& text) { return stored_nodes_of(*load_text(text)); }

using pieces = std::vector<std::string_view>;

const pieces whole_lines{"a=1\n",
                         "a = \"x y\" # note\n",
                         "b.c = 2\r\n",
                         "\n",
                         "# note\n",
                         "// \"note\"\n",
                         "[s]\n",
                         "[s.t] # x\n",
                         "[]\n",
                         "a[] = 1, 2\n",
                         "b[]=1,\n 2\n",
                         "c =\n",
                         "c[] = 1,\"\"\n",
                         "  a = 3\n",
                         "\ta\t=\t4\r\n",
                         "b\n= 5\n",
                         "s.a = \"1\n2\"\n",
                         "[s] a = 6\n",
                         "a.1 = 7\n",
                         "b = /\n",
                         "a = x//y\n"};
const pieces fragments{"a",  "b", "c.d", "=",  "=",  "[",  "]",  "[]",   ",",        "\n", "\r\n",
                       "\r", "#", "//",  "\"", "\\", " ",  "\t", "a[]=", "1",        ".",  "/",
                       "-",  "*", ":",   "\n", "s",  "\n", "=",  "[s]",  "\xC3\xA4", "\n"};
const pieces values{"x",    "y z", "",  "#", "//",   "=", "\\", "\"",
                    "\\\"", "\n",  ",", "/", "\r\n", "[", "1",  "*"};
const pieces keys{"a",   "b",     "c",   "b.c", "s.a", "s.b",     "s",     "a.0",   "a.1",
                  "b.1", "s.t.a", "s.t", "c.d", "x",   "new.key", "s.x y", "s.s.a", "s.t.#"};

std::string_view one_of(random_engine& random, const pieces& from) { return from[random() % from.size()]; }

std::string some_of(random_engine& random, const pieces& from, std::size_t most) {
  std::string text;
  for (auto count = random() % (most + 1); count > 0; --count) text += one_of(random, from);
  return text;
}

std::string random_document(random_engine& random) {
  if (random() % 2 == 0) return some_of(random, whole_lines, 12);
  std::string text = some_of(random, fragments, 25);
  if (random() % 2 == 0) text.insert(0, some_of(random, whole_lines, 4));
  return text;
}

document_edit random_edit(random_engine& random, const stored_nodes& nodes) {
  document_edit edit;
  edit.what = static_cast<document_edit::kind>(random() % 5);
  edit.key = one_of(random, keys);
  if (!nodes.empty() && random() % 2 == 0) {
    const auto path = std::next(nodes.begin(), static_cast<std::ptrdiff_t>(random() % nodes.size()))->first;
    if (!path.empty() && path.back() != '.') edit.key = path;
  }
  for (auto count = 1 + random() % 3; count > 0; --count)
    edit.values.emplace_back(some_of(random, values, 3));
  if (random() % 3 == 0) edit.comment = random() % 8 == 0 ? "it\"s" : "one\n\ntwo \"x\"";
  return edit;
}

TEST(config_document_edits, change_what_they_say_and_nothing_else) {
  random_engine random;
  int accepted = 0;
  for (int i = 0; i < 1000; ++i) {
    const std::string text = random_document(random);
    document_checker document(text, read_text);
    for (int step = 0; step < 4 && document.fault().empty(); ++step) {
      const std::string before = document.document().text();
      const document_edit edit = random_edit(random, document.nodes());
      accepted += document.apply(edit) ? 1 : 0;
      ASSERT_EQ(document.fault(), "")
          << "text: " << before << "\nafter: " << document.document().text() << "\nkey: " << edit.key
          << "\nedit: " << static_cast<int>(edit.what) << "\nvalue: " << edit.values.front()
          << "\nelements: " << edit.values.size() << "\ncomment: " << edit.comment;
    }
    ASSERT_EQ(document.fault(), "") << text;
  }
  EXPECT_GT(accepted, 500);
}

TEST(config_document_edits, of_every_short_text_are_exact_or_refused) {
  using kind = document_edit::kind;
  const std::vector<document_edit> edits{{kind::set, "a", {"1"}, ""},
                                         {kind::set_array, "a", {"1", "2"}, "x = y"},
                                         {kind::remove, "a", {""}, ""},
                                         {kind::set, "s.b", {"#"}, "x ="}};
  for (const std::string& text : short_texts("a=[]#\"\n,", 4)) {
    const document_checker unedited(text, read_text);
    for (const document_edit& edit : edits) {
      document_checker document(unedited);
      document.apply(edit);
      ASSERT_EQ(document.fault(), "") << text << "\nedit: " << static_cast<int>(edit.what);
    }
  }
}

TEST(config_document_edits, values_are_refused_only_if_no_file_holds_them) {
  for (const std::string& text : short_texts("a\"\\ #,/=\n\r", 4)) {
    config_document document;
    const bool has_bare_quote = [&] {
      for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '"' && (i == 0 || text[i - 1] != '\\')) return true;
      }
      return false;
    }();
    const auto result = document.set("a", text);
    ASSERT_EQ(result.error == config_document::error::none, !text.empty() && !has_bare_quote) << text;
    ASSERT_EQ(document.get("a").value_or(""), document.text().empty() ? "" : text);
    // What a file holds, the document holds.
    const auto read = config_document("a = " + text).get("a");
    ASSERT_TRUE(!read || document.set("a", *read).error == config_document::error::none) << text;
  }
}

}  // namespace
