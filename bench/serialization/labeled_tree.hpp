/// The content for the labeled benchmarks: a thousand values on three levels.
#pragma once

#include <map>
#include <string>

namespace orva_bench {

struct labeled_tree {
  std::map<std::string, std::string> values;
  std::map<std::string, labeled_tree> groups;
};

/// Ten groups of ten groups of ten values.
inline labeled_tree sample_tree() {
  labeled_tree root;
  for (int i = 0; i < 1000; ++i) {
    labeled_tree& outer = root.groups["section " + std::to_string(i / 100)];
    labeled_tree& inner = outer.groups["group " + std::to_string(i / 10 % 10)];
    inner.values["value " + std::to_string(i)] = std::to_string(i * 12345);
  }
  return root;
}

}  // namespace orva_bench
