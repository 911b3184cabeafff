# Our own Lister window, on the screen or off it.

readonly lister=build/mingw-release/tools/lister/lister.exe

build_lister() {
  install_packages "${view_packages[@]}"
  make_wine_prefix
  build_preset mingw-release rowlark rowlark_lister >build/lister.log 2>&1 || {
    cat build/lister.log >&2
    return 1
  }
}

# A path of the caller's as Windows programs name it. The script has left the caller's folder.
windows_path() {
  local path
  path=$(cd "$OLDPWD" && realpath -m -- "$1")
  printf 'Z:%s' "${path//\//\\}"
}

# Fills `lister_arguments`: files become Windows paths, everything else stays as it is.
translate_arguments() {
  lister_arguments=()
  local previous='' argument
  for argument in "$@"; do
    case $previous in
      --ini | --screenshot | --module) argument=$(windows_path "$argument") ;;
      --theme | --size | --dpi) ;;
      *) [ "${argument#-}" != "$argument" ] || argument=$(windows_path "$argument") ;;
    esac
    lister_arguments+=("$argument")
    previous=$argument
  done
}

# Words of the program are kept in a file and shown at its end.
run_lister() {
  local result=0
  "$@" </dev/null >build/lister.out 2>&1 3>&- || result=$?
  cat build/lister.out
  [ $result -ne 124 ] || echo "dev: the Lister did not end in time" >&2
  return $result
}

# take_shot PNG ARGUMENT...: the display must be there already. PNG is relative to the project.
take_shot() {
  local png=$PWD/$1
  shift
  mkdir -p "$(dirname "$png")"
  run_lister timeout 180 wine "$lister" --screenshot "Z:${png//\//\\}" "$@"
}

cmd_view() {
  [ $# -gt 0 ] || {
    echo "usage: ./dev view FILE [OPTION...]   open FILE in our own Lister window (--help: options)" >&2
    return 2
  }
  build_lister
  translate_arguments "$@"
  if [ "$1" = --help ]; then
    run_lister timeout 60 wine "$lister" --help
  elif has_display; then
    run_lister wine "$lister" "${lister_arguments[@]}"
  else
    start_display
    take_shot build/view.png "${lister_arguments[@]}"
    echo "$PWD/build/view.png"
  fi
}

cmd_shot() {
  [ $# -ge 2 ] || {
    echo "usage: ./dev shot FILE PNG [OPTION...]   write a screenshot of FILE in the Lister" >&2
    return 2
  }
  build_lister
  local file=$1 png=$2
  shift 2
  translate_arguments "$file" --screenshot "$png" "$@"
  start_display
  run_lister timeout 180 wine "$lister" "${lister_arguments[@]}"
}

# The pictures of README and docs: name, file, options.
cmd_shots() {
  build_lister
  start_display
  local size=900x520
  take_shot docs/images/table.png samples/people.csv --theme Light --size $size
  take_shot docs/images/numbers.png samples/measurements.csv --theme Paper --size $size
  take_shot docs/images/dark.png samples/people.csv --theme Dark --size $size
  take_shot docs/images/midnight.png samples/measurements.csv --theme Midnight --size $size
  take_shot docs/images/solarized-dark.png samples/orders.csv --theme "Solarized Dark" --size $size
  take_shot docs/images/dpi-144.png samples/people.csv --theme Light --dpi 144 --size 1300x760
  take_shot docs/images/quick-view.png samples/people.csv --theme Light --quick-view --size $size
  ls -l docs/images
}
