#include "progress_bar.hpp"

#include <algorithm>
#include <iomanip>
#include <iostream>
#include <string>

namespace transcode {

namespace {

constexpr std::size_t width = 40;
constexpr std::chrono::milliseconds long_work{500};

}  // namespace

progress_bar::progress_bar(progress_mode mode, std::optional<std::uint64_t> size)
    : mode_(mode), size_(size) {}

bool progress_bar::is_due() const {
  if (mode_ == progress_mode::for_long_work) return std::chrono::steady_clock::now() - start_ >= long_work;
  return mode_ == progress_mode::always;
}

void progress_bar::show(std::uint64_t done) {
  if (!is_due()) return;
  // A file may have become longer or shorter since its size was asked for.
  const std::uint64_t step = size_ ? (*size_ == 0 ? 100 : std::min(done, *size_) * 100 / *size_) : done >> 20;
  if (drawn_ == step) return;
  draw(step);
  drawn_ = step;
}

void progress_bar::draw(std::uint64_t step) const {
  if (!size_) {
    std::cerr << '\r' << step << " MB" << std::flush;
    return;
  }
  const auto filled = static_cast<std::size_t>(step) * width / 100;
  std::cerr << "\r[" << std::string(filled, '#') << std::string(width - filled, '.') << "] " << std::setw(3)
            << step << " %" << std::flush;
}

void progress_bar::clear() {
  if (drawn_) std::cerr << '\r' << std::string(width + 10, ' ') << '\r';
  drawn_.reset();
}

void progress_bar::end() {
  if (drawn_) std::cerr << '\n';
  drawn_.reset();
}

}  // namespace transcode
