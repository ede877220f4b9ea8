#include "orva/parser/empty_node_queue.hpp"

namespace ORVA_2_18::parser {

EmptyNodeQueue::~EmptyNodeQueue() = default;

const char* EmptyNodeQueue::what() const noexcept { return "empty node queue"; }

}  // namespace ORVA_2_18::parser
