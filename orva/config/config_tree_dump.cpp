#include <algorithm>
#include <ostream>
#include <string>
#include <string_view>

#include "orva/config/config_tree.hpp"
#include "orva/config/internal/dump_format.hpp"

namespace ORVA_NAMESPACE::config {

using _private::write_unformatted;

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
    write_unformatted(stream, indent);
    level& current = open.back();
    if (current.at == current.end) {
      write_unformatted(stream, "end\n");
      open.pop_back();
      if (open.empty()) return;
      indent.resize(indent.size() - indent_mark.size());
      continue;
    }
    const auto& [name, child] = *current.at++;
    write_unformatted(stream, name);
    write_unformatted(stream, " : ");
    write_unformatted(stream, value_text(child->node_));
    write_unformatted(stream, "\n");
    write_unformatted(stream, indent);
    if (child->children_.empty()) {
      write_unformatted(stream, "|\n");
      continue;
    }
    write_unformatted(stream, _private::children_line);
    open.push_back({child->children_.begin(), child->children_.end()});
    indent += indent_mark;
  }
}

std::ostream& operator<<(std::ostream& stream, const config_tree& tree) {
  tree.dump(stream, 0);
  return stream;
}

}  // namespace ORVA_NAMESPACE::config
