#include "report.hpp"

#include <cstdio>
#include <iostream>
#include <string_view>

#include "utf16.hpp"

namespace transcode {

namespace {

using orva::strings::decoding_loss;
using orva::strings::encoding_loss;
using orva::strings::loss_kind;

const char* name_of(loss_kind kind) {
  switch (kind) {
    case loss_kind::best_fit:
      return "best_fit";
    case loss_kind::missing:
      return "missing";
    case loss_kind::undefined:
      return "undefined";
    case loss_kind::malformed:
      return "malformed";
    case loss_kind::cut:
      return "cut";
  }
  return "";
}

template <typename... Arguments>
std::string formatted(const char* format, Arguments... arguments) {
  char text[32];
  std::snprintf(text, sizeof text, format, arguments...);
  return text;
}

/// Controls, private characters and characters without a form are not shown.
bool can_be_shown(char32_t character) {
  if (character < 0x20 || (character >= 0x7F && character < 0xA0)) return false;
  if (character >= 0xE000 && character < 0xF900) return false;
  return (character & 0xFFFE) != 0xFFFE && character < 0xE0000 && !is_surrogate(character);
}

std::string in_utf8(char32_t character) {
  orva::strings::wide_string text;
  append_character(text, character);
  return orva::strings::utf16_to_utf8(text);
}

/// "U+0416 (Ж)"
std::string shown(char32_t character) {
  const std::string number = formatted("U+%04lX", static_cast<unsigned long>(character));
  return can_be_shown(character) ? number + " (" + in_utf8(character) + ")" : number;
}

/// "0xE2 0x82"
std::string shown(std::string_view bytes) {
  std::string result;
  for (const char byte : bytes) {
    if (!result.empty()) result += ' ';
    result += formatted("0x%02X", static_cast<unsigned>(static_cast<unsigned char>(byte)));
  }
  return result;
}

bool is_shown_as_text(std::string_view bytes) {
  for (const char byte : bytes) {
    if (byte < 0x20 || byte >= 0x7F) return false;
  }
  return true;
}

/// "0x41 (A)"
std::string shown_written(const std::string& bytes) {
  return is_shown_as_text(bytes) ? shown(bytes) + " (" + bytes + ")" : shown(bytes);
}

}  // namespace

void report::add(const place& at, std::uint64_t byte, const decoding_loss& loss, const encoding& from,
                 const std::string& written) {
  if (!count(name_of(loss.kind))) return;
  std::string text = shown(loss.bytes) + " at byte " + std::to_string(byte);
  text +=
      loss.kind == loss_kind::cut ? " is cut off by the end of the file" : " is no character of " + from.name;
  text += ", read as " + shown(loss.read_as);
  if (!written.empty()) text += ", written as " + shown_written(written);
  print(at, text, name_of(loss.kind));
}

void report::add(const place& at, const encoding_loss& loss, const encoding& to) {
  if (!count(name_of(loss.kind))) return;
  print(at, shown(loss.character) + " is not in " + to.name + ", written as " + shown_written(loss.written),
        name_of(loss.kind));
}

void report::note(const std::string& text) {
  before_line_();
  std::cerr << file_ << ": note: " << text << '\n';
}

void report::summarize() {
  if (losses_ == 0) return;
  before_line_();
  std::cerr << file_ << ": " << losses_ << (losses_ == 1 ? " loss" : " losses");
  char separator = ':';
  for (const auto& [kind, number] : by_kind_) {
    std::cerr << separator << ' ' << number << ' ' << kind;
    separator = ',';
  }
  if (losses_ > limit_) std::cerr << "; the first " << limit_ << " are listed";
  std::cerr << '\n';
}

/// Returns whether the loss is listed.
bool report::count(const char* kind) {
  ++by_kind_[kind];
  return ++losses_ <= limit_;
}

void report::print(const place& at, const std::string& text, const char* kind) {
  before_line_();
  std::cerr << file_ << ':' << at.line << ':' << at.column << ": warning: " << text << " [" << kind << "]\n";
}

}  // namespace transcode
