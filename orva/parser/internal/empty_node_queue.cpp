#include "orva/parser/internal/empty_node_queue.hpp"

namespace ORVA_NAMESPACE::parser {

EmptyNodeQueue::~EmptyNodeQueue() = default;

const char* EmptyNodeQueue::what() const noexcept { return "empty node queue"; }

}  // namespace ORVA_NAMESPACE::parser
