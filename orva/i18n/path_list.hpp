/// `path_list`: a parameter that takes several paths, from a vector of any text type or of
/// `std::filesystem::path`.
///
///     result = catalogs.load(std::vector<std::string>{"messages", "plugins/messages"}, "de_DE");
///     result = catalogs.load(std::vector<strings::ustring16>{directory, file}, "de_DE");
///
/// It converts implicitly from the vector and copies the paths as UTF-8.
#pragma once

#include <vector>

#include "orva/strings/text_argument.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/strings/ustring_for.hpp"

namespace ORVA_NAMESPACE::i18n {

class path_list {
 public:
  template <typename Text>
  path_list(const std::vector<Text>& paths) requires strings::any_text<Text> || strings::file_path<Text> {
    paths_.reserve(paths.size());
    for (const Text& path : paths) paths_.push_back(strings::text_argument(path).get());
  }

  auto begin() const noexcept { return paths_.begin(); }
  auto end() const noexcept { return paths_.end(); }

 private:
  std::vector<strings::ustring8> paths_;
};

}  // namespace ORVA_NAMESPACE::i18n
