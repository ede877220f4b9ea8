/// Reads any data as both forms, in any order of types. Until the first failure, each result is what the
/// buffer itself reads; a failure lies within the data and stays.
///
/// The first byte is the number of reads, the next bytes are their types, the rest is the data.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <optional>
#include <string>

#include "fuzz/require.hpp"
#include "orva/memory/pointers/rc_pointer.hpp"
#include "orva/serialization/checked_reader.hpp"

namespace {

using namespace ORVA_NAMESPACE;
using namespace ORVA_NAMESPACE::serialization;
using memory::pointers::rc_pointer;
using orva_fuzz::require;

/// Every NaN is the same. The text form reads infinity and NaN, which the buffer takes for 0, and the
/// smallest values, some of which the buffer's stream refuses.
template <typename Floating>
bool is_same_floating(Floating checked, Floating mute, bool is_text) {
  if (std::isnan(checked) && std::isnan(mute)) return true;
  return checked == mute || (is_text && mute == 0 && !std::isnormal(checked));
}

/// A nested reader reads the bytes of the nested buffer.
bool is_same_buffer(checked_reader nested, const rc_pointer<serialize_buffer>& mute, bool is_text) {
  // An empty buffer at the very end of binary data is null.
  if (!mute) return !is_text && nested.finish();
  std::string bytes;
  checked_reader as_bytes = nested;
  while (!as_bytes.at_end() && bytes.size() < mute->as_str().size() && !is_text) {
    const auto byte = as_bytes.read_uint8();
    if (!byte) return false;
    bytes += static_cast<char>(*byte);
  }
  return is_text ? nested.at_end() == mute->as_str().empty() : bytes == mute->as_str() && as_bytes.at_end();
}

template <typename Buffer>
bool read_one(unsigned char type, checked_reader& in, Buffer& mute, bool is_text) {
  const auto agree = [](const auto& checked, const auto& read) {
    if (checked) require(*checked == read());
    return checked.has_value();
  };
  switch (type % 13) {
    case 0:
      return agree(in.read_int8(), [&] { return mute.read_int8(); });
    case 1:
      return agree(in.read_int16(), [&] { return mute.read_int16(); });
    case 2:
      return agree(in.read_int32(), [&] { return mute.read_int32(); });
    case 3:
      return agree(in.read_int64(), [&] { return mute.read_int64(); });
    case 4:
      return agree(in.read_uint8(), [&] { return mute.read_uint8(); });
    case 5:
      return agree(in.read_uint16(), [&] { return mute.read_uint16(); });
    case 6:
      return agree(in.read_uint32(), [&] { return mute.read_uint32(); });
    case 7:
      return agree(in.read_uint64(), [&] { return mute.read_uint64(); });
    case 8: {
      const auto checked = in.read_float();
      if (checked) require(is_same_floating(*checked, mute.read_float(), is_text));
      return checked.has_value();
    }
    case 9: {
      const auto checked = in.read_double();
      if (checked) require(is_same_floating(*checked, mute.read_double(), is_text));
      return checked.has_value();
    }
    case 10:
      return agree(in.read_string(), [&] { return mute.read_string(); });
    case 11: {
      const auto checked = in.read_buffer();
      if (checked)
        require(is_same_buffer(*checked, rc_pointer<serialize_buffer>(mute.read_buffer()), is_text));
      return checked.has_value();
    }
    default:
      return agree(in.read_string_view(), [&] { return mute.read_string(); });
  }
}

template <typename Buffer>
void read_all(const std::string& types, const std::string& data, checked_reader::form stored_as) {
  Buffer mute(data);
  // In memory of its own, so that a read beyond it is found.
  const std::unique_ptr<char[]> copy(new char[data.size()]);
  std::memcpy(copy.get(), data.data(), data.size());
  checked_reader in({copy.get(), data.size()}, stored_as);
  for (const char type : types) {
    const std::size_t begin = in.position();
    require(in.failure().error == read_error::none && in.at_end() == (begin == data.size()));
    if (read_one(static_cast<unsigned char>(type), in, mute, stored_as == checked_reader::form::text)) {
      require(in.position() > begin);
      continue;
    }
    const read_failure failure = in.failure();
    require(failure.error != read_error::none && !describe(failure).code.empty());
    require(failure.item == begin && failure.position >= begin && failure.position <= data.size());
    require(!in.read_uint8() && !in.read_string() && !in.at_end() && !in.finish());
    require(in.failure() == failure && in.position() == begin);
    return;
  }
  require(in.finish() == (in.position() == data.size()));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  if (size == 0) return 0;
  const std::string input(bytes + 1, bytes + size);
  const std::string types = input.substr(0, bytes[0]);
  const std::string data = input.substr(types.size());
  read_all<serialize_binary_buf>(types, data, checked_reader::form::binary);
  read_all<serialize_text_buf>(types, data, checked_reader::form::text);
  return 0;
}
