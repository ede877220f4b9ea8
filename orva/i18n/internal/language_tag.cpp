#include "orva/i18n/internal/language_tag.hpp"

#include <algorithm>

#include "orva/strings/split.hpp"

namespace ORVA_NAMESPACE::i18n::_private {

using strings::ustring8;
using types::uint32;

namespace {

constexpr std::string_view neutral = ".";
constexpr std::string_view english = "en";
constexpr uint32 fixed_tags = 2;

}  // namespace

ustring8 normalized_language_tag(std::string_view tag) {
  ustring8 result(tag);
  if (result.size() == 1) return result;
  std::replace_if(
      result.begin(), result.end(), [](char c) { return c == '.' || c == '-'; }, '_');
  return result;
}

accepted_languages::accepted_languages(std::string_view language)
    : accepts_fixed_tags_(true), language_(normalized_language_tag(language)) {
  if (language_.empty()) return;
  std::size_t size = 0;
  for (const ustring8& part : strings::split_string(language_, "_", 0)) {
    const bool first = prefix_sizes_.empty() && size == 0;
    size += part.size();
    if (!(first && part == english)) prefix_sizes_.push_back(size);
    ++size;  // the separator
  }
}

uint32 accepted_languages::weight(std::string_view tag) const {
  const uint32 exact = position(tag);
  return exact != 0 ? exact : position(normalized_language_tag(tag));
}

uint32 accepted_languages::position(std::string_view tag) const {
  if (!accepts_fixed_tags_) return 0;
  if (tag == neutral) return 1;
  if (tag == english) return 2;
  // Each prefix has a length of its own.
  const auto found = std::lower_bound(prefix_sizes_.begin(), prefix_sizes_.end(), tag.size());
  if (found == prefix_sizes_.end() || *found != tag.size()) return 0;
  if (std::string_view(language_).substr(0, tag.size()) != tag) return 0;
  return fixed_tags + 1 + static_cast<uint32>(found - prefix_sizes_.begin());
}

}  // namespace ORVA_NAMESPACE::i18n::_private
