# Warnings, hardening and sanitizers, carried by the interface target korvex_options that everything of ours links.

add_library(korvex_options INTERFACE)
target_compile_features(korvex_options INTERFACE cxx_std_20)
target_compile_options(korvex_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor -Wold-style-cast
  -Wcast-align -Woverloaded-virtual -Wformat=2)

# GCC 12 reports copies that cannot overlap wherever a text is put together from a literal and a string.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(korvex_options INTERFACE -Wno-restrict)
endif()

# Reals must not differ between machines: no contraction into fused operations.
target_compile_options(korvex_options INTERFACE -ffp-contract=off)

if(KORVEX_SANITIZE)
  target_compile_options(korvex_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(korvex_options INTERFACE -fsanitize=address,undefined)
elseif(KORVEX_FUZZ)
  target_compile_options(korvex_options INTERFACE
    -fsanitize=fuzzer-no-link,address,undefined,float-cast-overflow -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(korvex_options INTERFACE -fsanitize=address,undefined)
else()
  target_compile_options(korvex_options INTERFACE -fstack-protector-strong -fstack-clash-protection)
  target_compile_definitions(korvex_options INTERFACE _GLIBCXX_ASSERTIONS)
  if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64")
    target_compile_options(korvex_options INTERFACE -fcf-protection)
  endif()
  if(CMAKE_BUILD_TYPE STREQUAL "Release" OR CMAKE_BUILD_TYPE STREQUAL "RelWithDebInfo")
    target_compile_options(korvex_options INTERFACE -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
  endif()
  target_link_options(korvex_options INTERFACE -Wl,-z,relro,-z,now,-z,noexecstack)
endif()

# What moc and rcc generate is not ours to tidy. One check stays on, for clang-tidy refuses to run with none.
file(WRITE ${CMAKE_BINARY_DIR}/.clang-tidy "Checks: '-*,misc-definitions-in-headers'\n")
