# Flags that every target of ours takes, in one place.

set(ROWLARK_WARNINGS -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)

# GCC 12 sees overlaps in std::string's own code that cannot be (fixed in 13).
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  list(APPEND ROWLARK_WARNINGS -Wno-restrict)
endif()

if(ROWLARK_SANITIZE)
  add_compile_options(-fsanitize=${ROWLARK_SANITIZE} -fno-sanitize-recover=all
    -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${ROWLARK_SANITIZE})
endif()
if(ROWLARK_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()

# The library is a plain folder tree: sources include each other from the root.
function(rowlark_options target)
  target_include_directories(${target} PUBLIC ${PROJECT_SOURCE_DIR})
  target_compile_options(${target} PRIVATE ${ROWLARK_WARNINGS})
  if(WIN32)
    target_compile_definitions(${target} PUBLIC
      UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0A00 WINVER=0x0A00)
    target_compile_options(${target} PRIVATE -fstack-protector-strong)
  endif()
endfunction()

# Linked statically, with every exploit mitigation the linker offers.
function(rowlark_windows_link target)
  target_link_options(${target} PRIVATE
    -static -fstack-protector-strong
    -Wl,--high-entropy-va,--dynamicbase,--nxcompat)
endfunction()

# A kernel for one instruction set lives in a file named for it and is chosen at run time.
function(rowlark_instruction_sets)
  foreach(file ${ARGN})
    if(file MATCHES "_avx2\\.cpp$")
      set(flags -mavx2 -mbmi -mbmi2)
      if(MINGW)
        # The stack of 64-bit Windows is aligned to 16 bytes, and GCC spills 32-byte vectors to it as
        # if it were aligned to 32 (GCC bug 54412): the assembler makes those moves unaligned ones.
        list(APPEND flags -Wa,-muse-unaligned-vector-move)
      endif()
      set_source_files_properties(${file} PROPERTIES COMPILE_OPTIONS "${flags}")
    endif()
  endforeach()
endfunction()
