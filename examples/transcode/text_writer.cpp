#include "text_writer.hpp"

#include <cstdint>
#include <utility>

#include "utf16.hpp"

namespace transcode {

namespace {

using orva::strings::encoding_loss;
using orva::strings::loss_kind;
using orva::strings::loss_list;
using orva::strings::ustring16;

class page_writer : public text_writer {
 public:
  explicit page_writer(const orva::strings::code_page& page) : encoder_(page) {}

  void write(ustring16::view text, std::string& bytes) override { encoder_.encode(text, bytes); }
  loss_list<encoding_loss> take_losses() override { return encoder_.take_losses(); }

 private:
  orva::strings::basic_page_encoder<orva::strings::code_unit16> encoder_;
};

class ascii_writer : public text_writer {
 public:
  void write(ustring16::view text, std::string& bytes) override {
    while (!text.empty()) {
      const std::size_t before = text.size();
      const char32_t character = take_character(text);
      const std::size_t size = before - text.size();
      if (character >= 0x80) add_loss(character, size);
      bytes.push_back(character < 0x80 ? static_cast<char>(character) : '?');
      units_read_ += size;
      ++bytes_written_;
    }
  }

  loss_list<encoding_loss> take_losses() override { return std::exchange(losses_, {}); }

 private:
  void add_loss(char32_t character, std::size_t size) {
    losses_.first.push_back({loss_kind::missing, units_read_, size, character, bytes_written_, "?"});
    ++losses_.count;
  }

  std::uint64_t units_read_ = 0;
  std::uint64_t bytes_written_ = 0;
  loss_list<encoding_loss> losses_;
};

void append_number(std::string& bytes, std::uint32_t value, unsigned size, bool is_big_endian) {
  for (unsigned i = 0; i < size; ++i) {
    const unsigned shift = 8 * (is_big_endian ? size - 1 - i : i);
    bytes.push_back(static_cast<char>(value >> shift & 0xFF));
  }
}

/// UTF-16 and UTF-32 have every character.
class unicode_writer : public text_writer {
 public:
  unicode_writer(encoding_form form, bool is_big_endian) : form_(form), is_big_endian_(is_big_endian) {}

  void write(ustring16::view text, std::string& bytes) override {
    if (form_ == encoding_form::utf16) {
      for (const auto unit : text) append_number(bytes, static_cast<std::uint16_t>(unit), 2, is_big_endian_);
    } else {
      while (!text.empty()) append_number(bytes, take_character(text), 4, is_big_endian_);
    }
  }

  loss_list<encoding_loss> take_losses() override { return {}; }

 private:
  encoding_form form_;
  bool is_big_endian_;
};

}  // namespace

std::unique_ptr<text_writer> make_writer(const encoding& to) {
  if (to.form == encoding_form::page) return std::make_unique<page_writer>(to.page);
  if (to.form == encoding_form::ascii) return std::make_unique<ascii_writer>();
  return std::make_unique<unicode_writer>(to.form, to.is_big_endian);
}

}  // namespace transcode
