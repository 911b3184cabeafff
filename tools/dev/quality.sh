# Formatting, layers, style and clang-tidy.

our_sources() { git ls-files -co --exclude-standard -- '*.cpp' '*.h'; }

cmd_format() {
  install_packages
  if [ "${1:-}" = --check ]; then
    our_sources | xargs clang-format-16 --dry-run --Werror
  else
    our_sources | xargs clang-format-16 -i
  fi
}

# Windows sources are read with the cross-compiler's own headers. This clang knows the language by its
# older name and not every warning of the other compiler.
tidy_windows() {
  local gcc=/usr/lib/gcc/x86_64-w64-mingw32/12-posix/include
  xargs -P2 -n4 clang-tidy-16 --quiet -p build/mingw-release \
    --extra-arg=--target=x86_64-w64-mingw32 \
    --extra-arg=-std=c++2b --extra-arg=-Wno-unknown-warning-option \
    --extra-arg=-isystem --extra-arg=$gcc/c++ \
    --extra-arg=-isystem --extra-arg=$gcc/c++/x86_64-w64-mingw32
}

cmd_lint() {
  cmd_build
  python3 tools/check_layers.py
  python3 tools/check_style.py
  cmd_format --check
  our_sources | grep -E '^(model|view/logic|host/config|load/memory|load/text|fuzz)/.*\.cpp$' |
    grep -v platform_win32 |
    xargs -P2 -n4 clang-tidy-16 --quiet -p build/native-asan
  our_sources |
    grep -E '^(host/[^/]*|host/store/.*|load/[^/]*|load/files/.*|view/[^/]*|tools/common/.*|tools/lister/.*)\.cpp$' |
    tidy_windows
  echo "lint: clean"
}
