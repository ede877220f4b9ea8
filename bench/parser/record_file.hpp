/// A file of records in a temporary directory, like map data or a product feed: the input of the benchmarks
/// of streaming parsers.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>

namespace bench {

class record_file {
 public:
  /// The value of ORVA_FEED_MB in the environment, in megabytes; 16 without it.
  record_file() : path_(std::filesystem::temp_directory_path() / name()) {
    const char* const asked = std::getenv("ORVA_FEED_MB");
    const auto megabytes = asked != nullptr ? std::max(1, std::atoi(asked)) : 16;
    write(static_cast<std::uint64_t>(megabytes) << 20);
  }
  record_file(const record_file&) = delete;
  record_file& operator=(const record_file&) = delete;
  ~record_file() {
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
  }

  std::string path() const { return path_.string(); }
  std::int64_t size() const { return static_cast<std::int64_t>(std::filesystem::file_size(path_)); }

 private:
  static std::string name() { return "orva-feed-" + std::to_string(std::random_device()()) + ".xml"; }

  void write(std::uint64_t size) {
    std::ofstream file(path_, std::ios::binary);
    file << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<osm version=\"0.6\" generator=\"bench\">\n";
    std::uint64_t written = 0;
    for (std::uint64_t id = 1; written < size; ++id) {
      const std::string record = make_record(id);
      file << record;
      written += record.size();
    }
    file << "</osm>\n";
  }

  static std::string make_record(std::uint64_t id) {
    if (id % 10 == 9) return way(id);
    std::string record = "  <node id=\"" + std::to_string(id * 37) + "\" lat=\"52." +
                         std::to_string(id * 7919 % 10000000) + "\" lon=\"13." +
                         std::to_string(id * 104729 % 10000000) +
                         "\" version=\"2\" timestamp=\"2026-02-03T04:05:06Z\"";
    if (id % 3 != 0) return record + "/>\n";
    record += ">\n    <tag k=\"name\" v=\"Caf\xC3\xA9 &amp; Bar " + std::to_string(id) + "\"/>\n";
    if (id % 2 == 0) record += "    <note>Open from 8 to 18 o&apos;clock, on Sundays from 10</note>\n";
    return record + "  </node>\n";
  }

  static std::string way(std::uint64_t id) {
    std::string record = "  <way id=\"" + std::to_string(id) + "\" user=\"somebody\">\n";
    for (std::uint64_t i = 0; i < 5 + id % 11; ++i)
      record += "    <nd ref=\"" + std::to_string((id + i) * 37) + "\"/>\n";
    return record + "    <tag k=\"highway\" v=\"residential\"/>\n  </way>\n";
  }

  std::filesystem::path path_;
};

}  // namespace bench
