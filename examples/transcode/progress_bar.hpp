/// [##########..............................]  25 %
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

namespace transcode {

enum class progress_mode { never, for_long_work, always };

/// Drawn on standard error. Without a size it counts megabytes.
class progress_bar {
 public:
  progress_bar(progress_mode mode, std::optional<std::uint64_t> size);
  ~progress_bar() { end(); }
  progress_bar(const progress_bar&) = delete;
  progress_bar& operator=(const progress_bar&) = delete;

  void show(std::uint64_t done);
  /// Removes the bar, so that a line of text can take its place; the next `show` draws it again.
  void clear();
  /// Leaves the bar and ends its line.
  void end();

 private:
  bool is_due() const;
  void draw(std::uint64_t step) const;

  progress_mode mode_;
  std::optional<std::uint64_t> size_;
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
  std::optional<std::uint64_t> drawn_;
};

}  // namespace transcode
