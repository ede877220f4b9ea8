#include "orva/i18n/xmc_file_loader.hpp"

#include <utility>

#include "orva/exceptions/exception.hpp"
#include "orva/i18n/internal/xmc_tokens.hpp"
#include "orva/system/file_utility.hpp"
#include "orva/system/io.hpp"

namespace ORVA_NAMESPACE::i18n::_private {

using parser::xml_parser;
using strings::text_argument;
using strings::ustring8;
using types::uint32;

namespace {

/// The path up to and including its last separator. Both `/` and `\` are separators on all platforms, so that
/// the same files can be read on each.
ustring8 directory_of(const ustring8& file) {
  const auto separator = file.find_last_of("/\\");
  return separator == file.npos ? ustring8("./") : file.substr(0, separator + 1);
}

bool is_absolute(const ustring8& path) {
  if (path.starts_with('/') || path.starts_with('\\')) return true;
  return path.size() >= 3 && path[1] == ':';
}

/// Restores a variable's value at the end of the scope.
template <typename Value>
class scoped_restore {
 public:
  explicit scoped_restore(Value& variable) : variable_(variable), value_(variable) {}
  scoped_restore(const scoped_restore&) = delete;
  scoped_restore& operator=(const scoped_restore&) = delete;
  ~scoped_restore() { variable_ = std::move(value_); }

 private:
  Value& variable_;
  Value value_;
};

}  // namespace

load_error xmc_file_loader::parse(const text_argument& file) {
  handle_language("");
  included_files_ = 0;
  return parse_file(file);
}

load_error xmc_file_loader::parse(const text_argument& file, const text_argument& language) {
  if (language.get().empty()) return {no_default_locale, ""};
  handle_language(language);
  included_files_ = 0;
  return parse_file(file);
}

load_error xmc_file_loader::parse(const text_argument& file, const text_argument& language,
                                  const text_argument& catalog) {
  if (!language.get().empty()) catalog_id_ = catalog;
  return parse(file, language);
}

load_error xmc_file_loader::parse_file(const text_argument& name) {
  const ustring8& file = name.get();
  if (!system::io::exists(file)) return {file_not_found, file};
  base_directory_ = directory_of(file);
  const auto read = [&] {
    ustring8 text;
    // A file that cannot be read is an empty text, which has its own error.
    static_cast<void>(system::load_file(file, text));
    parse_text(text);
  };
  return result_of(read, file);
}

load_error xmc_file_loader::parse_string(const ustring8& text, const text_argument& file) {
  return result_of([&] { parse_text(text); }, file.get());
}

/// Calls `read` and returns its exception, if any, as an error in `file`.
template <typename Read>
load_error xmc_file_loader::result_of(Read read, const ustring8& file) {
  load_error failure;
  try {
    read();
    return data_.empty() ? load_error(load_error::no_catalog, file) : load_error();
  } catch (const load_error& error) {
    failure = error;
  } catch (const exceptions::exception&) {
    // A character reference above 255, or a file that is larger than a string can hold.
    failure = load_error(load_error::unexpected_parse_error, "");
  }
  failure.append_error_stack(load_error::in_file, file);
  return failure;
}

void xmc_file_loader::parse_text(const ustring8& text) {
  internal::xml_view_tokens tokens;
  const xml_parser::parse_error error = tokens.parse(text);
  if (error.type != xml_parser::parse_error::no_error) throw load_error(load_error::xml_parse_error, error);
  parse_document(tokens.begin(), tokens.end());
}

template <typename Iterator>
void xmc_file_loader::parse_document(Iterator it, Iterator end) {
  parse_ignorable(it, end);
  if (it == end) throw load_error(load_error::unexpected_parse_error, "Nothing of interest in the file.");
  parse_xmc_header(it, end);
  parse_ignorable(it, end);
  for (; it != end && !xmc::is_end_of(it, end, "xmc"); parse_ignorable(it, end)) {
    if (xmc::is_start_of(*it, "catalog")) {
      parse_catalog(it, end);
    } else if (xmc::is_start_of(*it, "include")) {
      parse_include(it, end);
    } else {
      throw xmc::error_at(it, load_error::invalid_element);
    }
  }
}

template <typename Iterator>
void xmc_file_loader::parse_xmc_header(Iterator& it, Iterator end) {
  xmc::require_token(it, end);
  if (!xmc::is_start_of(*it, "xmc")) throw xmc::error_at(it, load_error::not_xmc_file);
  bool versioned = false;
  xmc::read_attributes(++it, end, [&](Iterator name, Iterator value) {
    if (versioned || !xmc::is_named(name, "version")) return false;
    if (value->value() != "1.1" && value->value() != "1.0")
      throw xmc::error_at(value, load_error::unsupported_version);
    return versioned = true;
  });
  if (!versioned) throw load_error(load_error::invalid_attribute, "");
}

template <typename Iterator>
void xmc_file_loader::parse_include(Iterator& it, Iterator end) {
  ustring8 file;
  xmc::read_attributes(++it, end, [&](Iterator name, Iterator value) {
    if (!xmc::is_named(name, "file")) return false;
    file = xmc::take_value(value);
    return true;
  });
  if (file.empty()) throw load_error(load_error::invalid_attribute, "file");
  parse_included_file(is_absolute(file) ? file : base_directory_ + file);
  if (!xmc::is_end_of(it, end, "include")) throw load_error(load_error::include_end_missing, "");
  ++it;
}

void xmc_file_loader::parse_included_file(const ustring8& file) {
  if (include_depth_ == max_include_depth || included_files_ == max_included_files) {
    throw load_error(load_error::invalid_element, file);
  }
  const scoped_restore directory(base_directory_);
  const scoped_restore depth(include_depth_);
  ++include_depth_;
  ++included_files_;
  const load_error error = parse_file(file);
  if (error.type() != no_error) throw error;
}

template <typename Iterator>
void xmc_file_loader::parse_ignorable(Iterator& it, Iterator end) {
  const auto is_ignorable = [](token::token_type type) {
    return type == token::comment || type == token::space || type == token::character;
  };
  while (it != end && is_ignorable(it->type())) ++it;
}

template ORVA_API void xmc_file_loader::parse_xmc_header(xmc::token_iterator&, xmc::token_iterator);
template ORVA_API void xmc_file_loader::parse_include(xmc::token_iterator&, xmc::token_iterator);
template ORVA_API void xmc_file_loader::parse_ignorable(xmc::token_iterator&, xmc::token_iterator);
template ORVA_API void xmc_file_loader::parse_ignorable(xmc::view_iterator&, xmc::view_iterator);

void xmc_file_loader::reset() { data_.clear(); }

void xmc_file_loader::handle_language(const text_argument& language) {
  languages_ = accepted_languages(language.get());
}

uint32 xmc_file_loader::get_locale_weight(const text_argument& language) const {
  return languages_.weight(language.get());
}

bool xmc_file_loader::is_catalog_matched(const text_argument& name) const {
  return !is_cat_id_set() || catalog_id_ == name.get();
}

// On Windows a program that refers to them by their addresses imports them.
constexpr types::uint32 xmc_file_loader::max_include_depth;
constexpr types::uint32 xmc_file_loader::max_included_files;

}  // namespace ORVA_NAMESPACE::i18n::_private
