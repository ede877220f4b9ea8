// The system reports debug output to a debugger by an exception, which the first handler sees too.
#include <windows.h>

#include "tests/support/debug_output.hpp"

namespace orva_test {

namespace {

std::string seen;

LONG CALLBACK note_output(EXCEPTION_POINTERS* raised) {
  const EXCEPTION_RECORD& record = *raised->ExceptionRecord;
  constexpr DWORD byte_text = 0x40010006;
  if (record.ExceptionCode == byte_text && record.NumberParameters >= 2) {
    seen += reinterpret_cast<const char*>(record.ExceptionInformation[1]);
  }
  return EXCEPTION_CONTINUE_SEARCH;
}

}  // namespace

std::string debug_output_of(const std::function<void()>& body) {
  seen.clear();
  void* const handler = ::AddVectoredExceptionHandler(1, note_output);
  body();
  ::RemoveVectoredExceptionHandler(handler);
  return seen;
}

}  // namespace orva_test
