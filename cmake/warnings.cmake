# SPDX-License-Identifier: GPL-3.0-or-later
# Target kestrin7_warnings: linked PRIVATE by everything of ours that is compiled.
add_library(kestrin7_warnings INTERFACE)
target_compile_options(kestrin7_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
    -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-qual -Wformat=2 -Wnull-dereference
    -Wimplicit-fallthrough -Wextra-semi -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(kestrin7_warnings INTERFACE -Wduplicated-cond -Wlogical-op)
    if(KESTRIN_SANITIZE)
        # The sanitizers' own instrumentation trips this one in inlined Qt containers.
        target_compile_options(kestrin7_warnings INTERFACE -Wno-null-dereference)
    endif()
endif()
target_compile_definitions(kestrin7_warnings INTERFACE
    QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_DISABLE_DEPRECATED_BEFORE=0x060400)
