# A library exports the names of its committed list and its static archive defines them, and, where DIFF and DESCRIPTION are given, the
# functions and types of its committed description: any difference fails. LIBRARY has debug
# information then.
cmake_minimum_required(VERSION 3.25)
execute_process(COMMAND ${NM} -D --defined-only ${LIBRARY}
    OUTPUT_VARIABLE symbols COMMAND_ERROR_IS_FATAL ANY)
string(REGEX REPLACE "[0-9a-f]+ ([A-Za-z]) ([^\n]+)" "\\2 \\1" symbols "${symbols}")
file(READ ${EXPORTS} exports)
if(NOT symbols STREQUAL exports)
    string(REPLACE "\n" ";" symbols "${symbols}")
    string(REPLACE "\n" ";" exports "${exports}")
    set(added ${symbols})
    list(REMOVE_ITEM added ${exports})
    list(REMOVE_ITEM exports ${symbols})
    message(FATAL_ERROR "${LIBRARY}\nexports beyond its list: ${added}\ndoes not export: ${exports}")
endif()

string(REGEX MATCHALL "[^\n ]+ [A-Z]\n" functions "${symbols}")
list(TRANSFORM functions REPLACE " .\n" "")
execute_process(COMMAND ${NM} --defined-only --extern-only ${ARCHIVE}
    OUTPUT_VARIABLE archived COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL " T [^\n]+" archived "${archived}")
list(TRANSFORM archived REPLACE " T " "")
list(REMOVE_ITEM functions ${archived})
if(functions)
    message(FATAL_ERROR "${ARCHIVE} does not define: ${functions}")
endif()

if(DEFINED DIFF)
    execute_process(COMMAND ${DIFF} ${DESCRIPTION} ${LIBRARY}
        RESULT_VARIABLE status OUTPUT_VARIABLE differences ERROR_VARIABLE differences)
    if(NOT status EQUAL 0 OR NOT differences STREQUAL "")
        message(FATAL_ERROR "${LIBRARY} differs from ${DESCRIPTION}:\n${differences}")
    endif()
endif()
