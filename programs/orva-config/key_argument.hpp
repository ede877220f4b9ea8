/// A key as the user writes it. As in a file, [] at its end names an array.
#pragma once

#include <string>
#include <utility>

namespace orva_config {

struct key_argument {
  explicit key_argument(std::string text) : name(std::move(text)), is_array(name.ends_with("[]")) {
    if (is_array) name.resize(name.size() - 2);
  }

  std::string name;
  bool is_array;
};

}  // namespace orva_config
