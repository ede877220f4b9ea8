#include <iostream>
#include <string>
#include <utility>

#include "orva/orva.hpp"

using namespace orva;

// Exceptions: an application can raise the library's classes and classes derived from them.
class queue_full : public exceptions::full_error {
 public:
  using exceptions::full_error::full_error;
};

void push(int job, int limit) {
  if (job >= limit) throw queue_full("no room for job " + std::to_string(job), 21, "app/queue", "app::push");
}

// Counted objects: the count is in the object, and the last pointer deletes the object.
class document : public generic::abilities::clone_ability,
                 public generic::abilities::reference_count_pointer_ability<document> {
 public:
  explicit document(std::string title) : title_(std::move(title)) {}
  ~document() override { std::cout << "closed: " << title_ << '\n'; }
  document* clone() const { return generic::abilities::create_dynamic<document>(title_ + " (copy)"); }
  const std::string& title() const { return title_; }

 private:
  std::string title_;
};

using document_pointer = memory::pointers::rc_pointer<document>;

// Delegates: they call a member function of an object ...
struct editor {
  void show(const strings::ustring8& text) { std::cout << name << " shows " << text << '\n'; }
  std::string name;
};

// ... or any other callable, here a plain function.
class function_hook : public functor::function_type_interface<debug::assert_hook> {
 public:
  using function = void (*)(const char*, const char*, unsigned int&);

  explicit function_hook(function target) : target_(target) {}
  void operator()(const char* text, const char* file, unsigned int& line) override {
    target_(text, file, line);
  }
  bool equal(const function_type_interface& other) const override {
    const auto* same_kind = dynamic_cast<const function_hook*>(&other);
    return same_kind != nullptr && same_kind->target_ == target_;
  }
  function_hook* clone() const override { return new function_hook(*this); }

 private:
  function target_;
};

void report(const char* text, const char*, unsigned int&) {
  std::cout << "assertion failed: " << text << '\n';
}

int main() {
  try {
    push(8, 8);
  } catch (const exceptions::exception& failure) {
    const auto& place = failure.error_state();
    std::cout << failure.message() << " [" << place.function() << ", " << place.file() << ':' << place.line()
              << "]\n";
  }

  document_pointer first = generic::abilities::create_dynamic<document>("report");
  document_pointer second = first;  // two pointers, one document
  document_pointer third = first->clone();
  first = nullptr;
  std::cout << "still open: " << second->title() << ", " << third->title() << '\n';
  second = nullptr;

  editor window{"window"};
  functor::delegate_t<void(const strings::ustring8&)> on_change;
  if (!on_change) std::cout << "no listener\n";
  on_change = functor::member_function_t(&window, &editor::show);
  on_change("a change");

  const int pages = 0;
  ORVA_ASSERT(pages > 0);  // no hook: silent
  debug::set_assert_hook(function_hook(report));
  ORVA_ASSERT(pages > 0);
  ORVA_CONTEXT_ASSERT(pages > 0, "%d pages in %s", pages, third->title().c_str());
  debug::set_assert_hook(types::nil);
}
