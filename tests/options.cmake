# Every file of the libraries is compiled with strict floating point for the baseline processor.
#
#   cmake -D COMMANDS=.../compile_commands.json -P this file
file(STRINGS ${COMMANDS} commands REGEX "\"command\": .* -o [^ ]*(rvngenmx_objects|rvngenmx_dct4|rvncore_objects)")
list(LENGTH commands count)
if(count LESS 500)
    message(FATAL_ERROR "${COMMANDS} has ${count} files of the libraries")
endif()
foreach(command IN LISTS commands)
    if(NOT command MATCHES " -ffp-contract=off " OR command MATCHES " -(ffp-contract=fast|ffast-math|Ofast|flto|mfma|mavx|march=)")
        message(FATAL_ERROR "not compiled for strict floating point on any processor: ${command}")
    endif()
endforeach()
