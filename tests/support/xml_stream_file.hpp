/// `xml_stream_file`: a file that a test rewrites again and again for a streaming parser.
#pragma once

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <ios>
#include <stdexcept>
#include <string>
#include <string_view>

#include "tests/support/entries.hpp"
#include "tests/support/temporary_directory.hpp"

namespace orva_test {

class xml_stream_file {
 public:
  xml_stream_file() { write({}); }
  explicit xml_stream_file(std::string_view contents) { write(contents); }

  const std::string& path() const { return path_; }

  /// Makes the contents the whole file. It stays open and is not emptied first: some file systems write a
  /// file that was emptied to the disk at once, and a test rewrites its file thousands of times.
  void write(std::string_view contents) const {
    if (!stream_.is_open()) open();
    put(contents, 0);
    if (contents.size() < size_) truncate(contents.size());
    size_ = contents.size();
  }
  void append(std::string_view more) const {
    put(more, size_);
    size_ += more.size();
  }
  void truncate(std::size_t size) const { std::filesystem::resize_file(path_of(path_), size_ = size); }
  void remove() const {
    stream_.close();
    std::filesystem::remove(path_of(path_));
  }

  /// Renames the file and puts a link to it in its place. False if the system has no links.
  bool swap_for_link() const {
    const std::string target = path_ + ".target";
    stream_.close();
    std::filesystem::rename(path_of(path_), path_of(target));
    return make_link(target, path_);
  }

 private:
  void open() const {
    stream_.open(path_of(path_), std::ios::binary | std::ios::in | std::ios::out | std::ios::trunc);
    size_ = 0;
  }

  void put(std::string_view contents, std::size_t at) const {
    stream_.seekp(static_cast<std::streamoff>(at));
    stream_.write(contents.data(), static_cast<std::streamsize>(contents.size()));
    if (!stream_.flush()) throw std::runtime_error("could not write " + path_);
  }

  temporary_directory directory_;
  std::string path_ = directory_.file("feed.xml");
  mutable std::fstream stream_;
  mutable std::size_t size_ = 0;
};

}  // namespace orva_test
