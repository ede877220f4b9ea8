#include "orva/config/setting_type.hpp"

#include <algorithm>
#include <cmath>
#include <utility>

#include "orva/internal/raise.hpp"

namespace ORVA_NAMESPACE::config {

namespace {

bool are_distinct_words(std::vector<strings::ustring8> words) {
  std::sort(words.begin(), words.end());
  if (words.empty() || words.front().empty()) return false;
  if (std::adjacent_find(words.begin(), words.end()) != words.end()) return false;
  return std::none_of(words.begin(), words.end(),
                      [](const auto& word) { return word.find(',') != word.npos; });
}

}  // namespace

setting_type flag() { return setting_type(value_kind::flag); }

setting_type integer_between(std::int64_t min, std::int64_t max) {
  if (min > max) {
    ORVA_RAISE(exceptions::invalid_argument_value, "No integer is in the range of the setting",
               ORVA_QUALIFIED("config::integer_between"));
  }
  setting_type type(value_kind::integer);
  type.integers_ = {min, max};
  return type;
}

setting_type number_between(double min, double max) {
  if (!std::isfinite(min) || !std::isfinite(max) || min > max) {
    ORVA_RAISE(exceptions::invalid_argument_value, "No range of finite numbers",
               ORVA_QUALIFIED("config::number_between"));
  }
  setting_type type(value_kind::number);
  type.numbers_ = {min, max};
  return type;
}

setting_type text() { return setting_type(value_kind::text); }

setting_type one_of(std::vector<strings::ustring8> words) {
  if (!are_distinct_words(words)) {
    ORVA_RAISE(exceptions::invalid_argument_value,
               "The words of a choice are empty, repeated or have a comma", ORVA_QUALIFIED("config::one_of"));
  }
  setting_type type(value_kind::choice);
  type.choices_ = std::move(words);
  return type;
}

setting_type file_path() { return setting_type(value_kind::path); }

setting_type byte_size() { return setting_type(value_kind::size); }

setting_type duration() { return setting_type(value_kind::duration); }

setting_type list_of(setting_type element) {
  if (element.is_list_ || element.kind_ == value_kind::flag) {
    ORVA_RAISE(exceptions::invalid_argument_value, "A list has elements that are neither lists nor flags",
               ORVA_QUALIFIED("config::list_of"));
  }
  element.is_list_ = true;
  return element;
}

}  // namespace ORVA_NAMESPACE::config
