# What GCC and Clang are told: warnings, hardening, sanitizers. Other compilers keep their own habits.
if(MSVC)
    add_compile_options("$<$<COMPILE_LANGUAGE:C,CXX>:/utf-8>")
    return()
endif()
if(NOT CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
    return()
endif()

add_compile_options("$<$<COMPILE_LANGUAGE:C,CXX>:-Wall;-Wextra;-Wpedantic;-Wconversion;-Wshadow;-Werror>")

if(ZELSTANDARD_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
    return() # the sanitizers watch the functions that the hardened ones would replace
endif()

# The checks of _FORTIFY_SOURCE need an optimising compiler.
add_compile_options("$<$<COMPILE_LANGUAGE:C,CXX>:-fstack-protector-strong>"
    "$<$<AND:$<COMPILE_LANGUAGE:C,CXX>,$<CONFIG:Release,RelWithDebInfo,MinSizeRel>>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>")
if(MINGW)
    add_link_options(-Wl,--dynamicbase,--nxcompat,--high-entropy-va)
    # Their runtime is linked in, so that it is no further DLL.
    foreach(language C CXX)
        string(APPEND CMAKE_${language}_STANDARD_LIBRARIES " -Wl,-Bstatic -lssp -Wl,-Bdynamic")
    endforeach()
else()
    add_link_options(-Wl,-z,now,-z,relro)
endif()
