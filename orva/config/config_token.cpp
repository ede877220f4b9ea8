#include "orva/config/config_token.hpp"

#include <array>
#include <cstddef>

namespace ORVA_NAMESPACE::config {

namespace {

constexpr std::array names{"T_VAR :[",     "T_NUM",        "T_NEWLINE",  "T_TABCHAR",
                           "T_UNKNOWN:[",  "T_END",        "T_SPACE",    "T_EQ",
                           "T_EQEQ",       "T_GT",         "T_GTEQ",     "T_LT",
                           "T_LTEQ",       "T_COLON",      "T_COLONEQ",  "T_POUND",
                           "T_FSFS",       "T_DOT",        "T_SBRACKET", "T_EBRACKET",
                           "T_PLUS",       "T_MINUS",      "T_PLUSEQ",   "T_MINUSEQ",
                           "unknown type", "unknown type", "T_TIMES",    "T_DIV",
                           "T_TIMESEQ",    "T_DIVEQ",      "T_STRING:[", "T_NON_ALPHA_NUM:["};
static_assert(names.size() == config_token::T_NON_ALPHA_NUM + 1);

}  // namespace

std::string config_token::CvtTokStr() const {
  if (type < 0 || static_cast<std::size_t>(type) >= names.size()) return "unknown type";
  const std::string name = names[static_cast<std::size_t>(type)];
  return name.ends_with('[') ? name + text + ']' : name;
}

}  // namespace ORVA_NAMESPACE::config
