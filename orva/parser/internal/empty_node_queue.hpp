/// `EmptyNodeQueue`: the exception of `xml_stream_parser` when a node is asked for and none can be taken.
///
/// Internal: installed because the parser's header includes it, which is what a user includes.
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
