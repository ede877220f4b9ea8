/// The contents of a feed: the number of records of each kind, and of their elements and attributes.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>

#include "orva/orva.hpp"

namespace feed_stats {

struct kind_count {
  std::uint64_t records = 0;
  /// The elements of all records, the records themselves included.
  std::uint64_t elements = 0;
  std::uint64_t attributes = 0;
};

struct statistics {
  std::string root;
  /// By the name of the record's element.
  std::map<std::string, kind_count> kinds;
  std::uint64_t damages = 0;
  /// How reading ended; `end_of_document` if the root was closed.
  orva::parser::xml_stream_parser::error_type ended_by = orva::parser::xml_stream_parser::no_error;
};

/// Receives reports while the feed is read.
struct observer {
  /// How much of the file is read. Called from time to time.
  std::function<void(long long offset, long long length)> progress;
  /// The record at this position is damaged and is passed over.
  std::function<void(orva::parser::xml_stream_parser::error_type error, long long offset, unsigned long line)>
      damage;
};

/// Reads the feed. After a damage it goes on at the next record of a kind that it has seen before.
statistics gather(const std::string& file, const observer& observer);

/// "an attribute value does not start with a quote"
const char* words(orva::parser::xml_stream_parser::error_type error);

}  // namespace feed_stats
