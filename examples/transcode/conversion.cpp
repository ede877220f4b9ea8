#include "conversion.hpp"

#include <algorithm>

#include "utf16.hpp"

namespace transcode {

namespace {

/// No slice has more losses than a list takes, so that each is reported and none twice.
constexpr std::size_t slice_size = orva::strings::max_losses / 2;

}  // namespace

conversion::conversion(const encoding& from, const encoding& to, bool with_mark, report& report)
    : from_(from), to_(to), with_mark_(with_mark), report_(report), writer_(make_writer(to)) {}

void conversion::begin(std::string_view& bytes, std::string& result) {
  has_begun_ = true;
  const std::string_view marked = marked_encoding(bytes);
  const std::size_t size = bytes.size();
  take_mark(from_, bytes);
  mark_size_ = size - bytes.size();
  if (!marked.empty() && mark_size_ == 0) {
    report_.note("it begins with the byte order mark of " + std::string(marked) + " and is read as " +
                 from_.name);
  }
  reader_ = make_reader(from_);
  if (with_mark_ || to_.has_mark) result += mark_of(to_);
}

void conversion::convert(std::string_view bytes, std::string& result) {
  if (!has_begun_) begin(bytes, result);
  for (; !bytes.empty(); bytes.remove_prefix(std::min(slice_size, bytes.size()))) {
    reader_->read(bytes.substr(0, slice_size), text_);
    write_text(result);
  }
}

void conversion::finish(std::string& result) {
  std::string_view nothing;
  if (!has_begun_) begin(nothing, result);
  reader_->finish(text_);
  write_text(result);
}

void conversion::write_text(std::string& result) {
  writer_->write(text_, result);
  report_losses();
  move_to(text_.size());
  text_begin_ += text_.size();
  text_.clear();
  cursor_ = 0;
}

/// Both lists are in the order of the text. Where what was read for bad bytes cannot be written, that is one
/// loss.
void conversion::report_losses() {
  const auto read = reader_->take_losses().first;
  const auto written = writer_->take_losses().first;
  auto next = written.begin();
  const auto report_written_before = [&](std::uint64_t unit) {
    for (; next != written.end() && next->place < unit; ++next)
      report_.add(place_of(next->place), *next, to_);
  };
  for (const auto& loss : read) {
    report_written_before(loss.result_place);
    const bool is_written_as_another = next != written.end() && next->place == loss.result_place;
    report_.add(place_of(loss.result_place), mark_size_ + loss.place, loss, from_,
                is_written_as_another ? next->written : std::string());
    if (is_written_as_another) ++next;
  }
  report_written_before(text_begin_ + text_.size());
}

/// Asked in rising order.
place conversion::place_of(std::uint64_t unit) {
  move_to(static_cast<std::size_t>(unit - text_begin_));
  return place_;
}

void conversion::move_to(std::size_t unit) {
  for (; cursor_ < unit; ++cursor_) {
    if (text_[cursor_] == '\n') {
      place_ = {place_.line + 1, 1};
    } else if (!is_low_surrogate(text_[cursor_])) {
      ++place_.column;
    }
  }
}

}  // namespace transcode
