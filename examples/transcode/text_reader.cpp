#include "text_reader.hpp"

#include <cstdint>
#include <string>
#include <utility>

#include "utf16.hpp"

namespace transcode {

namespace {

using orva::strings::decoding_loss;
using orva::strings::loss_kind;
using orva::strings::loss_list;
using orva::strings::wide_string;

class page_reader : public text_reader {
 public:
  explicit page_reader(const orva::strings::code_page& page) : decoder_(page) {}

  void read(std::string_view bytes, wide_string& text) override { decoder_.decode(bytes, text); }
  void finish(wide_string& text) override { decoder_.finish(text); }
  loss_list<decoding_loss> take_losses() override { return decoder_.take_losses(); }

 private:
  orva::strings::basic_page_decoder<orva::strings::code_unit16> decoder_;
};

/// The character that some bytes begin with. 0 bytes: more of them are needed.
struct found_character {
  std::size_t size = 0;
  char32_t code_point = replacement_character;
  bool is_bad = false;
};

std::uint32_t number_in(std::string_view bytes, bool is_big_endian) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const std::size_t next = is_big_endian ? i : bytes.size() - 1 - i;
    value = value << 8 | static_cast<unsigned char>(bytes[next]);
  }
  return value;
}

found_character next_in_ascii(std::string_view bytes, bool) {
  const auto byte = static_cast<unsigned char>(bytes.front());
  if (byte < 0x80) return {1, byte};
  return {.size = 1, .is_bad = true};
}

found_character next_in_utf16(std::string_view bytes, bool is_big_endian) {
  if (bytes.size() < 2) return {};
  const char32_t unit = number_in(bytes.substr(0, 2), is_big_endian);
  if (!is_surrogate(unit)) return {2, unit};
  if (is_low_surrogate(unit)) return {.size = 2, .is_bad = true};
  if (bytes.size() < 4) return {};
  const char32_t second = number_in(bytes.substr(2, 2), is_big_endian);
  if (!is_low_surrogate(second)) return {.size = 2, .is_bad = true};
  return {4, joined(unit, second)};
}

found_character next_in_utf32(std::string_view bytes, bool is_big_endian) {
  if (bytes.size() < 4) return {};
  const char32_t value = number_in(bytes.substr(0, 4), is_big_endian);
  if (value > 0x10FFFF || is_surrogate(value)) return {.size = 4, .is_bad = true};
  return {4, value};
}

using next_function = found_character (*)(std::string_view, bool);

class unicode_reader : public text_reader {
 public:
  unicode_reader(next_function next, bool is_big_endian) : next_(next), is_big_endian_(is_big_endian) {}

  void read(std::string_view bytes, wide_string& text) override {
    rest_.append(bytes);
    const std::string_view all = rest_;
    std::size_t at = 0;
    while (at < all.size()) {
      const auto found = next_(all.substr(at), is_big_endian_);
      if (found.size == 0) break;
      add(found, all.substr(at, found.size), loss_kind::malformed, text);
      at += found.size;
    }
    rest_.erase(0, at);
  }

  void finish(wide_string& text) override {
    if (!rest_.empty()) add({.size = rest_.size(), .is_bad = true}, rest_, loss_kind::cut, text);
    rest_.clear();
  }

  loss_list<decoding_loss> take_losses() override { return std::exchange(losses_, {}); }

 private:
  void add(const found_character& found, std::string_view bytes, loss_kind kind, wide_string& text) {
    const std::size_t before = text.size();
    if (found.is_bad) {
      losses_.first.push_back({kind, bytes_read_, std::string(bytes), units_written_, found.code_point});
      ++losses_.count;
    }
    append_character(text, found.code_point);
    bytes_read_ += bytes.size();
    units_written_ += text.size() - before;
  }

  next_function next_;
  bool is_big_endian_;
  std::string rest_;
  std::uint64_t bytes_read_ = 0;
  std::uint64_t units_written_ = 0;
  loss_list<decoding_loss> losses_;
};

}  // namespace

std::unique_ptr<text_reader> make_reader(const encoding& from) {
  switch (from.form) {
    case encoding_form::ascii:
      return std::make_unique<unicode_reader>(next_in_ascii, false);
    case encoding_form::utf16:
      return std::make_unique<unicode_reader>(next_in_utf16, from.is_big_endian);
    case encoding_form::utf32:
      return std::make_unique<unicode_reader>(next_in_utf32, from.is_big_endian);
    case encoding_form::page:
      break;
  }
  return std::make_unique<page_reader>(from.page);
}

}  // namespace transcode
