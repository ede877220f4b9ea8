/// The record in a serialization buffer, or in a class with the functions of one.
#pragma once

#include "bench/serialization/record.hpp"

namespace orva_bench {

template <typename Buffer>
void write(Buffer& buffer, const record& each) {
  buffer.append_int32(each.id);
  buffer.append_int32(each.count);
  buffer.append_int64(each.size);
  buffer.append_uint32(each.flags);
  buffer.append_double(each.price, 17);
  buffer.append_double(each.weight, 17);
  buffer.append_string(each.name);
  buffer.append_string(each.path);
  buffer.append_string(each.note);
}

template <typename Buffer>
void read(Buffer& buffer, record& each) {
  each.id = buffer.read_int32();
  each.count = buffer.read_int32();
  each.size = buffer.read_int64();
  each.flags = buffer.read_uint32();
  each.price = buffer.read_double();
  each.weight = buffer.read_double();
  each.name = buffer.read_string();
  each.path = buffer.read_string();
  each.note = buffer.read_string();
}

}  // namespace orva_bench
