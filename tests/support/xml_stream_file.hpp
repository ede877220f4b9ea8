/// `xml_stream_file`: a file that a test rewrites again and again for a streaming parser.
#pragma once

#include <filesystem>
#include <fstream>
#include <ios>
#include <stdexcept>
#include <string>
#include <string_view>

#include "tests/support/temporary_directory.hpp"

namespace orva_test {

class xml_stream_file {
 public:
  xml_stream_file() { write({}); }
  explicit xml_stream_file(std::string_view contents) { write(contents); }

  const std::string& path() const { return path_; }

  /// Makes the contents the whole file. It is not emptied first, which some file systems answer by writing to the disk at
  /// once: a test rewrites its file thousands of times.
  void write(std::string_view contents) const {
    if (!std::filesystem::exists(path_)) std::ofstream{path_};
    put(contents, std::ios::in | std::ios::out);
    truncate(contents.size());
  }
  void append(std::string_view more) const { put(more, std::ios::app); }
  void truncate(std::size_t size) const { std::filesystem::resize_file(path_, size); }
  void remove() const { std::filesystem::remove(path_); }

  /// A link stands in the file's place, and the file beside it.
  void swap_for_link() const {
    const std::string target = path_ + ".target";
    std::filesystem::rename(path_, target);
    std::filesystem::create_symlink(target, path_);
  }

 private:
  void put(std::string_view contents, std::ios::openmode mode) const {
    std::ofstream stream(path_, std::ios::binary | mode);
    stream.write(contents.data(), static_cast<std::streamsize>(contents.size()));
    if (!stream.flush()) throw std::runtime_error("could not write " + path_);
  }

  temporary_directory directory_;
  std::string path_ = directory_.file("feed.xml");
};

}  // namespace orva_test
