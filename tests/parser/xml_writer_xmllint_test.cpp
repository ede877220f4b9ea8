// What xml_writer wrote, as libxml2's program reads it: in canonical form, which shows every character.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include "orva/parser/xml_writer.hpp"
#include "tests/support/child_process.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/temporary_directory.hpp"
#include "tests/support/xml_tree.hpp"

namespace {

using ORVA_NAMESPACE::parser::xml_writer;
using ORVA_NAMESPACE::parser::xml_writer_settings;
using orva_test::xml_tree;
namespace xml_trees = orva_test::xml_trees;

constexpr const char* xmllint = "/usr/bin/xmllint";

void must(const xml_writer::result& done) { ASSERT_EQ(done.error, xml_writer::error::none) << done; }

std::string escaped(std::string_view text, std::string_view escaped_characters) {
  std::string result;
  for (const char c : text) {
    if (escaped_characters.find(c) == std::string_view::npos) {
      result += c;
    } else {
      result += c == '<'    ? "&lt;"
                : c == '>'  ? "&gt;"
                : c == '&'  ? "&amp;"
                : c == '"'  ? "&quot;"
                : c == '\t' ? "&#x9;"
                : c == '\n' ? "&#xA;"
                            : "&#xD;";
    }
  }
  return result;
}

/// By "Canonical XML Version 1.0", with comments.
std::string canonical(const xml_tree& tree) {
  switch (tree.kind) {
    case xml_tree::text:
    case xml_tree::cdata:
      return escaped(tree.value, "<>&\r");
    case xml_tree::comment:
      return "<!--" + tree.value + "-->";
    case xml_tree::element:
      break;
  }
  auto attributes = tree.attributes;
  std::ranges::sort(attributes);
  std::string text = "<" + tree.value;
  for (const auto& [name, value] : attributes)
    text += " " + name + "=\"" + escaped(value, "<&\"\t\n\r") + "\"";
  text += ">";
  for (const auto& child : tree.children) text += canonical(child);
  return text + "</" + tree.value + ">";
}

class xml_writer_xmllint : public testing::Test {
 protected:
  void SetUp() override {
    if (!std::filesystem::exists(xmllint)) GTEST_SKIP() << "xmllint is not installed";
  }

  void write(const xml_tree& tree, const xml_writer_settings& settings) const {
    std::ofstream file(path_, std::ios::binary);
    xml_writer writer(file, settings);
    xml_trees::write(writer, tree, must);
    must(writer.finish());
  }

  orva_test::child_result run(const std::string& option) const {
    return orva_test::run_child(xmllint, {"xmllint", "--huge", option, path_}, {});
  }

  orva_test::temporary_directory directory_;
  std::string path_ = directory_.file("document.xml");
  orva_test::random_engine random_;
};

TEST_F(xml_writer_xmllint, reads_the_same_elements_attributes_and_texts) {
  for (int i = 0; i < 60; ++i) {
    const xml_tree tree = xml_trees::random_tree(random_, 5);
    write(tree, {});
    const auto [code, output] = run("--c14n");
    ASSERT_EQ(code, 0);
    ASSERT_EQ(output, canonical(tree));
  }
}

TEST_F(xml_writer_xmllint, reads_indented_documents) {
  for (int i = 0; i < 20; ++i) {
    write(xml_trees::random_tree(random_, 5), {.indent = 2});
    ASSERT_EQ(run("--noout").code, 0);
  }
}

}  // namespace
