# Sourced by .ci/run: the checks beside the tests. Each fails with its findings on the console.
# shellcheck shell=bash

# Every C++ file of the project, NUL-separated.
SourceFiles() { git ls-files -z --cached --others --exclude-standard -- '*.cpp' '*.h'; }

CheckFormat() { SourceFiles | xargs -0 clang-format-14 --dry-run -Werror; }

# The words of .codespellignore are names that only look misspelt. The replies, INI files and
# pictures of the tests are data, and so is what the fuzz targets begin with.
CheckSpelling() {
  git ls-files -z --cached --others --exclude-standard -- ':!tests/data' ':!fuzz/corpus' \
    ':!*.png' |
    xargs -0 codespell --ignore-words=.codespellignore
}

# The tray icon's drawings are those that their script makes.
CheckIcons() {
  local drawn result=0
  drawn=$(mktemp -d)
  src/graph/icons/make "$drawn"
  diff --recursive --exclude=make --exclude=icons.qrc src/graph/icons "$drawn" || result=$?
  rm -rf "$drawn"
  return "$result"
}

# Only the project's own sources: the generated moc files trip two of the checks. The fuzz targets
# are in the compile commands of their own build alone, and the benchmarks in those of no build that
# a linter can read: they get a configuration for it.
CheckTidy() {
  local root
  root=$(pwd | sed 's/[][\.*^$+?(){}|]/\\&/g')
  cmake --preset dev -B build/lint -DTAVRIN_BENCHMARKS=ON >/dev/null
  {
    run-clang-tidy-14 -quiet -j 2 -p build/dev "^$root/(src|tests|tools|examples)/"
    run-clang-tidy-14 -quiet -j 2 -p build/lint "^$root/bench/"
    run-clang-tidy-14 -quiet -j 2 -p build/fuzz "^$root/fuzz/"
  } </dev/null 2>&1 | sed --regexp-extended '/^clang-tidy-14 |^[0-9]+ warnings? generated/d'
}

# The package starts from wherever it is unpacked, stays up, and SIGTERM ends it in good order.
CheckPackage() {
  local package program result=0
  folder=$(mktemp -d)
  pid=
  trap 'rm -rf "$folder"; [[ -z $pid ]] || kill -KILL "$pid" 2>/dev/null || true' EXIT
  cpack --preset release
  package=$(ls build/release/tavrin-weather-utility-*.tar.gz)
  tar --extract --file "$package" --directory "$folder"
  program=$(echo "$folder"/*/TavrinWeatherUtility)
  [[ -f ${program%/*}/TavrinWeatherProfiles.ini ]] || Fail "the package holds no profiles"
  mkdir "$folder/data"
  TAVRIN_WEATHER_FOLDER=$folder/data "$program" </dev/null &
  pid=$!
  sleep 2
  kill -0 "$pid" || Fail "the packaged program did not stay up for 2 s"
  kill -TERM "$pid"
  wait "$pid" || result=$?
  pid=
  ((result == 0)) || Fail "SIGTERM ended the packaged program with exit code $result"
}

# What the shipped program must be: position-independent, its tables read-only once it runs, its
# stack guarded and not executable, its library calls checked.
CheckHardening() {
  local program=build/release/TavrinWeatherUtility
  local header dynamic symbols
  header=$(readelf --wide --file-header --program-headers "$program")
  dynamic=$(readelf --wide --dynamic "$program")
  symbols=$(readelf --wide --dyn-syms "$program")
  Has() { grep --quiet --extended-regexp "$2" <<<"$3" || Fail "$program: $1"; }
  Has "not position-independent" 'Type: +DYN' "$header"
  Has "not position-independent" 'FLAGS_1.*\bPIE\b' "$dynamic"
  Has "no read-only relocations" 'GNU_RELRO' "$header"
  Has "binds its symbols late" '\bBIND_NOW\b|FLAGS_1.*\bNOW\b' "$dynamic"
  Has "executable stack" 'GNU_STACK .* RW +0x' "$header"
  Has "no stack protector" '__stack_chk_fail' "$symbols"
  Has "library calls are not checked" '__[a-z]+_chk@' "$symbols"
}

# One fuzz target for five seconds, from its corpus and with its dictionary. Says one line, and more
# when it has found something.
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

# All fuzz targets, two at a time. What they find stays out of the tree.
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
