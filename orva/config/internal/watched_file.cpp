#include "orva/config/internal/watched_file.hpp"

#include <utility>

#include "orva/config/internal/read_file.hpp"
#include "orva/platform/clock.hpp"
#include "orva/system/path_argument.hpp"

namespace ORVA_NAMESPACE::config::_private {

namespace {

/// The longest step of a file system that is in use: that of FAT is two seconds.
constexpr std::uint64_t longest_step_in_seconds = 3;

strings::ustring8 contents_of(const strings::ustring8& name) {
  strings::ustring8 contents;
  read_linked_file(name, contents);
  return contents;
}

}  // namespace

watched_file::watched_file(strings::ustring8 name)
    : name_(std::move(name)),
      stamp_(stamp()),
      taken_at_(platform::counter()),
      compares_contents_(stamp_.exists),
      contents_(compares_contents_ ? contents_of(name_) : strings::ustring8()) {}

bool watched_file::changed() {
  // The time is read before the contents: what is written after that is later by more than a step.
  const std::uint64_t now = platform::counter();
  if (stamp() != stamp_) return true;
  if (!compares_contents_) return false;
  if (contents_of(name_) != contents_) return true;
  if (now - taken_at_ < longest_step_in_seconds * platform::counter_frequency()) return false;
  compares_contents_ = false;
  contents_ = {};
  return false;
}

platform::file_stamp watched_file::stamp() const {
  return platform::stamp_of(platform::to_native(system::path_argument(name_).view()));
}

}  // namespace ORVA_NAMESPACE::config::_private
