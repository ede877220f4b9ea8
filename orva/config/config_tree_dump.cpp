#include <algorithm>
#include <ostream>
#include <string>
#include <string_view>

#include "orva/config/config_tree.hpp"
#include "orva/config/internal/dump_marks.hpp"

namespace ORVA_NAMESPACE::config {

using _private::put;

namespace {

constexpr std::string_view indent_mark = "|\t\t";

std::string value_text(const config_tree::node_type& node) {
  if (node.first == 0) return "true";
  return std::to_string(node.first) + ' ' + node.second.as_string();
}

}  // namespace

void config_tree::dump(std::ostream& stream, int depth) const {
  struct level {
    child_map::const_iterator at, end;
  };
  std::string indent;
  for (int i = 0; i < depth; ++i) indent += indent_mark;
  std::vector<level> open{{children_.begin(), children_.end()}};
  for (;;) {
    put(stream, indent);
    level& current = open.back();
    if (current.at == current.end) {
      put(stream, "end\n");
      open.pop_back();
      if (open.empty()) return;
      indent.resize(indent.size() - indent_mark.size());
      continue;
    }
    const auto& [name, child] = *current.at++;
    put(stream, name);
    put(stream, " : ");
    put(stream, value_text(child->node_));
    put(stream, "\n");
    put(stream, indent);
    if (child->children_.empty()) {
      put(stream, "|\n");
      continue;
    }
    put(stream, _private::rule);
    open.push_back({child->children_.begin(), child->children_.end()});
    indent += indent_mark;
  }
}

std::ostream& operator<<(std::ostream& stream, const config_tree& tree) {
  tree.dump(stream, 0);
  return stream;
}

}  // namespace ORVA_NAMESPACE::config
