/// The settings of `photo`, the program that is written once with each library for command lines. The help
/// texts and the defaults are the same in all.
///
///     -t, --threads   an integer from 1 to 64        -o, --output   a path
///     -v, --verbose   a flag                             --title    text
///     -a, --all       a flag                             --tags     a list of texts
///         --colour    a flag that is on              FILE...        paths, at least one
///     -s, --shift     any integer                    -h, --help
///     -z, --zoom      a number                           --version
///     -m, --mode      fast or small
#pragma once

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace photo {

struct values {
  int threads = 4;
  bool verbose = false;
  bool all = false;
  bool colour = true;
  int shift = 0;
  double zoom = 1;
  std::string mode = "fast";
  std::string output = "out";
  std::string title = "Photo";
  std::vector<std::string> tags;
  std::vector<std::string> files;
};

/// In quotes where a blank, a comma or a quote needs them, and where nothing would be seen.
inline std::string shown(std::string_view text) {
  std::string result(text);
  if (!text.empty() && text.find_first_of(" ,\"") == text.npos) return result;
  return '"' + result + '"';
}

inline std::string shown(const std::vector<std::string>& texts) {
  std::string result;
  for (const std::string& text : texts) result += (result.empty() ? "" : ",") + shown(text);
  return result;
}

/// One line: the values that are not the defaults.
inline void write(std::ostream& output, const values& read) {
  const values defaults;
  output << "reads:";
  if (read.threads != defaults.threads) output << " threads=" << read.threads;
  if (read.verbose) output << " verbose";
  if (read.all) output << " all";
  if (!read.colour) output << " no-colour";
  if (read.shift != defaults.shift) output << " shift=" << read.shift;
  if (read.zoom != defaults.zoom) output << " zoom=" << read.zoom;
  if (read.mode != defaults.mode) output << " mode=" << shown(read.mode);
  if (read.output != defaults.output) output << " output=" << shown(read.output);
  if (read.title != defaults.title) output << " title=" << shown(read.title);
  if (!read.tags.empty()) output << " tags=" << shown(read.tags);
  if (!read.files.empty()) output << " files=" << shown(read.files);
  output << '\n';
}

}  // namespace photo
