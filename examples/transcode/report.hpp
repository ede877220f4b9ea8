/// The report of losses on standard error.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>

#include "encoding.hpp"

namespace transcode {

/// One place of a file. Line and column count from 1, columns in characters, a byte order mark not counted.
struct place {
  std::uint64_t line = 1;
  std::uint64_t column = 1;
};

class report {
 public:
  /// Lists `limit` losses and counts all. `before_line` is called before each line.
  report(std::string file, std::uint64_t limit, std::function<void()> before_line)
      : file_(std::move(file)), limit_(limit), before_line_(std::move(before_line)) {}

  /// Bytes that are no character of the encoding, at `byte` of the file. `written` is what they became: empty
  /// where that is the character that they were read as.
  void add(const place& at, std::uint64_t byte, const orva::strings::decoding_loss& loss,
           const encoding& from, const std::string& written);

  /// A character that the encoding lacks.
  void add(const place& at, const orva::strings::encoding_loss& loss, const encoding& to);

  /// Something to know that is no loss.
  void note(const std::string& text);

  /// The last line: how many losses there are of each kind. Nothing where there are none.
  void summarize();

  std::uint64_t losses() const { return losses_; }

 private:
  bool count(const char* kind);
  void print(const place& at, const std::string& text, const char* kind);

  std::string file_;
  std::uint64_t limit_;
  std::function<void()> before_line_;
  std::uint64_t losses_ = 0;
  std::map<std::string, std::uint64_t> by_kind_;
};

}  // namespace transcode
