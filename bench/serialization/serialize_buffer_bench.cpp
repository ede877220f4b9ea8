/// Measures the binary and the text form, and a hand-written append and memcpy of the same bytes. The other
/// files of this folder measure what a user would use instead.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "bench/serialization/buffer_record.hpp"
#include "orva/serialization/serialize_binary_buf.hpp"
#include "orva/serialization/serialize_text_buf.hpp"

namespace {

using namespace ORVA_NAMESPACE::serialization;
using orva_bench::read;
using orva_bench::record;
using orva_bench::sample_records;
using orva_bench::write;

// If a benchmark names the class of a buffer, the compiler knows it; otherwise calls are virtual.

template <typename Form, typename Seen>
void write_records(benchmark::State& state) {
  const auto records = sample_records();
  for (auto _ : state) {
    Form form;
    Seen* buffer = &form;
    benchmark::DoNotOptimize(buffer);
    for (const record& each : records) write(*buffer, each);
    benchmark::DoNotOptimize(form.as_str().data());
  }
}

template <typename Form, typename Seen>
void read_records(benchmark::State& state) {
  const auto records = sample_records();
  Form form;
  for (const record& each : records) write(form, each);
  Seen* buffer = &form;
  record each;
  for (auto _ : state) {
    benchmark::DoNotOptimize(buffer);
    buffer->reset_read();
    for (std::size_t i = 0; i < records.size(); ++i) read(*buffer, each);
    benchmark::DoNotOptimize(each);
  }
}

void write_binary(benchmark::State& state) {
  write_records<serialize_binary_buf, serialize_binary_buf>(state);
}
BENCHMARK(write_binary);
void write_binary_by_virtual_calls(benchmark::State& state) {
  write_records<serialize_binary_buf, serialize_buffer>(state);
}
BENCHMARK(write_binary_by_virtual_calls);

/// The same bytes, by hand.
class appended {
 public:
  void append_int32(std::int32_t value) { append(value); }
  void append_int64(std::int64_t value) { append(value); }
  void append_uint32(std::uint32_t value) { append(value); }
  void append_double(double value, int) { append(value); }
  void append_string(const std::string& text) {
    append(static_cast<std::uint32_t>(text.size()));
    bytes_.append(text);
  }
  const std::string& as_str() const { return bytes_; }

 private:
  template <typename Number>
  void append(Number value) {
    bytes_.append(reinterpret_cast<const char*>(&value), sizeof value);
  }

  std::string bytes_;
};

void write_binary_peer_hand_written(benchmark::State& state) { write_records<appended, appended>(state); }
BENCHMARK(write_binary_peer_hand_written);

void read_binary(benchmark::State& state) { read_records<serialize_binary_buf, serialize_binary_buf>(state); }
BENCHMARK(read_binary);
void read_binary_by_virtual_calls(benchmark::State& state) {
  read_records<serialize_binary_buf, serialize_buffer>(state);
}
BENCHMARK(read_binary_by_virtual_calls);

/// The same bytes, by hand, and within their bounds.
class copied_out {
 public:
  void append_int32(std::int32_t value) { source_.append_int32(value); }
  void append_int64(std::int64_t value) { source_.append_int64(value); }
  void append_uint32(std::uint32_t value) { source_.append_uint32(value); }
  void append_double(double value, int) { source_.append_double(value, 0); }
  void append_string(const std::string& text) { source_.append_string(text); }

  void reset_read() { rest_ = source_.as_str(); }
  std::int32_t read_int32() { return take<std::int32_t>(); }
  std::int64_t read_int64() { return take<std::int64_t>(); }
  std::uint32_t read_uint32() { return take<std::uint32_t>(); }
  double read_double() { return take<double>(); }
  std::string read_string() {
    const auto length = take<std::uint32_t>();
    const std::string_view text = rest_.substr(0, length);
    rest_.remove_prefix(text.size());
    return std::string(text);
  }

 private:
  template <typename Number>
  Number take() {
    Number value{};
    if (rest_.size() < sizeof value) return value;
    std::memcpy(&value, rest_.data(), sizeof value);
    rest_.remove_prefix(sizeof value);
    return value;
  }

  appended source_;
  std::string_view rest_;
};

void read_binary_peer_hand_written(benchmark::State& state) { read_records<copied_out, copied_out>(state); }
BENCHMARK(read_binary_peer_hand_written);

void write_text(benchmark::State& state) { write_records<serialize_text_buf, serialize_buffer>(state); }
BENCHMARK(write_text);
void read_text(benchmark::State& state) { read_records<serialize_text_buf, serialize_buffer>(state); }
BENCHMARK(read_text);

const std::string ten_megabytes(10'000'000, 'x');

template <typename Form>
void write_large_string(benchmark::State& state) {
  for (auto _ : state) {
    Form buffer;
    buffer.append_string(ten_megabytes);
    benchmark::DoNotOptimize(buffer.as_str().data());
  }
}
BENCHMARK(write_large_string<serialize_binary_buf>)->Name("write_10_mb_binary");
BENCHMARK(write_large_string<serialize_text_buf>)->Name("write_10_mb_text");
BENCHMARK(write_large_string<appended>)->Name("write_10_mb_peer_hand_written");

template <typename Form>
void read_large_string(benchmark::State& state) {
  Form buffer;
  buffer.append_string(ten_megabytes);
  for (auto _ : state) {
    buffer.reset_read();
    benchmark::DoNotOptimize(buffer.read_string().data());
  }
}
BENCHMARK(read_large_string<serialize_binary_buf>)->Name("read_10_mb_binary");
BENCHMARK(read_large_string<serialize_text_buf>)->Name("read_10_mb_text");
BENCHMARK(read_large_string<copied_out>)->Name("read_10_mb_peer_hand_written");

}  // namespace
