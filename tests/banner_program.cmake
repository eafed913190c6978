# The program in the header's banner compiles as strict C99, runs, and prints the spectrum it is
# about: one bin is 1, the others are 0.
#
#   cmake -D HEADER=... -D LIBRARY=... -D COMPILER=... -D FLAGS=... -D FOLDER=... -P this file
file(READ ${HEADER} text)
# Semicolons and brackets mean something in lists; the lines between #include and the brace that
# closes main() are cut out as one string.
string(FIND "${text}" " *     #include" begin)
string(FIND "${text}" "\n *     }\n" end)
if(begin EQUAL -1 OR end LESS begin)
    message(FATAL_ERROR "no program in the banner of ${HEADER}")
endif()
math(EXPR length "${end} - ${begin} + 9")
string(SUBSTRING "${text}" ${begin} ${length} program)
string(REGEX REPLACE "(^|\n) \\*( |     )?" "\\1" program "${program}")
file(WRITE ${FOLDER}/banner_program.c "${program}\n")

get_filename_component(include ${HEADER} DIRECTORY)
get_filename_component(libraryFolder ${LIBRARY} DIRECTORY)
separate_arguments(FLAGS)
execute_process(
    COMMAND ${COMPILER} ${FLAGS} -std=c99 -pedantic -Wall -Wextra -Werror -I${include}
            ${FOLDER}/banner_program.c ${LIBRARY} -Wl,-rpath,${libraryFolder}
            -o ${FOLDER}/banner_program
    RESULT_VARIABLE status)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "the banner's program does not compile; see ${FOLDER}/banner_program.c")
endif()
execute_process(COMMAND ${FOLDER}/banner_program OUTPUT_VARIABLE output RESULT_VARIABLE status)
set(zeroBin "X\\[[0-9]+\\] = [+-]0\\.000 [+-]0\\.000i\n")
string(REPLACE "= [+-]0" "= \\+1" unitBin "${zeroBin}")
if(NOT status EQUAL 0 OR NOT output MATCHES "^(${zeroBin})*${unitBin}(${zeroBin})+$")
    message(FATAL_ERROR "the banner's program ended with ${status} and printed\n${output}")
endif()
