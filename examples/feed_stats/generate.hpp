/// Feeds to try the program with: map data of any size, whole or damaged.
#pragma once

#include <cstdint>
#include <string>

namespace feed_stats {

/// Writes a feed of at least that many bytes, always the same one for the same arguments. Of so many records
/// one is damaged, each time in another way; 0 damages none. The name of the file is in UTF-8. False if the
/// file cannot be written.
bool generate(const std::string& file, std::uint64_t bytes, std::uint64_t damage_one_of);

}  // namespace feed_stats
