// The program on real files: conversions beside iconv, files that stay as they were, standard streams,
// signals.
#include <gtest/gtest.h>
#include <iconv.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "orva/strings/code_page_names.hpp"
#include "orva/strings/page_decoder.hpp"
#include "orva/strings/page_encoder.hpp"
#include "tests/examples/transcode/run_transcode.hpp"
#include "tests/support/temporary_directory.hpp"

namespace {

using namespace ORVA_NAMESPACE;
using namespace std::string_literals;
using orva_test::file_failure;
using orva_test::interrupted;
using orva_test::run;
using orva_test::something_lost;
using orva_test::temporary_directory;

/// What iconv makes of `bytes`; nothing where it refuses a part.
std::string converted_by_iconv(const std::string& from, const std::string& to, std::string_view bytes) {
  const iconv_t converter = iconv_open(to.c_str(), from.c_str());
  if (converter == reinterpret_cast<iconv_t>(-1)) return {};
  std::string result(8 * bytes.size() + 16, '\0');
  char* source = const_cast<char*>(bytes.data());
  char* target = result.data();
  std::size_t left = bytes.size();
  std::size_t room = result.size();
  const bool is_converted = iconv(converter, &source, &left, &target, &room) == 0 && left == 0;
  iconv(converter, nullptr, nullptr, &target, &room);
  iconv_close(converter);
  result.resize(is_converted ? result.size() - room : 0);
  return result;
}

/// A name that iconv has for exactly this page, not for a standard that the page extends.
std::string iconv_name(const strings::known_code_page& page) {
  switch (page.type) {
    case strings::code_page::utf8:
    case strings::code_page::koi8_r:
    case strings::code_page::koi8_u:
      return std::string(page.name);
    case strings::code_page::cp_949:
      return "UHC";
    default:
      return page.name.starts_with("ISO") ? std::string(page.name) : "CP" + std::to_string(page.type);
  }
}

/// The characters of the basic plane that a page and iconv write alike, with line ends between them.
strings::ustring16 common_text(const strings::known_code_page& page, const std::string& peer) {
  strings::ustring16 text;
  for (unsigned value = 1; value < 0x10000; ++value) {
    if (value >= 0xD800 && value < 0xF900) continue;
    const strings::ustring16 character(1, static_cast<strings::code_unit16>(value));
    const auto own = strings::encode_checked(page.type, character);
    if (!own.is_lossless() || !strings::decode_checked(page.type, own.bytes).is_lossless()) continue;
    const auto utf8 = strings::code_page(strings::code_page::utf8).encode(character);
    if (converted_by_iconv("UTF-8", peer, utf8) != own.bytes) continue;
    // Vietnamese and Hebrew marks are joined to the letter before them by iconv.
    text += character;
    if (value % 64 == 0) text.push_back(static_cast<strings::code_unit16>('\n'));
  }
  return text;
}

TEST(transcode, every_page_is_converted_as_by_iconv) {
  const temporary_directory directory;
  std::size_t compared = 0;
  for (const auto& page : strings::known_code_pages()) {
    const std::string peer = iconv_name(page);
    const bool joins_marks =
        page.type == strings::code_page::cp_1258 || page.type == strings::code_page::cp_1255;
    if (joins_marks) continue;
    const auto text = strings::code_page(strings::code_page::utf8).encode(common_text(page, peer));
    ASSERT_GT(text.size(), 200u) << page.name;
    const std::string bytes = converted_by_iconv("UTF-8", peer, text);
    ASSERT_FALSE(bytes.empty()) << page.name;
    const auto utf8_file = directory.write("utf8", text);
    const auto page_file = directory.write("page", bytes);
    const std::string label(page.name);
    ASSERT_EQ(run("exec $transcode -f UTF-8 -t " + label + ' ' + utf8_file + ' ' + directory.file("to")).code,
              0)
        << label;
    EXPECT_TRUE(directory.read("to") == bytes) << label;
    ASSERT_EQ(
        run("exec $transcode -f " + label + " -t UTF-16LE " + page_file + ' ' + directory.file("to")).code, 0)
        << label;
    EXPECT_TRUE(directory.read("to") == converted_by_iconv(peer, "UTF-16LE", bytes)) << label;
    ++compared;
  }
  EXPECT_EQ(compared, 24u);
}

const char* const unicode_names[] = {"UTF-8", "UTF-16LE", "UTF-16BE", "UTF-32LE", "UTF-32BE"};

/// Every character, and a zero.
std::string all_characters() {
  strings::ustring32 text;
  for (char32_t value = 0; value < 0x110000; value += value < 0x30000 ? 1 : 251) {
    if (value >= 0xD800 && value < 0xE000) continue;
    text.push_back(static_cast<strings::code_unit32>(value));
    // A mark in front would not be text.
    if (value == 0) text.push_back(strings::code_unit32{'\n'});
  }
  return strings::encode_checked(strings::code_page::utf8, text).bytes;
}

TEST(transcode, every_pair_of_unicode_encodings_is_converted_as_by_iconv) {
  const temporary_directory directory;
  const std::string text = all_characters();
  for (const std::string from : unicode_names) {
    const auto source = directory.write("from", converted_by_iconv("UTF-8", from, text));
    for (const std::string to : unicode_names) {
      ASSERT_EQ(
          run("exec $transcode -f " + from + " -t " + to + " - - < " + source + " > " + directory.file("to"))
              .code,
          0);
      ASSERT_TRUE(directory.read("to") == converted_by_iconv("UTF-8", to, text)) << from << ' ' << to;
    }
  }
}

TEST(transcode, marks_choose_the_byte_order_and_are_written_where_asked_for) {
  const auto converted = [](const std::string& words, const std::string& bytes) {
    const temporary_directory directory;
    return run("exec $transcode " + words + ' ' + directory.write("from", bytes)).output;
  };
  EXPECT_EQ(converted("-f utf-16",
                      "\xFF\xFE"
                      "a\0"s),
            "a");
  EXPECT_EQ(converted("-f utf-16", "\xFE\xFF\0a"s), "a");
  EXPECT_EQ(converted("-f utf-16", "a\0"s), "a");
  EXPECT_EQ(converted("-f utf-16", "\xFF\xFE\0\0"s), "\0"s);
  EXPECT_EQ(converted("-f utf-32", "\0\0\xFE\xFF\0\0\0a"s), "a");
  EXPECT_EQ(converted("-f utf-16be", "\xFE\xFF\0a"s), "a");
  EXPECT_EQ(converted("-f utf-8", "\xEF\xBB\xBF\xEF\xBB\xBF"s), "\xEF\xBB\xBF");
  EXPECT_EQ(converted("-f utf-8 -t utf-16", "a"),
            "\xFF\xFE"
            "a\0"s);
  EXPECT_EQ(converted("-f utf-8 -t utf-32", ""), "\xFF\xFE\0\0"s);
  EXPECT_EQ(converted("-f utf-8 -t utf-16be --mark", "a"), "\xFE\xFF\0a"s);
  EXPECT_EQ(converted("-f latin1 -t utf-8 --mark", "a"),
            "\xEF\xBB\xBF"
            "a");
  EXPECT_EQ(converted("-f utf-8 -t latin1 --mark", "a"), "a");
}

TEST(transcode, malformed_units_are_replaced_one_by_one) {
  const temporary_directory directory;
  const auto file = directory.write("from",
                                    "\0\xDC"
                                    "a\0\x3D\xD8"
                                    "b\0\x3D\xD8\0"s);
  const auto result = run("$transcode -f utf-16le " + file + " 2>&1");
  EXPECT_EQ(result.code, something_lost);
  for (const char* const line :
       {":1:1: warning: 0x00 0xDC at byte 0 is no character of UTF-16LE, read as U+FFFD",
        ":1:3: warning: 0x3D 0xD8 at byte 4", ":1:5: warning: 0x3D 0xD8 0x00 at byte 8 is cut off",
        ": 3 losses: 1 cut, 2 malformed"}) {
    EXPECT_NE(result.output.find(line), std::string::npos) << line << '\n' << result.output;
  }
}

/// Lines and columns go on over pieces and slices, and each loss is counted once.
TEST(transcode, losses_of_a_long_file_are_all_counted_at_their_places) {
  const temporary_directory directory;
  std::string text;
  for (int line = 0; line < 20'000; ++line) text += "a\xE2\x82\xAC\xFF\xD0\x96\n";
  const auto result = run("$transcode -f utf-8 -t iso-8859-15 --report 1000000 --check " +
                          directory.write("from", text) + " 2>&1 | tail -n 3");
  EXPECT_NE(result.output.find(":20000:3: warning: 0xFF at byte "), std::string::npos);
  EXPECT_NE(result.output.find(":20000:4: warning: U+0416"), std::string::npos);
  EXPECT_NE(result.output.find(": 40000 losses: 20000 malformed, 20000 missing\n"), std::string::npos)
      << result.output;
}

TEST(transcode, file_is_converted_in_place) {
  const temporary_directory directory;
  const auto file = directory.write("file", std::string(300'000, '\xE9'));
  ASSERT_EQ(run("exec $transcode -f latin1 -t utf-8 " + file + ' ' + file).code, 0);
  EXPECT_EQ(directory.read("file").size(), 600'000u);
}

std::vector<std::string> entries(const temporary_directory& directory) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(directory.path()))
    names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

TEST(transcode, failure_leaves_the_old_file_and_nothing_beside_it) {
  const temporary_directory directory;
  const auto file = directory.write("old", "as it was");
  EXPECT_EQ(run("exec $transcode -f utf-8 " + directory.file("missing") + ' ' + file + " 2>/dev/null").code,
            file_failure);
  EXPECT_EQ(directory.read("old"), "as it was");
  EXPECT_EQ(entries(directory), std::vector<std::string>{"old"});
}

TEST(transcode, interrupt_leaves_the_old_file_and_nothing_beside_it) {
  const temporary_directory directory;
  const auto file = directory.write("old", "as it was");
  const auto pipe = directory.file("pipe");
  const auto result =
      run("mkfifo " + pipe + "; $transcode -f utf-8 " + pipe + ' ' + file + " 2>" + directory.file("error") +
          " & exec 3>" + pipe + "; printf new >&3; while ! ls -A " + directory.name() +
          " | grep -q transcode; do sleep 0.01; done; kill -TERM $!; exec 3>&-; wait $!; echo $?");
  EXPECT_EQ(result.output, std::to_string(interrupted) + '\n');
  EXPECT_EQ(directory.read("old"), "as it was");
  EXPECT_EQ(directory.read("error"), "transcode: interrupted\n");
  EXPECT_EQ(entries(directory), (std::vector<std::string>{"error", "old", "pipe"}));
}

TEST(transcode, replaced_file_keeps_its_permissions_and_its_links) {
  const temporary_directory directory;
  const auto from = directory.write("from", "new");
  const auto old = directory.write("old", "old");
  ::chmod(old.c_str(), 0600);
  std::filesystem::create_symlink("old", directory.file("link"));
  ASSERT_EQ(run("exec $transcode -f utf-8 " + from + ' ' + directory.file("link")).code, 0);
  EXPECT_EQ(directory.read("old"), "new");
  EXPECT_TRUE(std::filesystem::is_symlink(directory.file("link")));
  struct stat status;
  ASSERT_EQ(::stat(old.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777, 0600u);
}

TEST(transcode, device_is_written_directly_and_a_full_one_is_reported) {
  const temporary_directory directory;
  const auto from = directory.write("from", std::string(100'000, 'a'));
  EXPECT_EQ(run("exec $transcode -f utf-8 " + from + " /dev/null").code, 0);
  EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
  if (!std::filesystem::exists("/dev/full")) return;
  EXPECT_EQ(run("exec $transcode -f utf-8 " + from + " /dev/full 2>/dev/null").code, file_failure);
  EXPECT_EQ(run("exec $transcode -f utf-8 " + from + " > /dev/full 2>/dev/null").code, file_failure);
}

TEST(transcode, names_that_begin_with_a_hyphen_follow_two) {
  const temporary_directory directory;
  directory.write("-f", "text");
  EXPECT_EQ(run("cd " + directory.name() + "; $transcode -f utf-8 -- -f").output, "text");
}

long largest_memory_of_children() {
  rusage usage;
  ::getrusage(RUSAGE_CHILDREN, &usage);
  return usage.ru_maxrss;  // in kilobytes
}

TEST(transcode, memory_does_not_grow_with_the_file) {
  const temporary_directory directory;
  const std::string line = "a line of text, \xC3\xA9\xE2\x82\xAC\xFF and a loss\n";
  const auto little = directory.write("little", line);
  std::string text;
  while (text.size() < 12'000'000) text += line;
  const auto large = directory.write("large", text);
  // AddressSanitizer would keep what is freed.
  const std::string words =
      "ASAN_OPTIONS=quarantine_size_mb=1 exec $transcode --check -f utf-8 -t koi8-r --report 0 ";
  ASSERT_EQ(run(words + little + " 2>/dev/null").code, something_lost);
  const long before = largest_memory_of_children();
  ASSERT_EQ(run(words + large + " 2>/dev/null").code, something_lost);
  EXPECT_LT(largest_memory_of_children() - before, 8'000);
}

TEST(transcode, no_progress_is_shown_where_nobody_looks) {
  const temporary_directory directory;
  const auto file = directory.write("from", "text");
  EXPECT_EQ(run("exec $transcode --check -f utf-8 " + file + " 2>&1").output, "");
  EXPECT_NE(run("exec $transcode --check --progress -f utf-8 " + file + " 2>&1").output.find("] 100 %"),
            std::string::npos);
  EXPECT_EQ(run("exec $transcode --check --progress -f utf-8 2>&1 < " + file).output, "\r0 MB\n");
}

}  // namespace
