# Sourced by .ci/run: the checks other than the tests. Each fails with its findings on the console.
# shellcheck shell=bash

# Every C++ file of the project, NUL-separated.
SourceFiles() { git ls-files -z --cached --others --exclude-standard -- '*.cpp' '*.h'; }

CheckFormat() { SourceFiles | xargs -0 clang-format-14 --dry-run -Werror; }

# The words in .codespellignore are names that only look misspelt. The replies, INI files and
# pictures of the tests are data, and so are the seeds of the fuzz targets.
CheckSpelling() {
  git ls-files -z --cached --others --exclude-standard -- ':!tests/data' ':!fuzz/corpus' \
    ':!*.png' |
    xargs -0 codespell --ignore-words=.codespellignore
}

# The tray icon's drawings must be what their script makes.
CheckIcons() {
  local drawn result=0
  drawn=$(mktemp -d)
  src/graph/icons/make "$drawn"
  diff --recursive --exclude=make --exclude=icons.qrc src/graph/icons "$drawn" || result=$?
  rm -rf "$drawn"
  return "$result"
}

# The project's own sources, each folder as one, and their headers. There, a folder's sources are in
# an included file themselves, which two of the checks would find fault with; what one of these is
# for is looked for in the headers by its text.
CheckTidy() {
  local names
  names=$(git grep --line-number --extended-regexp '^using (namespace )?[A-Za-z_:]+;' -- '*.h') || true
  [[ -z $names ]] || Fail "using declarations in headers:"$'\n'"$names"
  cmake --preset lint >/dev/null
  run-clang-tidy-14 -quiet -j 2 -p build/lint -header-filter='/(src|tests|tools|bench|fuzz|examples)/.*\.(h|cpp)$' \
    -checks='-bugprone-suspicious-include,-google-global-names-in-headers' \
    "^$(pwd | sed 's/[][\.*^$+?(){}|]/\\&/g')/build/lint/lint/" </dev/null 2>&1 |
    sed --regexp-extended '/^clang-tidy-14 |^[0-9]+ warnings? generated/d'
}

# The unpacked package must hold the profiles, the licence and the documents as they are in the
# tree, and programs without symbols, which those of the build tree keep.
CheckPackageContents() {
  local package=$1 file program name count=0
  for file in LICENSE profiles/TavrinWeatherProfiles.ini docs/files.md docs/profiles.md; do
    name=${file/#docs/doc}
    cmp "$file" "$package/${name#profiles/}" || Fail "the package does not hold $file"
  done
  HasSymbols() { grep --quiet --fixed-strings ' .symtab ' <<<"$(readelf --wide --sections "$1")"; }
  for program in "$package"/Tavrin*; do
    [[ -x $program ]] || continue
    count=$((count + 1))
    name=${program##*/}
    ! HasSymbols "$program" || Fail "the packaged $name is not stripped"
    HasSymbols "build/release/$name" || Fail "build/release/$name has lost its symbols"
  done
  ((count >= 3)) || Fail "the package holds $count programs"
}

# The package must be complete, and its programs must start from wherever it is unpacked, stay up, and
# exit cleanly on SIGTERM.
CheckPackage() {
  local package name program result
  folder=$(mktemp -d)
  pid=
  trap 'rm -rf "$folder"; [[ -z $pid ]] || kill -KILL "$pid" 2>/dev/null || true' EXIT
  cpack --preset release
  package=$(ls build/release/tavrin-weather-utility-*.tar.gz)
  tar --extract --file "$package" --directory "$folder"
  CheckPackageContents "$(echo "$folder"/*/)"
  mkdir "$folder/data"
  for name in TavrinWeatherUtility TavrinWeatherService; do
    program=$(echo "$folder"/*/"$name")
    TAVRIN_WEATHER_FOLDER=$folder/data "$program" </dev/null &
    pid=$!
    sleep 2
    kill -0 "$pid" || Fail "the packaged $name did not stay up for 2 s"
    kill -TERM "$pid"
    result=0
    wait "$pid" || result=$?
    pid=
    ((result == 0)) || Fail "SIGTERM ended the packaged $name with exit code $result"
  done
  tools/check_windowless "$program"
}

# The shipped programs must be position-independent, with tables that are read-only once they run, a
# stack that is guarded and not executable, and checked library calls.
CheckHardening() {
  local program header dynamic symbols
  Has() { grep --quiet --extended-regexp "$2" <<<"$3" || Fail "$program: $1"; }
  for program in build/release/TavrinWeather{Utility,Service}; do
    header=$(readelf --wide --file-header --program-headers "$program")
    dynamic=$(readelf --wide --dynamic "$program")
    symbols=$(readelf --wide --dyn-syms "$program")
    Has "not position-independent" 'Type: +DYN' "$header"
    Has "not position-independent" 'FLAGS_1.*\bPIE\b' "$dynamic"
    Has "no read-only relocations" 'GNU_RELRO' "$header"
    Has "binds its symbols late" '\bBIND_NOW\b|FLAGS_1.*\bNOW\b' "$dynamic"
    Has "executable stack" 'GNU_STACK .* RW +0x' "$header"
    Has "no stack protector" '__stack_chk_fail' "$symbols"
    Has "library calls are not checked" '__[a-z]+_chk@' "$symbols"
  done
}

# Runs one fuzz target for five seconds, with its corpus and dictionary. Prints one line, and more
# if it has found something.
FuzzTopic() {
  local topic=$1 found=$2
  mkdir "$found/$topic"
  if ! "build/fuzz/fuzz/${topic}_fuzz" -max_total_time=5 -max_len=4096 -print_funcs=0 \
    -dict="fuzz/dictionaries/$topic.dict" -artifact_prefix="$found/$topic-" \
    "$found/$topic" "fuzz/corpus/$topic" &>"$found/$topic.log"; then
    tail -n 60 "$found/$topic.log"
    Fail "the fuzz target '$topic' has found something; its input is in $found"
  fi
  printf '%s: %s\n' "$topic" "$(tail -n 1 "$found/$topic.log")"
}

# Runs all fuzz targets, two at a time. What they find is kept out of the tree.
CheckFuzzing() {
  local found
  ConfigureAndBuild fuzz
  found=$(mktemp -d)
  export -f FuzzTopic Fail
  # shellcheck disable=SC2016 # the inner shell's arguments
  (cd fuzz && printf '%s\n' *_fuzz.cpp) | sed 's/_fuzz\.cpp$//' |
    xargs -P 2 -I '{}' bash -c 'FuzzTopic "$1" "$2"' - '{}' "$found"
  rm -rf "$found"
}
