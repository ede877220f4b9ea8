/// Slow and simple readers of the configuration language, which tests compare the library with. Tokens are
/// found by a list of texts, the longest first; a file is read from a list of all its tokens; a tree is a map
/// of whole paths.
#pragma once

#include <cctype>
#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "orva/config/base_config_item.hpp"

namespace orva_test {

struct reference_token {
  int type = 0;
  std::string text;
  std::size_t start = 0;
  std::size_t end = 0;

  friend bool operator==(const reference_token&, const reference_token&) = default;
};

/// All tokens of a text. A blank has the text of the token before it. Before the first token that is
/// `text_before`.
inline std::vector<reference_token> reference_tokens(const std::string& source,
                                                     std::string text_before = {}) {
  static const std::vector<std::pair<std::string, int>> fixed{
      {"\r\n", 2}, {"==", 8},  {">=", 10}, {"<=", 12}, {":=", 14}, {"//", 16}, {"+=", 22},
      {"-=", 23},  {"*/", 24}, {"*=", 28}, {"/=", 29}, {"\n", 2},  {"\t", 3},  {"\r", 4},
      {"=", 7},    {">", 9},   {"<", 11},  {":", 13},  {"#", 15},  {".", 17},  {"[", 18},
      {"]", 19},   {"+", 20},  {"-", 21},  {"*", 26},  {"/", 27}};
  const auto alpha = [](char c) { return std::isalpha(static_cast<unsigned char>(c)) != 0; };
  const auto digit = [](char c) { return std::isdigit(static_cast<unsigned char>(c)) != 0; };
  std::vector<reference_token> tokens;
  for (std::size_t at = 0; at < source.size();) {
    reference_token token;
    token.start = at;
    for (const auto& [text, type] : fixed) {
      if (token.text.empty() && source.compare(at, text.size(), text) == 0) {
        token.text = type == 2 ? "\n" : text;
        token.type = type;
        at += text.size();
      }
    }
    if (token.text.empty()) {
      const char first = source[at];
      if (first == ' ') {
        token.type = 6;
        token.text = text_before;
        while (at < source.size() && source[at] == ' ') ++at;
      } else if (first == '"') {
        token.type = 30;
        for (++at; at < source.size() && source[at] != '"'; ++at) {
          if (source[at] == '\\') token.text += source[at++];
          if (at < source.size()) token.text += source[at];
        }
        at = at < source.size() ? at + 1 : source.size() + 1;
      } else if (alpha(first)) {
        token.type = 0;
        while (at < source.size() && alpha(source[at])) token.text += source[at++];
      } else if (digit(first)) {
        token.type = 1;
        while (at < source.size() && digit(source[at])) token.text += source[at++];
      } else {
        token.type = 31;
        token.text = source[at++];
      }
    }
    token.end = at;
    text_before = token.text;
    tokens.push_back(token);
  }
  return tokens;
}

/// A tree as the paths of all its nodes. A path sorts before the longer paths that begin with it, which is
/// the order of `get_value_pair_array`.
class reference_tree {
 public:
  using path = std::vector<std::string>;
  struct node {
    unsigned int flags = 0;
    std::string value = "1";
  };

  static path path_of(const std::string& key) {
    path result;
    std::string name;
    for (std::size_t i = 0; i < key.size(); ++i) {
      if (key[i] != '.' && key[i] != '\\' && key[i] != '/') {
        name += static_cast<char>(std::tolower(static_cast<unsigned char>(key[i])));
      } else {
        result.push_back(std::exchange(name, {}));
        if (i + 1 == key.size()) return result;
      }
    }
    result.push_back(name);
    return result;
  }

  void set(const std::string& key, const std::string& value, unsigned int flags) {
    const path whole = path_of(key);
    for (std::size_t length = 1; length < whole.size(); ++length) {
      nodes_[path(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length))];
    }
    nodes_[whole] = {flags | 1, value};
  }

  void set_array(const std::string& key, const std::vector<std::string>& values) {
    set(key, "", 2);
    for (std::size_t i = 0; i < values.size(); ++i) set(key + "." + std::to_string(i), values[i], 0);
  }

  /// One line for each node: its name, its flags and its value.
  std::vector<std::string> listing() const {
    std::vector<std::string> lines;
    for (const auto& [where, what] : nodes_) {
      std::string name;
      for (const auto& part : where) name += (name.empty() ? "" : ".") + part;
      lines.push_back(name + " | " + std::to_string(what.flags) + " | " + what.value);
    }
    return lines;
  }

 private:
  std::map<path, node> nodes_;
};

/// Reads a configuration file.
class reference_file_reader {
 public:
  explicit reference_file_reader(const std::string& text) : tokens_(reference_tokens(text)) {
    while (at_ < tokens_.size()) read_one();
  }

  reference_tree tree;

 private:
  bool ended() const { return at_ >= tokens_.size(); }
  int type() const { return tokens_[at_].type; }
  bool blank() const { return type() == 2 || type() == 3 || type() == 6; }

  /// Skips a comment, up to the token of its line end. False if there is none.
  bool skipped_comment() {
    if (type() != 15 && type() != 16) return false;
    while (!ended() && type() != 2) ++at_;
    return true;
  }

  void read_one() {
    if (blank()) {
      ++at_;
    } else if (!skipped_comment()) {
      type() == 18 ? read_section() : read_key();
    }
  }

  void read_section() {
    section_.clear();
    for (++at_; !ended() && type() != 19; ++at_) {
      if (!blank()) section_ += tokens_[at_].text;
    }
    ++at_;
    if (!section_.empty()) section_ += ".";
  }

  void read_key() {
    std::string key;
    for (; !ended() && type() != 7; ++at_) {
      if (!blank()) key += tokens_[at_].text;
    }
    ++at_;
    if (key.empty()) return;
    if (key.size() > 1 && key.substr(key.size() - 2) == "[]")
      return read_array(key.substr(0, key.size() - 2));
    std::string value;
    while (!ended() && type() != 2) {
      if (skipped_comment()) continue;
      if (!blank()) value += tokens_[at_].text;
      ++at_;
    }
    ++at_;
    if (!value.empty()) tree.set(section_ + key, value, 0);
  }

  void read_array(const std::string& key) {
    std::string value;
    bool may_end = true;
    while (!ended() && !(type() == 2 && may_end)) {
      if (skipped_comment()) continue;
      if (tokens_[at_].text == "," && type() == 31) {
        elements_.push_back(std::exchange(value, {}));
        may_end = false;
      } else if (!blank()) {
        value += tokens_[at_].text;
        may_end = true;
      }
      ++at_;
    }
    ++at_;
    if (value.empty()) return;
    elements_.push_back(value);
    tree.set_array(section_ + key, std::exchange(elements_, {}));
  }

  std::vector<reference_token> tokens_;
  std::size_t at_ = 0;
  std::string section_;
  std::vector<std::string> elements_;
};

/// Reads the arguments of a command line, without the program's name.
class reference_command_line {
 public:
  explicit reference_command_line(const std::vector<std::string>& arguments) : words_(arguments) {
    while (at_ < words_.size()) read_one();
  }

  reference_tree tree;
  std::string warnings;

 private:
  bool begins(std::size_t index, const std::string& marks) const {
    return !words_[index].empty() && marks.find(words_[index][0]) != std::string::npos;
  }

  std::vector<reference_token> tokens(const std::string& text) {
    auto result = reference_tokens(text, last_text_);
    if (!result.empty()) last_text_ = result.back().text;
    return result;
  }

  std::string joined(const std::vector<reference_token>& tokens, std::size_t from) {
    std::string text;
    for (; from < tokens.size(); ++from) text += tokens[from].text;
    return text;
  }

  void store(const std::string& key, const std::vector<std::string>& values, bool is_array) {
    is_array ? tree.set_array(key, values) : tree.set(key, values[0], 0);
  }

  void read_one() {
    const std::string word = words_[at_++];
    if (!begins(at_ - 1, "-/")) {
      warnings += "Warning! unknown key:" + word + "\nIgnoring key and continuing\n";
      return;
    }
    const auto all = tokens(word.substr(1));
    std::string key;
    for (std::size_t i = 0; i < all.size(); ++i) {
      const int type = all[i].type;
      const bool dollar = type == 31 && all[i].text == "$";
      const bool plain = type == 7 || type == 13 || type == 14;
      const bool pair = type == 10 || type == 12 || type == 22 || type == 23 || type == 28 || type == 29;
      if (pair) key += all[i].text[0];
      if (dollar) return tree.set(key, joined(all, i + 1), 0);
      if (plain || pair) return read_attached(key, all, i + 1);
      key += all[i].text;
    }
    if (last_text_ == "$") return tree.set(key, "", 0);
    read_bare(key);
  }

  void read_attached(const std::string& key, const std::vector<reference_token>& all, std::size_t from) {
    std::vector<std::string> values(1);
    for (; from < all.size(); ++from) {
      if (all[from].type == 31 && all[from].text == ",") {
        values.emplace_back();
      } else {
        values.back() += all[from].text;
      }
    }
    store(key, values, values.size() > 1);
  }

  void read_bare(const std::string& key) {
    if (at_ == words_.size() || begins(at_, "-/")) {
      const auto all = reference_tokens(key);
      std::string before, value;
      std::size_t i = 0;
      for (; i < all.size() && all[i].type != 7; ++i) {
        if (all[i].type != 2 && all[i].type != 3 && all[i].type != 6) before += all[i].text;
      }
      for (++i; i < all.size() && all[i].type != 2; ++i) {
        if (all[i].type != 3 && all[i].type != 6) value += all[i].text;
      }
      return tree.set(before, value, 1);
    }
    std::vector<std::string> values;
    do {
      values.push_back(joined(tokens(words_[at_++]), 0));
    } while (at_ < words_.size() && !begins(at_, "-"));
    store(key, values, values.size() > 1);
  }

  std::vector<std::string> words_;
  std::size_t at_ = 0;
  std::string last_text_;
};

/// The nodes of an item in the form of `reference_tree::listing`.
inline std::vector<std::string> listing_of(const ORVA_NAMESPACE::config::base_config_item& item) {
  std::vector<ORVA_NAMESPACE::config::base_config_item::value_entry> entries;
  item.get_value_pair_array("", entries, true);
  std::vector<std::string> lines;
  for (const auto& [name, node] : entries) {
    lines.push_back(name + " | " + std::to_string(node.first) + " | " + node.second.as_string());
  }
  return lines;
}

}  // namespace orva_test
