/// Reads the bytes of an encoding in pieces of any size, as UTF-16.
#pragma once

#include <memory>
#include <string_view>

#include "encoding.hpp"

namespace transcode {

class text_reader {
 public:
  virtual ~text_reader() = default;

  /// Appends whole characters; bytes of a character that the piece cuts are kept. Bad bytes become U+FFFD or
  /// what the library puts in their place.
  virtual void read(std::string_view bytes, orva::strings::wide_string& text) = 0;

  /// Appends the replacement of a character that the end of the file cuts.
  virtual void finish(orva::strings::wide_string& text) = 0;

  /// The losses since the last call. A piece of n bytes has at most n, and three more.
  virtual orva::strings::loss_list<orva::strings::decoding_loss> take_losses() = 0;
};

std::unique_ptr<text_reader> make_reader(const encoding& from);

}  // namespace transcode
