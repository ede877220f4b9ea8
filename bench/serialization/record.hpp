/// The record for the serialization benchmarks: four integers, two doubles, three strings.
///
/// A stream holds a hundred of them, so that the setup of an archive and large allocations hardly matter.
/// Times are for a hundred records.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace orva_bench {

struct record {
  std::int32_t id = 0;
  std::int32_t count = 0;
  std::int64_t size = 0;
  std::uint32_t flags = 0;
  double price = 0;
  double weight = 0;
  std::string name;
  std::string path;
  std::string note;

  /// For the archives that ask a class for its fields.
  template <typename Archive>
  void serialize(Archive& archive, unsigned int = 0) {
    archive& id& count& size& flags& price& weight& name& path& note;
  }
};

inline std::vector<record> sample_records() {
  std::vector<record> records(100);
  for (std::size_t i = 0; i < records.size(); ++i) {
    const auto number = static_cast<std::int32_t>(i);
    records[i] = {number,
                  -number * 1000,
                  number * std::int64_t{123456789},
                  0xF0000000U + static_cast<std::uint32_t>(i),
                  number * 0.37,
                  1.0 / (number + 1),
                  "record " + std::to_string(i),
                  "/usr/share/orva/records/group " + std::to_string(i % 10) + "/record " + std::to_string(i),
                  std::string(i % 5 == 0 ? 200 : 0, 'n')};
  }
  return records;
}

}  // namespace orva_bench
