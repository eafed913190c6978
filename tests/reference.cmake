# Doxygen finds nothing to warn of in the headers and pages, and every exported function has an entry
# in the reference.
#
#   cmake -D DOXYGEN=... -D NM=... -D LIBRARY=... -D SOURCES=... -D FOLDER=... -P this file
file(REMOVE_RECURSE ${FOLDER})
file(WRITE ${FOLDER}/Doxyfile
    "@INCLUDE = docs/Doxyfile\nOUTPUT_DIRECTORY = \"${FOLDER}\"\nGENERATE_TAGFILE = \"${FOLDER}/tags\"\n")
execute_process(COMMAND ${DOXYGEN} ${FOLDER}/Doxyfile
    WORKING_DIRECTORY ${SOURCES} COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${NM} -D --defined-only ${LIBRARY}
    OUTPUT_VARIABLE symbols COMMAND_ERROR_IS_FATAL ANY)

file(READ ${FOLDER}/tags tags)
string(REGEX MATCHALL "<name>[a-zA-Z0-9_]+</name>[ \n]*<anchorfile>group_" entries "${tags}")
string(REGEX MATCHALL " T [^\n]+" exported "${symbols}")
list(TRANSFORM entries REPLACE "<name>([a-zA-Z0-9_]+)<.*" "\\1")
list(TRANSFORM exported REPLACE " T " "")
if(NOT exported)
    message(FATAL_ERROR "${LIBRARY} exports nothing")
endif()
list(REMOVE_ITEM exported ${entries})
if(exported)
    list(JOIN exported "\n" missing)
    message(FATAL_ERROR "functions without an entry in the reference:\n${missing}")
endif()
