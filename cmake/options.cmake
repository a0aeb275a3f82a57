# What every target of the project is compiled and linked with.
add_library(kv_options INTERFACE)
target_compile_features(kv_options INTERFACE cxx_std_20)
target_include_directories(kv_options INTERFACE ${PROJECT_SOURCE_DIR})

option(KV_SANITIZERS "Build with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)

option(KV_DEBUG_SYMBOLS "Keep the program's debug symbols, in a file beside it" OFF)

if(MSVC)
    # No errors of warnings that nobody has seen yet.
    target_compile_options(kv_options INTERFACE /W4 /permissive- /utf-8)
    # One file that brings its run-time library along.
    set(CMAKE_MSVC_RUNTIME_LIBRARY MultiThreaded$<$<CONFIG:Debug>:Debug>)
    set(CMAKE_POLICY_DEFAULT_CMP0091 NEW)  # GoogleTest with the same
else()
    target_compile_options(kv_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow
                                                -Werror)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
        # It sees overlapping copies in plain assignments of std::string (GCC bug 105651).
        target_compile_options(kv_options INTERFACE -Wno-restrict)
    endif()
endif()

if(KV_SANITIZERS)
    target_compile_options(kv_options INTERFACE -fsanitize=address,undefined
                                                -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(kv_options INTERFACE -fsanitize=address,undefined)

    # Optimised: tests run the product ten thousands of times.
    add_compile_options(-O2)
endif()

if(MINGW)
    # One file that brings its run-time library along; no time stamp, so that equal sources give
    # equal bytes.
    target_link_options(kv_options INTERFACE -static -Wl,--no-insert-timestamp)
    if(KV_DEBUG_SYMBOLS)
        add_compile_options(-g)
    else()
        target_link_options(kv_options INTERFACE $<$<CONFIG:Release>:-s>)
    endif()
    # Wherever the sources lie, the program is the same.
    add_compile_options(-ffile-prefix-map=${PROJECT_SOURCE_DIR}=.
                        -ffile-prefix-map=${PROJECT_BINARY_DIR}=build)
    target_compile_options(kv_options INTERFACE -ffunction-sections -fdata-sections)
    target_link_options(kv_options INTERFACE -Wl,--gc-sections)

    target_compile_options(kv_options INTERFACE -fno-rtti -fno-threadsafe-statics)

    # The program is small before it is fast: the system's calls take nearly all of its time.
    add_compile_options($<$<CONFIG:Release>:-Os$<SEMICOLON>-flto$<SEMICOLON>-ffat-lto-objects>)

    # The linker itself takes care of random addresses and of data that is no code.
    target_link_options(kv_options INTERFACE -Wl,--tsaware)
    target_compile_options(kv_options INTERFACE -fstack-protector-strong)
    target_link_libraries(kv_options INTERFACE kv_stack_guard)
endif()

if(MSVC)
    # Also the libraries that are loaded before the program's first line come from the system folder
    # only. GNU ld writes no such field; there all imports are libraries that Windows never looks
    # for, and the manifest names the place of others.
    target_link_options(kv_options INTERFACE /DEPENDENTLOADFLAG:0x800)
endif()
