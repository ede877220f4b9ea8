#include "module.hpp"

#include <orva/orva.hpp>
#include <string>

namespace {

void raise() { orva::system::date_time::date().month(13); }

bool catches(void (*function)()) {
  try {
    function();
  } catch (const orva::exceptions::exception&) {
    return true;
  } catch (...) {
  }
  return false;
}

const char* message() {
  static std::string text;
  using orva::i18n::message_item;
  const orva::i18n::message_t message({message_item("version "), message_item("n", message_item::integer)});
  text = message.as_utf8(orva::generic::varg_list(orva::generic::argument("n", ORVA_VERSION_MINOR)));
  return text.c_str();
}

int seen = 0;

struct counting_hook : orva::functor::function_type_interface<orva::debug::assert_hook> {
  void operator()(const char*, const char*, unsigned int&) override { ++seen; }
  bool equal(const function_type_interface&) const override { return false; }
  counting_hook* clone() const override { return new counting_hook; }
};

void install_hook() { orva::debug::set_assert_hook(counting_hook{}); }
int assertions_seen() { return seen; }

void fail_assertion() {
  char buffer[orva::generic::convert::number_buffer_size];
  orva::generic::convert::ltoa(1, buffer, 0);
}

}  // namespace

extern "C" const module_functions MODULE;
const module_functions MODULE = {ORVA_QUALIFIED(""), raise,           catches,       message,
                                 install_hook,       assertions_seen, fail_assertion};
