# Compile and link flags that every target of the project shares: link to drawload_flags.
add_library(drawload_flags INTERFACE)
target_compile_options(drawload_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow
  # Whether a frame's scale is exactly 1.0 decides how a drawing is placed, so every formula is evaluated
  # in plain 64-bit steps, in the order in which it is written.
  -ffp-contract=off
  $<$<BOOL:${DRAWLOAD_STRICT}>:-Werror>)

if(DRAWLOAD_FUZZ)
  # The standard library's assertions find reads behind the end of a view, which AddressSanitizer cannot see.
  target_compile_definitions(drawload_flags INTERFACE _GLIBCXX_ASSERTIONS DRAWLOAD_FUZZING)
  target_compile_options(drawload_flags INTERFACE
    -fsanitize=fuzzer-no-link,address,undefined,float-cast-overflow -fno-sanitize-recover=all)
elseif(DRAWLOAD_SANITIZE)
  target_compile_options(drawload_flags INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all)
  target_link_options(drawload_flags INTERFACE -fsanitize=address,undefined)
else()
  target_compile_options(drawload_flags INTERFACE -fstack-protector-strong
    $<$<CONFIG:Release>:-D_FORTIFY_SOURCE=2>)
  target_link_options(drawload_flags INTERFACE -Wl,-z,relro,-z,now)
endif()

if(DRAWLOAD_COVERAGE)
  target_compile_options(drawload_flags INTERFACE --coverage -fprofile-update=atomic)
  target_link_options(drawload_flags INTERFACE --coverage)
endif()
