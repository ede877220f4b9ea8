#include "orva/config/value_origin.hpp"

#include <string>

namespace ORVA_NAMESPACE::config {

namespace {

/// "kind name", or the kind alone.
strings::ustring8 named(std::string kind, std::string_view separator, const strings::ustring8& name) {
  if (!name.empty()) kind.append(separator).append(name);
  return kind;
}

}  // namespace

origin_provider::~origin_provider() = default;

strings::ustring8 describe(const value_origin& origin) {
  switch (origin.kind) {
    case origin_kind::none:
      break;
    case origin_kind::argument:
      if (origin.argument == 0) return named("command line", ": ", origin.name);
      return named("argument " + std::to_string(origin.argument), ": ", origin.name);
    case origin_kind::file:
      if (origin.at.line == 0) return origin.name;
      return origin.name + ':' + std::to_string(origin.at.line) + ':' + std::to_string(origin.at.column);
    case origin_kind::variable:
      return named("variable", " ", origin.name);
    case origin_kind::program:
      return strings::ustring8("program");
    case origin_kind::other:
      return origin.name.empty() ? origin.source : origin.name;
  }
  return strings::ustring8("default");
}

}  // namespace ORVA_NAMESPACE::config
