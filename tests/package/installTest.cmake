# Installs the library into a folder of the test's own, moves it, then builds and runs a C program against it as an
# application would: through find_package and through pkg-config; and one of C++.
#
#   cmake -DBUILD=<build folder> -DWORK=<folder to use> -DLIBDIR=<library folder below the prefix>
#         -DEXAMPLES=<their folder> -DCC=<C compiler> -DCXX=<C++ compiler> -DFLAGS=<their flags>
#         -DPKG_CONFIG=<pkg-config> -P installTest.cmake
set(prefix ${WORK}/moved)

function(Run)
    execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

file(REMOVE_RECURSE ${WORK})
Run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/installed)
file(RENAME ${WORK}/installed ${prefix})

Run(${CMAKE_CTEST_COMMAND} --build-and-test ${CMAKE_CURRENT_LIST_DIR}/consumer ${WORK}/consumer
    --build-generator Ninja --build-options -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_C_COMPILER=${CC} "-DCMAKE_C_FLAGS=${FLAGS}"
    --test-command ${CMAKE_CTEST_COMMAND} --output-on-failure)

set(ENV{PKG_CONFIG_PATH} ${prefix}/${LIBDIR}/pkgconfig)
execute_process(COMMAND ${PKG_CONFIG} --cflags --libs vxsign
    OUTPUT_VARIABLE packageFlags OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
separate_arguments(packageFlags UNIX_COMMAND "${packageFlags}")
separate_arguments(compilerFlags UNIX_COMMAND "${FLAGS}")
Run(${CC} -std=c11 ${compilerFlags} ${CMAKE_CURRENT_LIST_DIR}/program.c -o ${WORK}/program ${packageFlags}
    -Wl,-rpath,${prefix}/${LIBDIR})
Run(${WORK}/program)
Run(${CXX} -std=c++17 ${compilerFlags} ${EXAMPLES}/cpp/hello.cpp -o ${WORK}/hello ${packageFlags}
    -Wl,-rpath,${prefix}/${LIBDIR})
