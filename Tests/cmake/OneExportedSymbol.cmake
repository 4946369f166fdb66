execute_process(COMMAND ${NM} -D --defined-only ${MODULE} OUTPUT_VARIABLE symbols
  COMMAND_ERROR_IS_FATAL ANY)
# Local ones, as sanitizers leave them in the table, are nobody else's.
string(REGEX REPLACE "[0-9a-f]+ [abdrt] [^\n]*\n" "" symbols "${symbols}")
string(REGEX REPLACE "[0-9a-f]+ [A-Za-z] ([^\n]*)\n" "\\1;" names "${symbols}")
list(REMOVE_ITEM names "")
if(NOT names STREQUAL "udf_GetFunctionDecls")
  message(FATAL_ERROR "exported symbols: ${names}")
endif()
