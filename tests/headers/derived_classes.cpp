// Derives from each class that is made for it, as a program does, and uses the templates and macros, whose
// bodies a compiler checks only then. The tests compile this with many warnings; it is not run.
#include <list>
#include <string>

#include "orva/orva.hpp"

namespace sample {

class printed_failure final : public orva::exceptions::runtime_error {
 public:
  using runtime_error::runtime_error;
  printed_failure(const printed_failure&) = default;
  printed_failure& operator=(const printed_failure&) = default;
  ~printed_failure() override;
};
printed_failure::~printed_failure() = default;

class counted final : public orva::generic::abilities::reference_count_pointer_ability<counted> {
 public:
  int value = 0;
};

class shape : public orva::generic::abilities::create_ability,
              public orva::generic::abilities::clone_ability,
              public orva::generic::abilities::id_ability,
              public orva::generic::abilities::reference_count_pointer_ability<shape> {
 public:
  shape() = default;
  ~shape() override;
  virtual shape* create() const;
  virtual shape* clone() const;

 protected:
  shape(const shape&) = default;
  shape& operator=(const shape&) = default;
};
shape::~shape() = default;
shape* shape::create() const { return orva::generic::abilities::create_dynamic<shape>(); }

class square final : public shape {
 public:
  square* create() const override;
  square* clone() const override;
};
square* square::create() const { return orva::generic::abilities::create_dynamic<square>(); }
square* square::clone() const { return orva::generic::abilities::create_dynamic<square>(*this); }
shape* shape::clone() const { return create(); }

class cloned final : public orva::generic::clone_interface {
 public:
  cloned* clone() const override;
};
cloned* cloned::clone() const { return new cloned(*this); }

class hook final : public orva::functor::function_type_interface<orva::debug::assert_hook> {
 public:
  void operator()(const char* text, const char* file, unsigned int& line) override;
  bool equal(const function_type_interface& other) const override;
  hook* clone() const override;
};
void hook::operator()(const char*, const char*, unsigned int& line) { line = 0; }
bool hook::equal(const function_type_interface& other) const { return this == &other; }
hook* hook::clone() const { return new hook(*this); }

class item : public orva::config::base_config_item {
 public:
  using base_config_item::load;
  bool load() override;
  item* clone() const override;
};
bool item::load() { return true; }
item* item::clone() const { return orva::generic::abilities::create_dynamic<item>(*this); }

class other_file final : public orva::config::file_item {
 public:
  using file_item::file_item;
  using file_item::save;
  bool save() override;
  other_file* clone() const override;
};
bool other_file::save() { return true; }
other_file* other_file::clone() const { return orva::generic::abilities::create_dynamic<other_file>(*this); }

class dispatch final : public orva::config::config_dispatch {
 public:
  void setup(orva::config::item_list& items) const override;
  void load(orva::config::item_list& items) const override;
  void unload(orva::config::item_list& items) const override;
  void save(orva::config::item_list& items) const override;
  dispatch* clone() const override;
};
void dispatch::setup(orva::config::item_list& items) const {
  items.emplace_back(orva::generic::abilities::create_dynamic<item>());
}
void dispatch::load(orva::config::item_list& items) const { load_each(items); }
void dispatch::unload(orva::config::item_list& items) const { unload_each(items); }
void dispatch::save(orva::config::item_list& items) const { save_each(items); }
dispatch* dispatch::clone() const { return new dispatch(*this); }

// The buffers are abstract; a program that has a form of its own derives so.
class buffer : public orva::serialization::serialize_buffer {
 public:
  const std::string& as_str() const override;

 private:
  std::string bytes_;
};
const std::string& buffer::as_str() const { return bytes_; }

class labeled_buffer : public orva::serialization::labeled_serialize_buffer {
 public:
  bool is_empty() const override;
};
bool labeled_buffer::is_empty() const { return true; }

struct listener {
  void on_text(const orva::strings::ustring8& text) { last += text; }
  int length(int more) const { return static_cast<int>(last.size()) + more; }
  orva::strings::ustring8 last;
};

int use_functions();
int use_functions() {
  listener ear;
  orva::functor::delegate_t<void(const orva::strings::ustring8&)> on_text;
  on_text = orva::functor::member_function_t(&ear, &listener::on_text);
  if (on_text) on_text("text");
  const orva::functor::delegate_t<int(int)> length =
      orva::functor::member_function_t(&ear, &listener::length);
  orva::debug::set_assert_hook(hook());
  ORVA_ASSERT(ear.last.empty());
  ORVA_ASSERT(std::is_same_v<int, long>);
  ORVA_CONTEXT_ASSERT(ear.last.empty(), "%d characters", length(0));
  ORVA_CONTEXT_ASSERT(ear.last.empty(), nullptr);
  return length(1);
}

int use_pointers();
int use_pointers() {
  counted local;
  static counted lasting;
  orva::memory::pointers::shared_pointer<counted> first(&local);
  orva::memory::pointers::shared_pointer<counted> other = first;
  other = &lasting;
  first = orva::generic::abilities::create_dynamic<counted>();
  square unit;
  orva::memory::pointers::rc_pointer<shape> corner(&unit);
  corner = orva::generic::abilities::create_dynamic<square>();
  const orva::memory::pointers::rc_pointer<shape> moved = std::move(corner);
  return first->value + other.checked().value + (moved == nullptr ? 1 : 0);
}

orva::strings::ustring8 use_values();
orva::strings::ustring8 use_values() {
  orva::generic::varg_list list(orva::generic::argument("name", "text"), {"count", 3}, orva::types::nil);
  list.push_back("price", 1.5);
  list["count"].value().as_uint8();
  orva::strings::ustring8 joined = list.at("name").value().as_utf8() + "/" + list[0].name();
  joined.append(orva::strings::utf16_to_utf8(list[1].value().as_utf16() + orva::strings::code_unit16{'x'}));
  return orva::strings::ustring8("<") + joined.substr(1) + '>';
}

printed_failure as_failure(const orva::exceptions::exception& cause);
printed_failure as_failure(const orva::exceptions::exception& cause) {
  return printed_failure(cause.message(), cause.error_state());
}

}  // namespace sample
