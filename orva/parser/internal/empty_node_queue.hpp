/// `EmptyNodeQueue`: what `xml_stream_parser` throws at whoever asks an empty queue for a node.
#pragma once

#include <exception>

#include "orva/export.hpp"

namespace ORVA_NAMESPACE::parser {

class ORVA_API EmptyNodeQueue : public std::exception {
 public:
  ~EmptyNodeQueue() override;
  const char* what() const noexcept override;  ///< "empty node queue"
};

}  // namespace ORVA_NAMESPACE::parser
