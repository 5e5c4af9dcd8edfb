# The font library keeps its cache until exit; the leak checker is told so.
set(QS_LSAN_ENV "LSAN_OPTIONS=suppressions=${CMAKE_CURRENT_LIST_DIR}/../tests/lsan.supp")

# Warnings are errors in our own code; sanitizers when asked for.
function(qs_target_options target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Werror)
  target_compile_definitions(${target} PRIVATE
    QS_VERSION_MAJOR=${PROJECT_VERSION_MAJOR}
    QS_VERSION_MINOR=${PROJECT_VERSION_MINOR}
    QS_VERSION_PATCH=${PROJECT_VERSION_PATCH})
  if(QS_FUZZ)
    # Our own code carries the fuzzer's coverage instrumentation, so it can steer into it.
    target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link,address,undefined -fno-omit-frame-pointer)
    target_link_options(${target} PRIVATE -fsanitize=address,undefined)
  elseif(QS_SANITIZE)
    target_compile_options(${target} PRIVATE -fsanitize=address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
    target_link_options(${target} PRIVATE -fsanitize=address,undefined)
  endif()
endfunction()

# A QtTest executable registered with CTest; GUI tests run on the offscreen platform.
function(qs_add_test name)
  cmake_parse_arguments(T "" "" "SOURCES;LIBS" ${ARGN})
  add_executable(${name} ${T_SOURCES})
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
  target_link_libraries(${name} PRIVATE Qt6::Test ${T_LIBS})
  qs_target_options(${name})
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen;QS_SOURCE_DIR=${CMAKE_SOURCE_DIR};QS_PROGRAM_DIR=${QS_PROGRAM_DIR};${QS_LSAN_ENV}")
endfunction()

# A fuzz target: a source defining LLVMFuzzerTestOneInput and a folder of seed inputs (and, where
# the input has a syntax, a dictionary of its words). Normal builds link it with a small driver that
# replays the seeds under CTest, so a crash found once stays fixed; with QS_FUZZ (clang) it links
# libFuzzer for real fuzzing, and the fuzz script finds the seeds and dictionary through a file
# named after the target beside it.
function(qs_add_fuzz_target name)
  cmake_parse_arguments(F "" "CORPUS;DICT" "SOURCES;LIBS" ${ARGN})
  if(QS_FUZZ)
    add_executable(${name} ${F_SOURCES} ${PROJECT_SOURCE_DIR}/tests/fuzz/FuzzOptions.cpp)
    target_compile_options(${name} PRIVATE -fsanitize=fuzzer,address,undefined)
    target_link_options(${name} PRIVATE -fsanitize=fuzzer,address,undefined)
    set(inputs "seeds=${F_CORPUS}\n")
    if(F_DICT)
      string(APPEND inputs "dict=${F_DICT}\n")
    endif()
    file(WRITE ${CMAKE_BINARY_DIR}/fuzz/${name}.inputs "${inputs}")
  else()
    add_executable(${name} ${F_SOURCES} ${PROJECT_SOURCE_DIR}/tests/fuzz/ReplayMain.cpp)
  endif()
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/fuzz)
  target_link_libraries(${name} PRIVATE ${F_LIBS})
  qs_target_options(${name})
  if(NOT QS_FUZZ)
    add_test(NAME ${name}_replay COMMAND ${name} ${F_CORPUS})
    set_tests_properties(${name}_replay PROPERTIES ENVIRONMENT "QT_QPA_PLATFORM=offscreen;${QS_LSAN_ENV}")
  endif()
endfunction()
