/// Runs a fuzz target on stored inputs, without the fuzzer: on every file in the given folders. A folder that
/// does not exist counts as empty.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

int replay_folder(const std::filesystem::path& folder) {
  int inputs = 0;
  if (!std::filesystem::is_directory(folder)) return inputs;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    if (!entry.is_regular_file()) continue;
    std::ifstream file(entry.path(), std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
    // A copy of the exact size, so that AddressSanitizer finds a read past its end.
    const std::vector<std::uint8_t> input(bytes.begin(), bytes.end());
    LLVMFuzzerTestOneInput(input.data(), input.size());
    ++inputs;
  }
  return inputs;
}

}  // namespace

int main(int argc, char** argv) {
  int inputs = 0;
  for (int i = 1; i < argc; ++i) inputs += replay_folder(argv[i]);
  std::printf("%d inputs replayed\n", inputs);
  return inputs > 0 ? 0 : 1;
}
