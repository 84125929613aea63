# Warnings and sanitizers that every target of ours shares.
add_library(calvora_options INTERFACE)
target_compile_options(calvora_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
                                                 -Wnon-virtual-dtor -Woverloaded-virtual)
target_compile_definitions(calvora_options INTERFACE QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY)
if(CALVORA_WERROR)
  target_compile_options(calvora_options INTERFACE -Werror)
endif()
if(CALVORA_SANITIZE)
  target_compile_options(calvora_options INTERFACE -fsanitize=address,undefined
                                                   -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(calvora_options INTERFACE -fsanitize=address,undefined)
endif()
if(CALVORA_COVERAGE)
  target_compile_options(calvora_options INTERFACE --coverage -fprofile-update=atomic)
  target_link_options(calvora_options INTERFACE --coverage)
endif()
if(CALVORA_FUZZ)
  set(checks address,undefined,float-cast-overflow)
  target_compile_options(calvora_options INTERFACE -fsanitize=fuzzer-no-link,${checks}
                                                   -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(calvora_options INTERFACE -fsanitize=${checks})
endif()
