/// Protocol Buffers. Messages are filled before the measurement, and parsed into one message that is reused.
#include <benchmark/benchmark.h>
#include <google/protobuf/io/coded_stream.h>
#include <google/protobuf/io/zero_copy_stream_impl_lite.h>

#include <string>
#include <vector>

#include "bench/serialization/record.hpp"
#include "record.pb.h"

namespace {

using google::protobuf::io::CodedInputStream;
using google::protobuf::io::CodedOutputStream;
using google::protobuf::io::StringOutputStream;
using orva_bench::record;
using orva_bench::record_message;

std::vector<record_message> sample_messages() {
  std::vector<record_message> messages;
  for (const record& each : orva_bench::sample_records()) {
    record_message& message = messages.emplace_back();
    message.set_id(each.id);
    message.set_count(each.count);
    message.set_size(each.size);
    message.set_flags(each.flags);
    message.set_price(each.price);
    message.set_weight(each.weight);
    message.set_name(each.name);
    message.set_path(each.path);
    message.set_note(each.note);
  }
  return messages;
}

void write(std::string& bytes, const std::vector<record_message>& messages) {
  StringOutputStream target(&bytes);
  CodedOutputStream stream(&target);
  for (const record_message& message : messages) {
    stream.WriteVarint32(static_cast<std::uint32_t>(message.ByteSizeLong()));
    message.SerializeWithCachedSizes(&stream);
  }
}

void write_binary_peer_protobuf(benchmark::State& state) {
  const auto messages = sample_messages();
  for (auto _ : state) {
    std::string bytes;
    write(bytes, messages);
    benchmark::DoNotOptimize(bytes.data());
  }
}
BENCHMARK(write_binary_peer_protobuf);

void read_binary_peer_protobuf(benchmark::State& state) {
  std::string bytes;
  write(bytes, sample_messages());
  record_message message;
  for (auto _ : state) {
    CodedInputStream stream(reinterpret_cast<const std::uint8_t*>(bytes.data()),
                            static_cast<int>(bytes.size()));
    for (int i = 0; i < 100; ++i) {
      std::uint32_t size = 0;
      stream.ReadVarint32(&size);
      const auto limit = stream.PushLimit(static_cast<int>(size));
      message.ParseFromCodedStream(&stream);
      stream.PopLimit(limit);
    }
    benchmark::DoNotOptimize(message);
  }
}
BENCHMARK(read_binary_peer_protobuf);

}  // namespace
