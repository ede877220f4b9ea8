#include "generate.hpp"

#include <array>
#include <cstddef>
#include <filesystem>
#include <fstream>

namespace feed_stats {

namespace {

std::string tag(const std::string& key, const std::string& value) {
  return "    <tag k=\"" + key + "\" v=\"" + value + "\"/>\n";
}

std::string node(std::uint64_t number) {
  const std::string start = "  <node id=\"" + std::to_string(number) + "\" lat=\"52." +
                            std::to_string(number * 7919 % 1000000) + "\" lon=\"13." +
                            std::to_string(number * 104729 % 1000000) + "\"";
  if (number % 3 != 0) return start + "/>\n";
  return start + ">\n" + tag("amenity", "cafe") +
         tag("name", "Caf\xC3\xA9 &amp; Bar " + std::to_string(number)) + "  </node>\n";
}

std::string way(std::uint64_t number) {
  std::string result = "  <way id=\"" + std::to_string(number) + "\">\n";
  for (std::uint64_t i = 0; i < 2 + number % 6; ++i)
    result += "    <nd ref=\"" + std::to_string(number - i) + "\"/>\n";
  return result + tag("highway", "residential") + "  </way>\n";
}

std::string relation(std::uint64_t number) {
  return "  <relation id=\"" + std::to_string(number) + "\">\n    <member type=\"way\" ref=\"" +
         std::to_string(number / 10 * 10) +
         "\" role=\"outer\"/>\n    <note>Checked on the spot, see &quot;boundaries&quot;</note>\n  "
         "</relation>\n";
}

std::string record(std::uint64_t number) {
  if (number % 100 == 99) return relation(number);
  return number % 10 == 9 ? way(number) : node(number);
}

/// The damages of real feeds: a record that is cut off, a missing quote, a text that was not escaped, a line
/// that does not belong there.
const std::string& damaged_record(std::uint64_t number) {
  static const std::array<std::string, 4> kinds{
      "  <node id=\"1\"><tag k=\"name\" v=\"Cut o\n", "  <node id=1/>\n",
      "  <way id=\"1\"><tag k=\"name\" v=\"Fish & Chips\"/></way>\n", "  Warning: 12 rows omitted\n"};
  return kinds[static_cast<std::size_t>(number % kinds.size())];
}

}  // namespace

bool generate(const std::string& file, std::uint64_t bytes, std::uint64_t damage_one_of) {
  std::ofstream out(std::filesystem::path(std::u8string(file.begin(), file.end())), std::ios::binary);
  out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<osm version=\"0.6\" generator=\"feed_stats\">\n";
  std::uint64_t written = 0;
  for (std::uint64_t number = 1; written < bytes && out; ++number) {
    const bool is_damaged = damage_one_of != 0 && number % damage_one_of == 0;
    const std::string text = is_damaged ? damaged_record(number / damage_one_of) : record(number);
    out << text;
    written += text.size();
  }
  out << "</osm>\n";
  return static_cast<bool>(out.flush());
}

}  // namespace feed_stats
