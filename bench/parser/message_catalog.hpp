/// The document that the XML benchmarks read: a message catalog of 20,000 messages and about 3.5 MB, the same
/// in every run.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace bench {

inline std::string message_catalog() {
  constexpr std::array<std::string_view, 16> words{"Die",
                                                   "Datei",
                                                   "konnte",
                                                   "nicht",
                                                   "ge\xC3\xB6\x66\x66net",
                                                   "werden,",
                                                   "weil",
                                                   "der",
                                                   "Datentr\xC3\xA4ger",
                                                   "voll",
                                                   "ist",
                                                   "Bitte",
                                                   "Speicherplatz",
                                                   "freigeben",
                                                   "&amp;",
                                                   "fortfahren."};
  std::size_t state = 1;
  const auto next = [&state](std::size_t bound) {
    state = (state * 1103515245 + 12345) % 0x80000000;
    return (state >> 8) % bound;
  };
  std::string text =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<xmc version=\"1.1\">\n  <catalog name=\"app\" "
      "lang=\"de_DE\">\n";
  for (int message = 0; message < 20000; ++message) {
    if (message % 50 == 0) text += "    <!-- section " + std::to_string(message / 50) + " -->\n";
    text += "    <msg name=\"message_" + std::to_string(message) + "\" meta=\"shown in the status bar\">";
    for (std::size_t left = 6 + next(10); left != 0; --left) (text += words[next(words.size())]) += ' ';
    text += "<arg name=\"count\" type=\"number\"/>";
    if (next(4) == 0) text += "<br/><arg name=\"size\" type=\"mem\" precision=\"1\"/>";
    text += "</msg>\n";
  }
  return text + "  </catalog>\n</xmc>";
}

}  // namespace bench
