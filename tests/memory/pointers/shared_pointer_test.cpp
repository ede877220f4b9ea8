#include "orva/memory/pointers/shared_pointer.hpp"

#include <gtest/gtest.h>

#include <string>

#include "orva/exceptions/exception.hpp"

namespace {

using namespace ORVA_NAMESPACE;
using generic::abilities::create_dynamic;
using memory::pointers::shared_pointer;

struct counted : generic::abilities::reference_count_pointer_ability<counted> {};

TEST(shared_pointer, checked_gives_the_target) {
  const shared_pointer<counted> pointer(create_dynamic<counted>());
  EXPECT_EQ(&pointer.checked(), pointer.get());
}

TEST(shared_pointer, checked_on_an_empty_pointer_throws_the_bare_text) {
  try {
    shared_pointer<counted>().checked();
    FAIL();
  } catch (const char* text) {
    EXPECT_STREQ(text, "unreferanced object");
  }
}

TEST(shared_pointer, checked_text_is_no_exception_of_the_library) {
  try {
    shared_pointer<counted>().checked();
    FAIL();
  } catch (const exceptions::exception&) {
    FAIL();
  } catch (...) {
  }
}

}  // namespace
