/// Converts a file of any size in constant memory, and reports what is lost and where.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "encoding.hpp"
#include "report.hpp"
#include "text_reader.hpp"
#include "text_writer.hpp"

namespace transcode {

class conversion {
 public:
  /// `with_mark`: a file in a Unicode encoding begins with its byte order mark.
  conversion(const encoding& from, const encoding& to, bool with_mark, report& report);

  /// Appends what the next bytes of the file become. REQUIRES: the first call has the first four bytes, if
  /// the file has so many.
  void convert(std::string_view bytes, std::string& result);
  /// Appends what is left at the end of the file.
  void finish(std::string& result);

 private:
  void begin(std::string_view& bytes, std::string& result);
  void write_text(std::string& result);
  void report_losses();
  place place_of(std::uint64_t unit);
  void move_to(std::size_t unit);

  encoding from_;
  encoding to_;
  bool with_mark_;
  report& report_;
  bool has_begun_ = false;
  std::unique_ptr<text_reader> reader_;
  std::unique_ptr<text_writer> writer_;
  std::size_t mark_size_ = 0;

  /// The text of a slice, which begins at unit `text_begin_` of the whole, and a cursor in it.
  orva::strings::wide_string text_;
  std::uint64_t text_begin_ = 0;
  std::size_t cursor_ = 0;
  place place_;
};

}  // namespace transcode
