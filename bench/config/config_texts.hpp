/// The input of the benchmarks of configuration: a file of 10,000 keys in 100 sections, three sources with
/// keys to look up, and command lines.
#pragma once

#include <unistd.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <type_traits>
#include <vector>

namespace config_bench {

inline constexpr int section_count = 100;
inline constexpr int keys_per_section = 100;

/// The pieces joined; numbers in decimal.
template <typename... Pieces>
std::string joined(const Pieces&... pieces) {
  std::string text;
  const auto add = [&text](const auto& piece) {
    if constexpr (std::is_arithmetic_v<std::decay_t<decltype(piece)>>) {
      text.append(std::to_string(piece));
    } else {
      text.append(piece);
    }
  };
  (add(pieces), ...);
  return text;
}

inline std::string section_name(int section) { return joined("section_", section); }
inline std::string key_name(int key) { return joined("setting_", key, "_of_page"); }
inline std::string value_text(int section, int key) {
  return joined("value-", section * 31 + key, "-of-the-setting");
}

/// The text of the file, in a form that all peers read alike.
inline std::string file_text(bool with_comments = false) {
  std::string text;
  for (int section = 0; section < section_count; ++section) {
    if (with_comments) text += joined("\n# The settings of section ", section, ".\n");
    text += joined("[", section_name(section), "]\n");
    for (int key = 0; key < keys_per_section; ++key) {
      text += joined(key_name(key), "=", value_text(section, key), "\n");
    }
  }
  return text;
}

inline std::string commented_file_text() { return file_text(true); }

/// The path of the file, which exists while the program runs.
inline const std::string& file_path() {
  struct file {
    file()
        : path(std::filesystem::temp_directory_path() /
               ("orva-bench-" + std::to_string(::getpid()) + ".cfg")) {
      std::ofstream(path, std::ios::binary) << file_text();
    }
    ~file() { std::filesystem::remove(path); }
    std::string path;
  };
  static const file made;
  return made.path;
}

/// The sources: each has some 300 keys of three parts, and one has the key that is looked up.
inline constexpr int source_count = 3;
inline constexpr const char* wanted = "window.main.width";
inline constexpr const char* link = "window.main.size";

/// Calls `put` with each key and value of a source.
template <typename Put>
void fill_source(bool with_wanted, const Put& put) {
  for (int i = 0; i < 300; ++i) put(joined("page_", i / 20, ".group_", i / 5 % 4, ".setting_", i), i);
  put(std::string("window.main.height"), 480);
  if (with_wanted) put(std::string(wanted), 640);
}

/// Options: of ten, one is a flag, one has an array and the others have one value.
inline std::vector<std::string> options(std::int64_t count) {
  std::vector<std::string> words;
  for (std::int64_t i = 0; i < count; ++i) {
    words.push_back(joined("-page_", i / 10, ".option_", i));
    if (i % 10 == 1) words.back().append("=a,b,c");
    if (i % 10 > 1) words.back().append("=value_").append(std::to_string(i));
  }
  return words;
}

}  // namespace config_bench
