# Gives the hidden names of a static archive, which it cannot hide, a prefix of the library, so that
# they clash with no name of the program it is linked into.
#
#   cmake -D ARCHIVE=... -D NM=... -D OBJCOPY=... -P this file
execute_process(COMMAND ${NM} --extern-only --defined-only ${ARCHIVE}
    OUTPUT_VARIABLE symbols COMMAND_ERROR_IS_FATAL ANY)
string(REGEX MATCHALL " [A-Z] [A-Za-z][A-Za-z0-9_]*\n" names "${symbols}")
list(TRANSFORM names REPLACE " [A-Z] ([^\n]+)\n" "\\1")
list(FILTER names EXCLUDE REGEX "^(rvn|owng)")
list(REMOVE_DUPLICATES names)
list(TRANSFORM names REPLACE "(.+)" "--redefine-sym=\\1=owng_\\1")
execute_process(COMMAND ${OBJCOPY} --enable-deterministic-archives ${names} ${ARCHIVE}
    COMMAND_ERROR_IS_FATAL ANY)
