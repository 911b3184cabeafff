# Our own Lister window, on the screen or off it.

readonly lister=build/mingw-release/tools/lister/lister.exe

build_lister() {
  install_packages "${view_packages[@]}"
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
      --theme | --find | --size | --dpi) ;;
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

take_shot() {
  run_lister timeout 180 wine "$lister" "$@"
}

cmd_view() {
  [ $# -gt 0 ] || {
    echo "usage: ./dev view FILE [OPTION...]   open FILE in our own Lister window (--help: options)" >&2
    return 2
  }
  mkdir -p build
  build_lister
  translate_arguments "$@"
  if has_display; then
    make_screen_prefix
    WINEPREFIX=$PWD/build/wine-screen run_lister wine "$lister" "${lister_arguments[@]}"
  elif [ "$1" = --help ]; then
    make_test_prefix
    take_shot --help
  else
    make_test_prefix
    start_display
    take_shot "${lister_arguments[@]}" --screenshot "$(windows_path "$PWD/build/view.png")"
    echo "$PWD/build/view.png"
  fi
}

cmd_shot() {
  [ $# -ge 2 ] || {
    echo "usage: ./dev shot FILE PNG [OPTION...]   write a screenshot of FILE in the Lister" >&2
    return 2
  }
  local file=$1 png=$2
  shift 2
  mkdir -p build
  build_lister
  make_test_prefix
  translate_arguments "$file" --screenshot "$png" "$@"
  start_display
  take_shot "${lister_arguments[@]}"
}

# picture NAME SAMPLE OPTION...
picture() {
  local name=$1 sample=$2
  shift 2
  take_shot "R:\\samples\\$sample" --screenshot "R:\\docs\\images\\$name.png" "$@"
  echo "docs/images/$name.png"
}

# The pictures of README and docs, each made by one line here.
cmd_shots() {
  mkdir -p build docs/images
  build_lister
  make_test_prefix
  start_display
  local size=1100x560
  picture table people.csv --theme Light --size $size --find vries
  picture numbers measurements.csv --theme Paper --size $size --find 22.80
  picture dark people.csv --theme Dark --size $size --find plovdiv
  picture midnight orders.csv --theme Midnight --size $size --find tört
  picture solarized-dark rivers.tsv --theme "Solarized Dark" --size $size --find vistula
  picture dpi-144 people.csv --theme Light --dpi 144 --size 1500x800 --find "two lines"
  picture outline inventory.json --theme Light --size $size
  picture outline-dark library.xml --theme Dark --size $size --find nebel
  printf '[rowlark]\r\ntree-outline=0\r\n' >build/records.ini
  picture records inventory.json --theme Light --size $size --ini 'R:\build\records.ini'
  printf '[rowlark]\r\ndefault-tab=source\r\n' >build/source.ini
  picture source library.xml --theme Light --size $size --ini 'R:\build\source.ini'
  picture quick-view people.csv --theme Light --quick-view --size $size
}
