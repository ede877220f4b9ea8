// A program of somebody else: it sees the installed headers and the library, and nothing of the source tree.
#include <cstdio>
#include <orva/orva.hpp>

int main() {
  const orva::strings::ustring8 text = orva::strings::ustring8("or") + "va";
  try {
    throw orva::exceptions::out_of_range("caught", 1, "consumer", "main");
  } catch (const orva::exceptions::exception& failure) {
    std::printf("%s %s\n", text.c_str(), failure.message());
  }
  return orva::debug::is_assert_hook_set() ? 1 : 0;
}
