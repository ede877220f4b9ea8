#include "orva/serialization/frame_reader.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "orva/serialization/frame_writer.hpp"
#include "orva/serialization/serialize_binary_buf.hpp"
#include "tests/support/random_bytes.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/reference_frame.hpp"

namespace {

using namespace ORVA_NAMESPACE::serialization;
using event = frame_reader::event;
using orva_test::random_bytes;
using orva_test::reference_crc32c;

/// A frame with several chunks.
std::string frame_of(std::string_view content, std::size_t chunk = frame_writer::max_chunk_size) {
  std::string frame;
  frame_writer writer(frame, "example.settings", 3);
  for (; !content.empty(); content.remove_prefix(std::min(chunk, content.size()))) {
    writer.write(content.substr(0, chunk));
    writer.flush();
  }
  EXPECT_TRUE(writer.finish());
  return frame;
}

struct reading {
  std::string events;
  std::string content;
  frame_failure failure;

  bool operator==(const reading&) const = default;
};

char letter_of(event seen) { return "mhcef"[static_cast<std::size_t>(seen)]; }

/// Gives a reader a frame in pieces, each in memory of its own, so that a read beyond it is found.
template <typename SizeOfPiece>
reading read_in_pieces(std::string_view frame, SizeOfPiece size_of_piece) {
  frame_reader reader;
  reading read;
  bool is_over = false;
  while (!is_over && !frame.empty()) {
    const std::size_t size = std::min<std::size_t>(size_of_piece(), frame.size());
    const std::vector<char> copy(frame.begin(), frame.begin() + static_cast<std::ptrdiff_t>(size));
    std::string_view piece(copy.data(), size);
    for (event seen = event::header; seen == event::header || seen == event::content;) {
      seen = reader.next(piece);
      if (seen != event::need_more) read.events += letter_of(seen);
      read.content += reader.content();
      is_over = seen == event::end || seen == event::failed;
    }
    EXPECT_TRUE(is_over || piece.empty());
    frame.remove_prefix(size);
  }
  read.failure = reader.finish();
  return read;
}

reading read_at_once(std::string_view frame) {
  return read_in_pieces(frame, [&] { return frame.size(); });
}

TEST(frame_reader, documentation_example) {
  const std::string frame = frame_of("settings");
  std::string stored;
  frame_reader reader;
  const auto take = [&](std::string_view piece) {
    for (;;) {
      switch (reader.next(piece)) {
        case event::header:
          if (reader.format_name() != "example.settings" || reader.version() > 3) return false;
          break;
        case event::content:
          stored += reader.content();
          break;
        case event::need_more:
        case event::end:
          return true;
        case event::failed:
          return false;
      }
    }
  };
  EXPECT_TRUE(take(std::string_view(frame).substr(0, 50)));
  EXPECT_TRUE(take(std::string_view(frame).substr(50)));
  EXPECT_EQ(reader.finish().error, frame_error::none);
  EXPECT_EQ(stored, "settings");
}

std::string in_words(const frame_failure& failure) {
  return (std::ostringstream() << describe(failure, "a.frame")).str();
}

TEST(frame_reader, failure_is_described_in_words) {
  EXPECT_EQ(in_words({frame_error::not_a_frame, 0}),
            "a.frame: error: The data is not a frame, as the byte at offset 0 shows. [frame.not_a_frame]");
  EXPECT_EQ(in_words({frame_error::damaged, 64}),
            "a.frame: error: The part of the frame that begins at offset 64 is damaged. [frame.damaged]");
  EXPECT_EQ(
      in_words({frame_error::invalid, 0}),
      "a.frame: error: The writer of the frame broke a rule of its format at offset 0. [frame.invalid]");
  EXPECT_EQ(in_words({frame_error::truncated, 70}),
            "a.frame: error: The data ends at offset 70, before the frame does. [frame.truncated]");
  EXPECT_EQ(in_words({frame_error::data_after_end, 84}),
            "a.frame: error: Data follows the frame, from offset 84 on. [frame.data_after_end]");
}

TEST(frame_reader, every_error_has_a_code_of_its_own) {
  using ORVA_NAMESPACE::diagnostics::severity;
  std::set<std::string> codes;
  const auto last = static_cast<int>(frame_error::data_after_end);
  for (int error = 1; error <= last; ++error) {
    const auto found = describe({static_cast<frame_error>(error), 5'000'000'000}, "a.frame");
    EXPECT_EQ(found.level, severity::error);
    EXPECT_EQ(found.at, ORVA_NAMESPACE::diagnostics::place());
    EXPECT_EQ(found.arguments.at("offset").value().as_uint64(), 5'000'000'000u);
    EXPECT_TRUE(found.code.starts_with("frame."));
    codes.insert(found.code);
  }
  EXPECT_EQ(codes.size(), static_cast<std::size_t>(last));
  EXPECT_EQ(describe(frame_failure{}).level, severity::note);
  EXPECT_EQ(describe(frame_failure{}).code, "");
}

TEST(frame_reader, name_and_version_are_known_before_any_content) {
  const std::string frame = frame_of("content");
  std::string_view piece = frame;
  frame_reader reader;
  EXPECT_EQ(reader.format_name(), "");
  EXPECT_EQ(reader.version(), 0U);
  EXPECT_EQ(reader.next(piece), event::header);
  EXPECT_EQ(reader.format_name(), "example.settings");
  EXPECT_EQ(reader.version(), 3U);
  EXPECT_EQ(reader.content(), "");
  EXPECT_EQ(piece.size(), frame.size() - 64) << "nothing else was read";
}

TEST(frame_reader, content_comes_chunk_by_chunk_and_without_a_copy) {
  const std::string frame = frame_of("abcdef", 3);
  std::string_view piece = frame;
  frame_reader reader;
  EXPECT_EQ(reader.next(piece), event::header);
  EXPECT_EQ(reader.next(piece), event::content);
  EXPECT_EQ(reader.content(), "abc");
  EXPECT_EQ(reader.content().data(), frame.data() + 84);
  EXPECT_EQ(reader.next(piece), event::content);
  EXPECT_EQ(reader.content(), "def");
  EXPECT_EQ(reader.content_size(), 6U);
  EXPECT_EQ(reader.next(piece), event::end);
  EXPECT_EQ(reader.content(), "");
  EXPECT_EQ(reader.next(piece), event::end);
}

TEST(frame_reader, data_after_the_frame_is_left_in_the_piece) {
  const std::string data = frame_of("a") + "after";
  std::string_view piece = data;
  frame_reader reader;
  while (reader.next(piece) != event::end) ASSERT_EQ(reader.failure().error, frame_error::none);
  EXPECT_EQ(piece, "after");
  EXPECT_EQ(reader.next(piece), event::end);
  EXPECT_EQ(piece, "after");
  EXPECT_EQ(reader.finish().error, frame_error::none);
}

TEST(frame_reader, pieces_of_any_size_read_as_the_whole_does) {
  const std::string content = random_bytes(70'000);
  const std::string frame = frame_of(content);
  const reading whole = read_at_once(frame);
  EXPECT_EQ(whole.events, "hcce");
  EXPECT_TRUE(whole.content == content);
  for (const std::size_t size : {1U, 2U, 19U, 20U, 21U, 63U, 64U, 65U, 4096U, 65536U, 66'000U}) {
    EXPECT_TRUE(read_in_pieces(frame, [=] { return size; }) == whole) << "pieces of " << size << " bytes";
  }
  orva_test::random_engine random;
  for (int run = 0; run < 30; ++run) {
    const std::size_t most = std::size_t{1} << random() % 17;
    EXPECT_TRUE(read_in_pieces(frame, [&] { return 1 + random() % most; }) == whole);
  }
}

TEST(frame_reader, empty_pieces_change_nothing) {
  const std::string frame = frame_of("abc");
  frame_reader reader;
  std::string events;
  for (const char& byte : frame) {
    std::string_view nothing;
    EXPECT_EQ(reader.next(nothing), event::need_more);
    std::string_view piece(&byte, 1);
    for (event seen = reader.next(piece); seen != event::need_more; seen = reader.next(piece)) {
      events += letter_of(seen);
      if (seen == event::end) break;
    }
  }
  EXPECT_EQ(events, "hce");
}

// Damage.

std::string four_kilobytes() {
  const std::string frame = frame_of(random_bytes(4096 - 64 - 4 * 20), 1400);
  EXPECT_EQ(frame.size(), 4096U);
  return frame;
}

TEST(frame_reader, every_change_of_one_bit_is_found) {
  std::string frame = four_kilobytes();
  const std::string content = read_at_once(frame).content;
  for (std::size_t bit = 0; bit < 8 * frame.size(); ++bit) {
    const char mask = static_cast<char>(1 << bit % 8);
    frame[bit / 8] = static_cast<char>(frame[bit / 8] ^ mask);
    const reading read = read_at_once(frame);
    const frame_error expected = bit < 64 ? frame_error::not_a_frame : frame_error::damaged;
    ASSERT_EQ(read.failure.error, expected) << "bit " << bit;
    ASSERT_LE(read.failure.position, bit / 8) << "bit " << bit;
    ASSERT_TRUE(content.starts_with(read.content)) << "no damaged byte is passed on";
    frame[bit / 8] = static_cast<char>(frame[bit / 8] ^ mask);
  }
}

TEST(frame_reader, every_truncation_is_found) {
  const std::string frame = four_kilobytes();
  for (std::size_t size = 0; size < frame.size(); ++size) {
    const reading read = read_at_once(std::string_view(frame).substr(0, size));
    ASSERT_EQ(read.failure, (frame_failure{frame_error::truncated, size}));
  }
  EXPECT_EQ(read_at_once(frame).failure, frame_failure());
}

TEST(frame_reader, every_byte_that_is_lost_or_repeated_is_found) {
  const std::string frame = four_kilobytes();
  for (std::size_t at = 0; at < frame.size(); ++at) {
    std::string lost = frame;
    lost.erase(at, 1);
    ASSERT_NE(read_at_once(lost).failure.error, frame_error::none) << "lost byte " << at;
    std::string repeated = frame;
    repeated.insert(at, 1, frame[at]);
    // The last byte again is data after the frame, which may belong to something else.
    const bool is_after_the_end = frame.find_first_not_of(frame[at], at) == frame.npos;
    ASSERT_EQ(read_at_once(repeated).failure.error == frame_error::none, is_after_the_end) << at;
  }
}

TEST(frame_reader, random_damage_is_found) {
  const std::string frame = four_kilobytes();
  orva_test::random_engine random;
  for (int run = 0; run < 3'000; ++run) {
    std::string damaged = frame;
    for (std::uint64_t changes = 1 + random() % 8; changes > 0; --changes) {
      damaged[static_cast<std::size_t>(random() % frame.size())] = static_cast<char>(random());
    }
    ASSERT_EQ(read_at_once(damaged).failure.error == frame_error::none, damaged == frame);
  }
}

TEST(frame_reader, lost_repeated_and_exchanged_chunks_are_found) {
  // The chunks are equal, so that only their order distinguishes them.
  const std::string frame = frame_of("aaaaaa", 2);
  const auto chunk = [&](std::size_t index) { return frame.substr(64 + 22 * index, 22); };
  const std::string header = frame.substr(0, 64);
  const std::string end = frame.substr(64 + 3 * 22);
  EXPECT_EQ(read_at_once(header + chunk(0) + chunk(1) + chunk(2) + end).content, "aaaaaa");
  for (const std::string& chunks :
       {chunk(0) + chunk(1), chunk(1) + chunk(2), chunk(0) + chunk(2),
        chunk(0) + chunk(0) + chunk(1) + chunk(2), chunk(0) + chunk(2) + chunk(1), std::string()}) {
    EXPECT_EQ(read_at_once(header + chunks + end).failure.error, frame_error::damaged);
  }
}

TEST(frame_reader, damage_is_found_in_pieces_of_any_size) {
  const std::string frame = frame_of(random_bytes(500), 200);
  orva_test::random_engine random;
  for (int run = 0; run < 2'000; ++run) {
    std::string damaged = frame;
    damaged[static_cast<std::size_t>(random() % frame.size())] ^= static_cast<char>(1 + random() % 255);
    const std::size_t most = std::size_t{1} << random() % 10;
    const reading in_pieces = read_in_pieces(damaged, [&] { return 1 + random() % most; });
    ASSERT_TRUE(in_pieces == read_at_once(damaged));
    ASSERT_NE(in_pieces.failure.error, frame_error::none);
  }
}

// Data that is no frame, and frames whose checksums match and that break a rule.

TEST(frame_reader, other_data_is_recognised_by_its_first_byte) {
  EXPECT_EQ(read_at_once("text").failure, (frame_failure{frame_error::not_a_frame, 0}));
  EXPECT_EQ(read_at_once("\x8Forva2").failure, (frame_failure{frame_error::not_a_frame, 5}));
  EXPECT_EQ(read_at_once("").failure, (frame_failure{frame_error::truncated, 0}));
}

TEST(frame_reader, failure_stays) {
  std::string_view piece = "text";
  frame_reader reader;
  EXPECT_EQ(reader.next(piece), event::failed);
  const std::string frame = frame_of("abc");
  piece = frame;
  EXPECT_EQ(reader.next(piece), event::failed);
  EXPECT_EQ(reader.finish().error, frame_error::not_a_frame);
}

TEST(frame_reader, finish_before_the_end_is_a_failure_that_stays) {
  const std::string frame = frame_of("abc");
  std::string_view piece = std::string_view(frame).substr(0, 70);
  frame_reader reader;
  EXPECT_EQ(reader.next(piece), event::header);
  EXPECT_EQ(reader.next(piece), event::need_more);
  EXPECT_EQ(reader.finish(), (frame_failure{frame_error::truncated, 70}));
  piece = std::string_view(frame).substr(70);
  EXPECT_EQ(reader.next(piece), event::failed);
}

/// Appends the checksum that a part ends in.
std::string closed(serialize_binary_buf part) {
  part.append_uint32(reference_crc32c(0, part.as_str()));
  return part.as_str();
}

std::string header_with(std::string name_field) {
  name_field.resize(48);
  return closed(serialize_binary_buf("\x8Forva1\r\n" + std::string(4, '\0') + name_field));
}

std::string record_with(unsigned long long position, std::uint32_t length, std::uint32_t checksum) {
  serialize_binary_buf part;
  part.append_uint64(position);
  part.append_uint32(length);
  part.append_uint32(checksum);
  return closed(part);
}

TEST(frame_reader, name_that_is_not_allowed_is_invalid) {
  EXPECT_EQ(read_at_once(header_with("x") + record_with(0, 0, 0)).failure, frame_failure());
  EXPECT_EQ(read_at_once(header_with(std::string(48, 'x')) + record_with(0, 0, 0)).failure, frame_failure());
  for (const std::string& name : {std::string(), std::string("a b"), std::string("\xC3\xA9"),
                                  std::string("a\0b", 3), std::string("\0a", 2)}) {
    EXPECT_EQ(read_at_once(header_with(name)).failure, (frame_failure{frame_error::invalid, 0})) << name;
  }
}

TEST(frame_reader, chunk_that_is_too_long_is_invalid_before_it_is_read) {
  const std::string longest(65536, 'a');
  const std::uint32_t checksum = reference_crc32c(0, longest);
  EXPECT_EQ(read_at_once(header_with("x") + record_with(0, 65536, checksum) + longest +
                         record_with(65536, 0, checksum))
                .failure,
            frame_failure());
  for (const std::uint32_t length : {65537U, 0x80000000U, 0xFFFFFFFFU}) {
    EXPECT_EQ(read_at_once(header_with("x") + record_with(0, length, 0)).failure,
              (frame_failure{frame_error::invalid, 64}));
  }
}

TEST(frame_reader, last_record_must_have_length_and_checksum_of_the_content) {
  const std::uint32_t checksum = reference_crc32c(0, "abc");
  const std::string begin = header_with("x") + record_with(0, 3, checksum) + "abc";
  EXPECT_EQ(read_at_once(begin + record_with(3, 0, checksum)).failure, frame_failure());
  EXPECT_EQ(read_at_once(begin + record_with(3, 0, 0)).failure, (frame_failure{frame_error::damaged, 87}));
  EXPECT_EQ(read_at_once(begin + record_with(2, 0, checksum)).failure,
            (frame_failure{frame_error::damaged, 87}));
}

TEST(frame_reader, zeros_are_no_record) {
  EXPECT_EQ(read_at_once(header_with("x") + std::string(20, '\0')).failure,
            (frame_failure{frame_error::damaged, 64}));
}

TEST(frame_reader, agrees_with_the_second_reader_on_damaged_frames) {
  const std::string frame = frame_of(random_bytes(300), 100);
  orva_test::random_engine random;
  for (int run = 0; run < 2'000; ++run) {
    std::string data = frame;
    if (run % 2 == 0) data[static_cast<std::size_t>(random() % data.size())] = static_cast<char>(random());
    if (run % 3 == 0) data.resize(static_cast<std::size_t>(random() % (data.size() + 1)));
    const auto expected = orva_test::read_reference_frame(data);
    const reading read = read_at_once(data);
    ASSERT_EQ(read.failure.error == frame_error::none, expected.has_value());
    if (expected) {
      ASSERT_TRUE(read.content == expected->content);
    }
  }
}

}  // namespace
