// Reads configuration files: examples in `files/`, each with its expected keys and the file that saving
// gives; random files made from known keys; and files that are cut or damaged.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "tests/config/config_files.hpp"
#include "tests/support/random_engine.hpp"

namespace {

using namespace orva_test;
using ORVA_NAMESPACE::config::file_item;

std::string read_file(const std::filesystem::path& path) {
  std::ifstream stream(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

std::string escaped(const std::string& text) {
  std::string result;
  for (const char c : text) {
    switch (c) {
      case '\\':
        result += "\\\\";
        break;
      case '\n':
        result += "\\n";
        break;
      case '\r':
        result += "\\r";
        break;
      case '\t':
        result += "\\t";
        break;
      default:
        result += c;
    }
  }
  return result;
}

/// One line for each key, in the form of the .keys files.
std::string keys_in(const std::string& text) {
  std::vector<ORVA_NAMESPACE::config::base_config_item::value_entry> entries;
  load_text(text)->get_value_pair_array("", entries, true);
  std::string lines;
  for (const auto& [name, node] : entries) {
    if (node.first == 0) continue;
    lines += escaped(name) + (node.first == 3 ? "[]" : " = " + escaped(node.second.as_string())) + '\n';
  }
  return lines;
}

std::string replaced(std::string text, const std::string& part, const std::string& by) {
  for (std::size_t at = 0; (at = text.find(part, at)) != text.npos; at += by.size())
    text.replace(at, part.size(), by);
  return text;
}

struct example {
  std::string name;
  std::string text;
  std::string keys;
  std::string saved;
};

std::vector<example> examples() {
  std::vector<example> all;
  for (const auto& entry : std::filesystem::directory_iterator(CONFIG_FILES)) {
    if (entry.path().extension() != ".cfg") continue;
    auto beside = entry.path();
    all.push_back({entry.path().stem().string(), read_file(entry.path()),
                   read_file(beside.replace_extension(".keys")),
                   read_file(beside.replace_extension(".saved"))});
  }
  // In an order of their own, so that a random test repeats with its seed.
  std::sort(all.begin(), all.end(), [](const example& a, const example& b) { return a.name < b.name; });
  return all;
}

TEST(config_files, have_the_keys_of_the_files_beside_them) {
  const auto all = examples();
  EXPECT_GE(all.size(), 30u);
  for (const example& each : all) EXPECT_EQ(keys_in(each.text), each.keys) << each.name;
}

TEST(config_files, saved_again_have_the_bytes_of_the_files_beside_them) {
  const temporary_directory directory;
  for (const example& each : examples()) {
    file_item item(directory.write(each.name, each.text));
    item.load();
    item.save();
    EXPECT_EQ(directory.read(each.name), each.saved) << each.name;
  }
}

TEST(config_files, read_the_same_with_both_line_ends) {
  for (const example& each : examples()) {
    EXPECT_EQ(keys_in(replaced(each.text, "\n", "\r\n")), replaced(each.keys, "\\n", "\\r\\n")) << each.name;
  }
}

TEST(config_files, read_the_same_after_comments) {
  for (const example& each : examples()) {
    EXPECT_EQ(keys_in("# k=v\r\n\n// [s]\n" + each.text), each.keys) << each.name;
  }
}

TEST(config_files, read_the_same_without_their_last_line_end) {
  for (const example& each : examples()) {
    std::string text = each.text;
    while (text.ends_with('\n')) text.pop_back();
    if (each.name == "unclosed") continue;  // its line end is part of the text
    EXPECT_EQ(keys_in(text), each.keys) << each.name;
  }
}

TEST(config_files, read_the_same_with_blanks_and_tabs_around_everything) {
  for (const example& each : examples()) {
    if (each.keys.find("\\n") != std::string::npos) continue;  // text over lines would hold them
    EXPECT_EQ(keys_in(" \t" + replaced(each.text, "\n", " \t\n\t ")), each.keys) << each.name;
  }
}

TEST(config_files, agree_with_the_plain_reading) {
  for (const example& each : examples()) {
    EXPECT_EQ(listing_of(*load_text(each.text)), reference_file_reader(each.text).tree.listing())
        << each.name;
  }
}

/// Makes a file from known keys and values, and varies everything that the format leaves open.
class file_writer {
 public:
  explicit file_writer(random_engine& random) : random_(random) {
    for (auto sections = below(4); sections > 0; --sections) write_section();
    if (below(3) == 0) text_.erase(text_.find_last_not_of("\r\n") + 1);
  }

  const std::string& text() const { return text_; }
  const reference_tree& tree() const { return tree_; }

 private:
  std::size_t below(std::size_t end) { return random_() % end; }
  const std::string& one_of(const std::vector<std::string>& all) { return all[below(all.size())]; }

  std::string name() {
    return one_of(
        {"colour", "Size", "path2", "a_b", "\xC3\xA4\xC3\xB6", "x-y", "n1", "\xE6\x9D\xB1", "k#1", "%"});
  }
  /// A value. Some values need quotes.
  std::string value() {
    return one_of({"1", "yes", "0x1F", "a:b", "C:\\dir",
                   "\xC3\xBC"
                   "ber",
                   "a;b", "x=y", "{}", "two words", "a,b", "tab\there", "line\nend", "#1", "http://x",
                   "a\\\"b"});
  }
  /// The text, in quotes where it needs them and sometimes where it does not.
  std::string quoted(const std::string& text) {
    const bool must = text.find_first_of(" \t\n,#/\"") != text.npos;
    if (!must && below(4) != 0) return text;
    if (!must && text.size() > 1 && text[1] != ':' && below(2) == 0)
      return text.substr(0, 1) + '"' + text.substr(1) + '"';
    return '"' + text + '"';
  }
  std::string blanks() { return one_of({"", "", " ", "\t", "  \t "}); }
  std::string line_end() {
    return blanks() + one_of({"", "", "# note", "// note = 1", "#"}) + one_of({"\n", "\n", "\r\n", "\n\n"});
  }

  void write_section() {
    std::string prefix;
    if (below(4) != 0 || !text_.empty()) {
      const std::string section = below(5) == 0 ? ""
                                                : one_of({"main", "Main.Window", "a.b.c",
                                                          "\xC3\xB6"
                                                          "ffentlich"});
      text_ += blanks() + "[" + blanks() + section + blanks() + "]" + line_end();
      if (!section.empty()) prefix = section + ".";
    }
    for (auto keys = below(6); keys > 0; --keys) {
      const std::string key = name();
      text_ += blanks() + key;
      if (below(4) == 0) {
        write_array(prefix + key);
      } else {
        const std::string content = value();
        text_ += blanks() + "=" + blanks() + quoted(content) + line_end();
        tree_.set(prefix + key, content, 0);
      }
      if (below(5) == 0) text_ += "# a comment = with a sign" + one_of({"\n", "\r\n"});
    }
  }

  void write_array(const std::string& key) {
    std::vector<std::string> values;
    text_ += blanks() + "[]" + blanks() + "=";
    for (auto count = 1 + below(4); count > 0; --count) {
      values.push_back(value());
      text_ += blanks() + quoted(values.back());
      if (count > 1) text_ += blanks() + "," + (below(3) == 0 ? line_end() : "");
    }
    text_ += line_end();
    tree_.set_array(key, values);
  }

  random_engine& random_;
  std::string text_;
  reference_tree tree_;
};

TEST(config_files, made_from_known_keys_have_these_keys) {
  random_engine random;
  for (int run = 0; run < 300; ++run) {
    const file_writer made(random);
    ASSERT_EQ(listing_of(*load_text(made.text())), made.tree().listing()) << made.text();
  }
}

TEST(config_files, cut_anywhere_agree_with_the_plain_reading) {
  for (const example& each : examples()) {
    for (std::size_t size = 0; size < each.text.size(); size += 1 + each.text.size() / 25) {
      const std::string text = each.text.substr(0, size);
      ASSERT_EQ(listing_of(*load_text(text)), reference_file_reader(text).tree.listing()) << text;
    }
  }
}

TEST(config_files, damaged_anywhere_agree_with_the_plain_reading) {
  random_engine random;
  constexpr char marks[] = "\"\\=[],#/*\r\n\t .:+-a0\0\xFF";
  for (const example& each : examples()) {
    for (int run = 0; run < 15; ++run) {
      std::string text = each.text;
      for (auto changes = 1 + random() % 3; changes > 0; --changes) {
        const auto place = random() % text.size();
        const char mark = marks[random() % (sizeof marks - 1)];
        if (random() % 3 == 0) {
          text.insert(place, 1, mark);
        } else if (random() % 2 == 0) {
          text.erase(place, 1);
          text += mark;
        } else {
          text[place] = mark;
        }
      }
      ASSERT_EQ(listing_of(*load_text(text)), reference_file_reader(text).tree.listing()) << text;
    }
  }
}

}  // namespace
