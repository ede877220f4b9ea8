/// The texts of the program in the language of its user.
///
/// English is built in. Other languages come from catalogs, which are in a folder beside the one of the
/// installed program: share/orva in the prefix. Without them, the program speaks English.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "orva/diagnostics/finding.hpp"
#include "orva/diagnostics/write.hpp"
#include "orva/generic/varg_list.hpp"
#include "orva/i18n/message_catalogs.hpp"
#include "orva/strings/ustring.hpp"

namespace orva_config {

/// The language that the variables LC_ALL, LC_MESSAGES and LANG ask for, the first that is not empty: "de_AT"
/// for "de_AT.UTF-8". "en" if there is none.
std::string language_of_environment();

class texts {
 public:
  /// `folder` has the folders of catalogs. A catalog that cannot be loaded is as one that is not there.
  texts(const std::filesystem::path& folder, std::string_view language);

  /// Whether there are texts in the language, or in a parent: "de" for "de_AT".
  bool speaks(std::string_view language) const;

  /// A text of the help, by its name. As `orva::config::text_lookup` has it.
  orva::strings::ustring8 help(std::string_view name, std::string_view english) const;
  orva::strings::ustring8 sentence(const orva::diagnostics::finding& found) const;

 private:
  orva::i18n::message_catalogs catalogs_;
};

/// A finding of the program itself. `code` is without the area. {name} in the English text is replaced by the
/// argument of that name.
orva::diagnostics::finding program_finding(orva::diagnostics::severity level, std::string_view code,
                                           std::string_view file, std::string_view english,
                                           orva::generic::varg_list arguments = {});

}  // namespace orva_config
