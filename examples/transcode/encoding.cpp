#include "encoding.hpp"

#include <array>

namespace transcode {

namespace {

using orva::strings::byte_order_mark_in;
using orva::strings::code_page;
using orva::strings::unicode_encoding;

struct unicode_name {
  std::string_view name;
  std::string_view label;
  encoding_form form;
  bool is_big_endian;
  bool has_mark;
};

/// Without a mark, files of UTF-16 and UTF-32 are mostly in little-endian order.
constexpr unicode_name unicode_names[] = {{"UTF-16", "utf-16", encoding_form::utf16, false, true},
                                          {"UTF-16LE", "utf-16le", encoding_form::utf16, false, false},
                                          {"UTF-16BE", "utf-16be", encoding_form::utf16, true, false},
                                          {"UTF-32", "utf-32", encoding_form::utf32, false, true},
                                          {"UTF-32LE", "utf-32le", encoding_form::utf32, false, false},
                                          {"UTF-32BE", "utf-32be", encoding_form::utf32, true, false}};

/// The library reads ASCII as a part of windows-1252. A converter must not write more than ASCII.
constexpr std::string_view ascii_labels[] = {
    "us-ascii", "ansi_x3.4-1968", "ansi_x3.4-1986",   "ascii", "cp367", "csascii", "ibm367",
    "iso-ir-6", "iso646-us",      "iso_646.irv:1991", "us"};

struct system_page {
  std::string_view label;
  code_page::encoding_type type;
};

constexpr system_page system_pages[] = {{"ansi", code_page::ansi}, {"oem", code_page::oem}};

bool is_ascii(std::string_view label) {
  for (const auto known : ascii_labels) {
    if (label == known) return true;
  }
  return false;
}

encoding ascii() { return {.name = "US-ASCII", .form = encoding_form::ascii, .page = {}}; }

encoding of_page(std::string name, code_page page) { return {.name = std::move(name), .page = page}; }

encoding of_unicode(const unicode_name& known) {
  return {.name = std::string(known.name),
          .form = known.form,
          .page = {},
          .is_big_endian = known.is_big_endian,
          .has_mark = known.has_mark};
}

unicode_encoding mark_encoding(encoding_form form, bool is_big_endian) {
  if (form == encoding_form::utf16)
    return is_big_endian ? unicode_encoding::utf16_big_endian : unicode_encoding::utf16_little_endian;
  return is_big_endian ? unicode_encoding::utf32_big_endian : unicode_encoding::utf32_little_endian;
}

bool remove_prefix(std::string_view& bytes, std::string_view prefix) {
  if (prefix.empty() || !bytes.starts_with(prefix)) return false;
  bytes.remove_prefix(prefix.size());
  return true;
}

}  // namespace

std::optional<encoding> find_encoding(std::string_view label) {
  const std::string lower = orva::strings::to_lower(label);
  if (is_ascii(lower)) return ascii();
  for (const auto& known : unicode_names) {
    if (lower == known.label) return of_unicode(known);
  }
  for (const auto& known : system_pages) {
    if (lower == known.label) return of_page(std::string(known.label), known.type);
  }
  const auto page = orva::strings::find_code_page(label);
  if (!page) return std::nullopt;
  return of_page(std::string(orva::strings::code_page_name(*page)), *page);
}

std::vector<listed_encoding> all_encodings() {
  std::vector<listed_encoding> result;
  for (const auto& known : unicode_names) result.push_back({std::string(known.name), {known.label}});
  result.push_back({"US-ASCII", {std::begin(ascii_labels), std::end(ascii_labels)}});
  for (const auto& page : orva::strings::known_code_pages()) {
    listed_encoding listed{std::string(page.name), {}};
    for (const auto label : page.labels) {
      if (!is_ascii(label)) listed.labels.push_back(label);
    }
    result.push_back(std::move(listed));
  }
  for (const auto& known : system_pages) result.push_back({std::string(known.label), {known.label}});
  return result;
}

void take_mark(encoding& of, std::string_view& bytes) {
  if (remove_prefix(bytes, mark_of(of)) || !of.has_mark) return;
  encoding other = of;
  other.is_big_endian = !of.is_big_endian;
  if (remove_prefix(bytes, mark_of(other))) of = other;
}

std::string_view mark_of(const encoding& of) {
  if (of.form == encoding_form::utf16 || of.form == encoding_form::utf32)
    return byte_order_mark_in(mark_encoding(of.form, of.is_big_endian));
  const bool is_utf8 = of.form == encoding_form::page && orva::strings::code_page_name(of.page) == "UTF-8";
  return is_utf8 ? byte_order_mark_in(unicode_encoding::utf8) : std::string_view();
}

std::string_view marked_encoding(std::string_view bytes) {
  const auto mark = orva::strings::byte_order_mark_of(bytes);
  if (!mark) return {};
  switch (mark->encoding) {
    case unicode_encoding::utf8:
      return "UTF-8";
    case unicode_encoding::utf16_little_endian:
      return "UTF-16LE";
    case unicode_encoding::utf16_big_endian:
      return "UTF-16BE";
    case unicode_encoding::utf32_little_endian:
      return "UTF-32LE";
    case unicode_encoding::utf32_big_endian:
      return "UTF-32BE";
  }
  return {};
}

}  // namespace transcode
