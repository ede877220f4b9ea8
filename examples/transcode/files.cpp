#include "files.hpp"

#include <ios>
#include <iostream>
#include <random>
#include <sstream>
#include <system_error>

#include "terminal.hpp"

namespace transcode {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view standard_stream = "-";

/// A plain string would be taken for text in the code page of the machine, where it has one.
fs::path path_of(const std::string& utf8) { return std::u8string(utf8.begin(), utf8.end()); }

/// What a symbolic link leads to, so that the link stays one.
fs::path file_behind(const fs::path& name) {
  std::error_code error;
  const fs::path target = fs::canonical(name, error);
  return error ? name : target;
}

/// A name in the same directory, so that a rename does not copy. It does not contain the name of the file,
/// which may be as long as the system allows.
fs::path new_name_beside(const fs::path& target) {
  std::random_device random;
  std::ostringstream name;
  name << ".transcode-" << std::hex << random() << random() << ".tmp";
  return target.parent_path() / name.str();
}

}  // namespace

input::input(const std::string& name) {
  if (name == standard_stream) {
    make_streams_binary();
    stream_ = &std::cin;
    return;
  }
  const fs::path path = path_of(name);
  std::error_code error;
  if (fs::is_directory(path, error)) return;
  file_.open(path, std::ios::binary);
  if (!file_) return;
  stream_ = &file_;
  if (!fs::is_regular_file(path, error)) return;
  const auto size = fs::file_size(path, error);
  if (!error) size_ = size;
}

std::size_t input::read(std::string& to) {
  stream_->read(to.data(), static_cast<std::streamsize>(to.size()));
  failed_ = stream_->bad();
  return static_cast<std::size_t>(stream_->gcount());
}

output::output(const std::string& name) {
  if (name == standard_stream) {
    make_streams_binary();
    stream_ = &std::cout;
    return;
  }
  target_ = file_behind(path_of(name));
  std::error_code error;
  const auto status = fs::status(target_, error);
  if (!fs::exists(status) || fs::is_regular_file(status)) {
    open_beside();
  } else if (!fs::is_directory(status)) {
    file_.open(target_, std::ios::binary);
  }
  if (file_.is_open()) stream_ = &file_;
}

void output::open_beside() {
  const fs::path beside = new_name_beside(target_);
  std::error_code error;
  if (fs::exists(beside, error)) return;
  file_.open(beside, std::ios::binary);
  if (!file_.is_open()) return;
  beside_ = beside;
  const auto status = fs::status(target_, error);
  if (fs::exists(status)) fs::permissions(beside_, status.permissions(), error);
}

output::~output() {
  if (beside_.empty()) return;
  file_.close();
  std::error_code ignored;
  fs::remove(beside_, ignored);
}

bool output::write(std::string_view bytes) {
  return static_cast<bool>(stream_->write(bytes.data(), static_cast<std::streamsize>(bytes.size())));
}

bool output::commit() {
  if (!stream_->flush()) return false;
  if (stream_ != &file_) return true;
  file_.close();
  if (!file_) return false;
  if (beside_.empty()) return true;
  std::error_code error;
  fs::rename(beside_, target_, error);
  if (error) return false;
  beside_.clear();
  return true;
}

}  // namespace transcode
