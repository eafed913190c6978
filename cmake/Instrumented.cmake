# Copies of our targets that the compiler instruments: for sanitizers, or for fuzzing.

# instrumented_objects(NAME TARGET EXCEPT OPTION...): an object library of the sources of TARGET,
# compiled with these options, but for those that the regular expression EXCEPT finds.
function(instrumented_objects name target except)
    get_target_property(sources ${target} SOURCES)
    get_target_property(folder ${target} SOURCE_DIR)
    list(FILTER sources EXCLUDE REGEX "${except}")
    list(TRANSFORM sources PREPEND ${folder}/ REGEX "^[^/]")
    add_library(${name} OBJECT ${sources})
    add_dependencies(${name} rvngenmx_kernels)
    foreach(property IN ITEMS INCLUDE_DIRECTORIES COMPILE_DEFINITIONS)
        set_target_properties(${name} PROPERTIES
            ${property} "$<TARGET_PROPERTY:${target},${property}>")
    endforeach()
    target_compile_options(${name} PRIVATE ${ARGN})
endfunction()

# instrumented_library(NAME EXCEPT OPTION...): both libraries so, as one archive. What it lacks comes
# from rvngenmx_static, named after it.
function(instrumented_library name except)
    add_library(${name} STATIC)
    foreach(objects IN ITEMS rvncore_objects rvngenmx_objects rvngenmx_dct4_32f rvngenmx_dct4_64f)
        instrumented_objects(${name}_${objects} ${objects} "${except}" ${ARGN})
        target_sources(${name} PRIVATE $<TARGET_OBJECTS:${name}_${objects}>)
    endforeach()
    set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX)
    target_link_libraries(${name} PUBLIC m)
endfunction()
