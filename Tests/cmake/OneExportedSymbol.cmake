execute_process(COMMAND ${NM} -D --defined-only ${MODULE} OUTPUT_VARIABLE symbols
  COMMAND_ERROR_IS_FATAL ANY)
string(REGEX REPLACE "[0-9a-f]+ [A-Za-z] ([^\n]*)\n" "\\1;" names "${symbols}")
list(REMOVE_ITEM names "")
if(NOT names STREQUAL "udf_GetFunctionDecls")
  message(FATAL_ERROR "exported symbols: ${names}")
endif()
