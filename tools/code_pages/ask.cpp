// Records the answers of the platform's own code-page conversion in the current folder.
//
// A Windows program. For each page a file <page>.answers of 16-bit numbers, low byte first:
//
//     65536 x 2   each unit encoded alone: the bytes of the answer as one number of 32 bits, the last one
//                 lowest
//     65536 x 2   each pair of bytes decoded, the first byte the high one of the index: one unit and 0, or two
//                 units.
//                 A second byte of 0 means the end of the text.
//
// and, for sequences longer than a pair, 65001.sequences: four bytes and the four units of their answer, 0
// where there are fewer. 0 itself is not converted, since it ends every text.
#include <windows.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <string_view>

namespace {

constexpr unsigned utf8 = 65001;

constexpr std::array pages = {932u,   936u,   949u,   950u,   1250u,  1251u,  1252u,  1253u,  1254u,
                              1255u,  1256u,  1257u,  1258u,  20866u, 21866u, 28591u, 28592u, 28593u,
                              28594u, 28595u, 28596u, 28597u, 28598u, 28599u, 28605u, utf8};

// One byte of each kind in UTF-8, and those on either side of the borders between the kinds.
constexpr std::string_view kinds_of_bytes =
    "\x41\x80\x8F\x90\x9F\xA0\xBF\xC1\xC2\xDF\xE0\xE1\xED\xEE\xEF\xF0\xF1\xF4\xF5\xFF";

// At the end of a text the platform lets a cut sequence take the terminator and letters before it. Letters
// after the sequence show its conversion in the middle of a text.
constexpr std::string_view following_letters = "AAA";

void require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "%s\n", what);
  std::exit(1);
}

std::string encoded(unsigned page, wchar_t unit) {
  std::string bytes(8, '\0');
  const int size = WideCharToMultiByte(page, 0, &unit, 1, bytes.data(), 8, nullptr, nullptr);
  require(size > 0 && size <= 4, "a unit that gives no byte or too many");
  return bytes.substr(0, static_cast<std::size_t>(size));
}

std::wstring converted(unsigned page, std::string_view bytes) {
  std::wstring units(16, L'\0');
  const int size =
      MultiByteToWideChar(page, 0, bytes.data(), static_cast<int>(bytes.size()), units.data(), 16);
  require(size > 0, "bytes that give no unit");
  return units.substr(0, static_cast<std::size_t>(size));
}

std::wstring decoded(unsigned page, std::string_view bytes) {
  if (page != utf8) return converted(page, bytes);
  std::wstring units = converted(page, std::string(bytes).append(following_letters));
  require(units.ends_with(L"AAA"), "a sequence that takes letters");
  return units.substr(0, units.size() - following_letters.size());
}

void put(std::ofstream& to, unsigned number) {
  to.put(static_cast<char>(number & 0xFF));
  to.put(static_cast<char>(number >> 8 & 0xFF));
}

void put(std::ofstream& to, const std::wstring& units, std::size_t count) {
  require(units.size() <= count, "more units than expected");
  for (std::size_t i = 0; i < count; ++i) put(to, i < units.size() ? units[i] : 0u);
}

void ask_encode(std::ofstream& to, unsigned page) {
  for (unsigned unit = 0; unit < 0x10000; ++unit) {
    std::uint32_t answer = 0;
    if (unit != 0) {
      for (const char byte : encoded(page, static_cast<wchar_t>(unit))) {
        answer = answer << 8 | static_cast<unsigned char>(byte);
      }
    }
    put(to, answer & 0xFFFF);
    put(to, answer >> 16);
  }
}

void ask_decode(std::ofstream& to, unsigned page) {
  for (unsigned pair = 0; pair < 0x10000; ++pair) {
    const char bytes[] = {static_cast<char>(pair >> 8), static_cast<char>(pair & 0xFF)};
    const std::string_view text(bytes, bytes[1] == 0 ? 1 : 2);
    put(to, bytes[0] == 0 ? std::wstring() : decoded(page, text), 2);
  }
}

void ask_sequence(std::ofstream& to, const std::string& bytes) {
  for (std::size_t i = 0; i < 4; ++i) to.put(i < bytes.size() ? bytes[i] : '\0');
  put(to, decoded(utf8, bytes), 4);
}

void ask_sequences(std::ofstream& to, const std::string& begin) {
  for (const char byte : kinds_of_bytes) {
    const std::string bytes = begin + byte;
    if (bytes.size() > 2) ask_sequence(to, bytes);
    if (bytes.size() < 4) ask_sequences(to, bytes);
  }
}

}  // namespace

int main() {
  for (const unsigned page : pages) {
    std::ofstream to(std::to_string(page) + ".answers", std::ios::binary);
    ask_encode(to, page);
    ask_decode(to, page);
  }
  std::ofstream to(std::to_string(utf8) + ".sequences", std::ios::binary);
  ask_sequences(to, "");
}
