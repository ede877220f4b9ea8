/// Writes UTF-16 as the bytes of an encoding.
#pragma once

#include <memory>
#include <string>

#include "encoding.hpp"

namespace transcode {

class text_writer {
 public:
  virtual ~text_writer() = default;

  /// Appends the bytes of `text`, which has whole characters. What the encoding lacks becomes the nearest
  /// character or a question mark.
  virtual void write(orva::strings::ustring16::view text, std::string& bytes) = 0;

  /// The losses since the last call, at most one for each unit.
  virtual orva::strings::loss_list<orva::strings::encoding_loss> take_losses() = 0;
};

std::unique_ptr<text_writer> make_writer(const encoding& to);

}  // namespace transcode
