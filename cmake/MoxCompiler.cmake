# How everything is compiled: C++20, warnings as errors, ccache and a fast linker where present.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)
set(CMAKE_INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}:$ORIGIN")

if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "" FORCE)
endif()
set(MOX_OPTIMIZATION "-O2 -DNDEBUG" CACHE STRING "Flags of a release build")
set(CMAKE_CXX_FLAGS_RELEASE "${MOX_OPTIMIZATION}")
# The optimiser takes a third of the time of compiling a test, and two thirds where it is instrumented, for code
# that hardly runs.
set(MOX_TEST_OPTIMIZATION "-O0" CACHE STRING "Flags of most tests' own sources, on top of those of the build")

find_program(MOX_CCACHE ccache)
if(MOX_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${MOX_CCACHE})
endif()

# clang compiles tests, which are wide rather than deep, in half the time that g++ takes. Libraries and program come
# from the compiler that was asked for.
find_program(MOX_TEST_COMPILER clang++ DOC "What compiles tests where g++ compiles the rest")

find_program(MOX_MOLD mold)
if(MOX_MOLD)
  add_link_options(-fuse-ld=mold)
endif()

# g++ tidies its memory up again and again as it grows to some hundred megabytes, which takes a tenth of its time.
add_compile_options($<$<CXX_COMPILER_ID:GNU>:--param=ggc-min-heapsize=800000>)
add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual)
if(MOX_WARNINGS_AS_ERRORS)
  add_compile_options(-Werror)
endif()
if(MOX_SANITIZE)
  add_compile_options(-fsanitize=${MOX_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${MOX_SANITIZE})
  # gcc tells the code by these macros, clang doesn't.
  foreach(sanitizer address thread)
    if(CMAKE_CXX_COMPILER_ID MATCHES "Clang" AND MOX_SANITIZE MATCHES ${sanitizer})
      string(TOUPPER __SANITIZE_${sanitizer}__ macro)
      add_compile_definitions(${macro})
    endif()
  endforeach()
  # gcc sees values through the instrumentation that it then takes for unset, in std::regex for one.
  add_compile_options($<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
endif()
