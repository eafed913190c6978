# What the sanitizers see, in the folder of the optimised build: RVNGENMX_INSTRUMENTED lists it. Tests
# are not compiled again for it, except where they share memory between threads themselves.
include(${PROJECT_SOURCE_DIR}/cmake/Instrumented.cmake)
set(sanitizers -fsanitize=address,undefined -fno-sanitize-recover=all)

# Straight-line code, which the tests run between pages that may not be touched.
set(straightLines "/kernels/(dft|hartley)")

# What has control flow or addresses to get wrong: the engine and its arena, the Walsh-Hadamard
# transform with its buffer, and the dispatchers.
function(sanitized_engine)
    instrumented_library(sanitized_library ${straightLines} -O1 -g1 ${sanitizers})
    # Of each test its own object, and not those of the library that it may hold as well.
    foreach(test IN ITEMS dct4_accuracy_test dct4_edited_plan_test dct4_plan_test dct4_tree_test
                          dispatch_test wht_test test_kernels)
        list(APPEND objects $<FILTER:$<TARGET_OBJECTS:${test}>,EXCLUDE,src/library/>)
    endforeach()
    add_executable(sanitized_test ${objects})
    set_target_properties(sanitized_test PROPERTIES LINKER_LANGUAGE CXX)
    target_link_options(sanitized_test PRIVATE ${sanitizers})
    target_link_libraries(sanitized_test PRIVATE
        sanitized_library rvngenmx_static GTest::gtest_main)
    gtest_discover_tests(sanitized_test TEST_PREFIX sanitized. DISCOVERY_TIMEOUT 60)
endfunction()

# Instrumented or not, the generator writes the same kernels.
function(sanitized_generator)
    set(options -O1 -g1 -D_GLIBCXX_ASSERTIONS ${sanitizers})
    instrumented_objects(sanitized_kernelgen rvngenmx_kernelgen "^$" ${options})
    instrumented_objects(sanitized_main rvnkernelgen "^$" ${options})
    add_executable(sanitized_generator
        $<TARGET_OBJECTS:sanitized_main> $<TARGET_OBJECTS:sanitized_kernelgen>)
    set_target_properties(sanitized_generator PROPERTIES LINKER_LANGUAGE CXX)
    target_link_options(sanitized_generator PRIVATE ${sanitizers})
    set(folder ${CMAKE_CURRENT_BINARY_DIR}/sanitized_kernels)
    add_test(NAME sanitized_kernels
        COMMAND sh -c "rm -rf \"$1\" && \"$0\" --tuning \"$2\" --out \"$1\" && diff -r -x '*.stamp' \"$1\" \"$3\""
                $<TARGET_FILE:sanitized_generator> ${folder} ${RVNGENMX_TUNING}
                ${PROJECT_BINARY_DIR}/kernels)
endfunction()

function(sanitized_threads)
    instrumented_library(threads_library ${straightLines} -O1 -g1 -fsanitize=thread)
    add_executable(sanitized_threads_test threads_test.cpp $<TARGET_OBJECTS:test_kernels>)
    target_include_directories(sanitized_threads_test PRIVATE
        $<TARGET_PROPERTY:threads_test,INCLUDE_DIRECTORIES>)
    target_compile_options(sanitized_threads_test PRIVATE -O1 -g1 -fsanitize=thread)
    target_link_options(sanitized_threads_test PRIVATE -fsanitize=thread)
    target_link_libraries(sanitized_threads_test PRIVATE
        threads_library rvngenmx_static GTest::gtest_main)
    gtest_discover_tests(sanitized_threads_test TEST_PREFIX sanitized. DISCOVERY_TIMEOUT 60)
endfunction()

foreach(part IN LISTS RVNGENMX_INSTRUMENTED)
    if(NOT part MATCHES "^(engine|generator|threads)$")
        message(FATAL_ERROR "RVNGENMX_INSTRUMENTED: '${part}' is none of engine, generator, threads")
    endif()
    cmake_language(CALL sanitized_${part})
endforeach()
