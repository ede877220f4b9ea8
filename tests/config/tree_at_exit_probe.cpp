// A program for config_process_test: uses a tree while the statics of the process are destroyed. Its own
// static object is constructed before main, and so it is destroyed after all statics that main was the first
// to use.
#include <iostream>

#include "orva/config/config_tree.hpp"

namespace {

struct last_user {
  ~last_user() {
    ORVA_NAMESPACE::config::config_tree tree;
    tree.set_node("a.b", 1, 0);
    std::cout << tree.get_node("a")->second.as_string() << ' ' << tree.get_node("a.b")->second.as_string()
              << std::endl;
  }
};

const std::ios_base::Init standard_streams;
const last_user user;

}  // namespace

int main() { ORVA_NAMESPACE::config::config_tree().set_node("a.b", 1, 0); }
