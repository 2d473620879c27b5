# Installs the build into a folder of its own, then configures, builds and runs the client against it.
# Given: BUILD_DIR, SOURCE_DIR, WORK_DIR, LIBDIR, CXX_COMPILER, CXX_FLAGS, LINKER_FLAGS.
set(prefix ${WORK_DIR}/installed)
set(binary ${WORK_DIR}/build)
file(REMOVE_RECURSE ${WORK_DIR})

function(step)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    list(JOIN ARGN " " command)
    message("${output}")
    message(FATAL_ERROR "ended with ${result}: ${command}")
  endif()
  set(output "${output}" PARENT_SCOPE)
endfunction()

step(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})
step(${CMAKE_COMMAND} -G Ninja -S ${SOURCE_DIR} -B ${binary} -DCMAKE_PREFIX_PATH=${prefix}
  -DMOX_INSTALLED_INCLUDES=${prefix}/include -DCMAKE_BUILD_TYPE=Release -DCMAKE_CXX_COMPILER=${CXX_COMPILER}
  "-DCMAKE_CXX_FLAGS=${CXX_FLAGS}" "-DCMAKE_EXE_LINKER_FLAGS=${LINKER_FLAGS}"
  -DCMAKE_FIND_USE_PACKAGE_REGISTRY=OFF)
step(${CMAKE_COMMAND} --build ${binary})
step(${binary}/client)
if(NOT output MATCHES "the installed tree works")
  message(FATAL_ERROR "the client said: ${output}")
endif()

# What runs out of the prefix finds its libraries there.
file(GLOB programs ${prefix}/bin/*)
file(GLOB libraries ${prefix}/${LIBDIR}/lib*.so)
foreach(file IN LISTS programs libraries)
  step(ldd ${file})
  string(REGEX MATCH "lib(mox|playground)[^\n]*(not found|=> ${BUILD_DIR}/lib)[^\n]*" strayed "${output}")
  if(strayed)
    message(FATAL_ERROR "${file}: ${strayed}")
  endif()
endforeach()
