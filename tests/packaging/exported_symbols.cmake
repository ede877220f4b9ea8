cmake_minimum_required(VERSION 3.22)
# The shared library exports names of its namespace only: nothing of platform and internal, and of the
# namespaces _private only what public headers call.
execute_process(COMMAND ${NM} -D --defined-only --demangle ${LIBRARY} OUTPUT_VARIABLE output
  COMMAND_ERROR_IS_FATAL ANY)
string(REPLACE ";" "," output "${output}")
string(REGEX MATCHALL "[^\n]+" lines "${output}")
list(LENGTH lines count)
if(count LESS 50)
  message(FATAL_ERROR "only ${count} exported names were found")
endif()

set(exported_private
  "debug::_private::_+ASSERT_+\\("
  "debug::_private::_+CONTEXT__ASSERT_+\\("
  "diagnostics::_private::describe_number\\("
  "generic::convert::_private::(read|write)_(signed|unsigned|integer|floating)[<(]"
  "strings::_private::((converted|compare_caseless|map_case)<|write_(utf8|quoted)\\()"
  "i18n::_private::format_(int|double|memory|metric|duration)\\("
  "i18n::_private::write(_quoted)?\\("
  "system::date_time::_private::(describe|write)\\("
  "types::_private::exact_value\\("
  "i18n::_private::(xmc_file_loader|load_error)")
list(JOIN exported_private "|" exported_private)
# Called by installed headers of internal/.
set(exported_internal "internal::library_(sum|product|quotient)\\(")

foreach(line ${lines})
  string(REGEX REPLACE "^[0-9a-f]* *[A-Za-z] " "" name "${line}")
  if(name MATCHES "(^|[ (])${NAMESPACE}::(internal|platform)::" AND NOT name MATCHES "${exported_internal}")
    message(SEND_ERROR "internal: ${name}")
  endif()
  if(NOT name MATCHES "^(typeinfo for |typeinfo name for |vtable for |VTT for |(non-)?virtual thunk to |guard variable for )?([a-z][A-Za-z0-9_:<>, ]*[ &*])?${NAMESPACE}::")
    message(SEND_ERROR "outside the namespace: ${name}")
  endif()
  # The text before the argument list is the name itself.
  string(REGEX REPLACE "\\(.*" "(" head "${name}")
  if(head MATCHES "::_private::" AND NOT head MATCHES "${exported_private}")
    message(SEND_ERROR "internal: ${name}")
  endif()
endforeach()
message(STATUS "${count} exported names")
