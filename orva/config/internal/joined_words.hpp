/// Words as people list them: "fast, small".
///
/// Internal: not installed.
#pragma once

#include <functional>
#include <string>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::config::_private {

/// Each word as `show` gives it.
template <typename Words, typename Show = std::identity>
std::string joined(const Words& words, Show show = {}) {
  std::string text;
  for (const auto& word : words) {
    if (!text.empty()) text += ", ";
    text += show(word);
  }
  return text;
}

}  // namespace ORVA_NAMESPACE::config::_private
