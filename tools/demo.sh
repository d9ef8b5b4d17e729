#!/usr/bin/env bash
# Starts the built program against a weather and forecast service on this machine. Everything that
# it reads and writes is in build/demo, which is recreated each time.
#
# With a display it shows the window and runs until that is closed. Without one it runs invisibly,
# prints the two output files once both are written, and ends.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
source tools/setup.sh

kPatience=30 # seconds until the output files must be there
folder=build/demo
outputs=("$folder/Weather.ini" "$folder/Forecast.ini")
host=
program=

# Ends what was started here, whatever happened.
EndAll() {
  local pid
  for pid in $program $host; do
    kill -TERM "$pid" 2>/dev/null && wait "$pid" || true
  done
}
trap EndAll EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

# Runs a test every tenth of a second, until it succeeds or the given seconds are over.
WaitFor() {
  local tenths=$(($1 * 10))
  shift
  until "$@"; do
    ((tenths-- > 0)) || return 1
    sleep 0.1
  done
}

# Starts the host and sets `address` to where it listens.
StartHost() {
  build/release/TavrinDemoHost --port 0 >"$folder/host.log" 2>&1 </dev/null &
  host=$!
  WaitFor 5 grep --quiet --no-messages '^Listening on ' "$folder/host.log" ||
    Fail "the demo host did not start: $(cat "$folder/host.log")"
  address=$(sed --quiet 's/^Listening on //p' "$folder/host.log")
}

# The shipped profiles, with the demo host in place of the services, in the credits too, because its
# values are invented.
WriteProfiles() {
  sed --regexp-extended \
    -e "s#^(baseURL=)https?://[^/%]+(%PORT%)?/#\1$address/#" \
    -e "s#^(copyright=)[^\r]*#\1Invented values of the demo host.#" \
    -e "s#^\[ForecastProfile0\](\r?)\$#&\nhost=$address\1#" \
    profiles/TavrinWeatherProfiles.ini >"$folder/TavrinWeatherProfiles.ini"
}

# A place that the demo host knows for every profile, chosen by the address that the profile asks,
# and one of the host's forecast zones.
WriteSettings() {
  awk '
    { sub(/\r$/, "") }
    /^\[Profile[0-9]\]/ { section = $0 }
    /^\[ForecastProfile/ { section = "" }
    section != "" && /^baseURL=/ {
      first = ""; second = ""
      if ($0 ~ /\/current_obs\//) first = "KBWI"
      else if ($0 ~ /\/metar\/decoded\//) first = metar++ ? "EGLL" : "KSEA"
      else if ($0 ~ /\/stations\//) first = "KSEA"
      else if ($0 ~ /format=j2/) first = "London"
      else if ($0 ~ /latitude=/) { first = "51.4775"; second = "-0.4614" }
      print section
      print "location1=" first
      print "location2=" second
    }' "$folder/TavrinWeatherProfiles.ini" >"$folder/TavrinWeatherSettings.ini"
  cat >>"$folder/TavrinWeatherSettings.ini" <<'INI'
[Settings]
FirstRun=False
MinimizeOnStartup=False
CurrentProfile=0
ForecastState=MD
ForecastZone=MDZ011
HTTPPort=80
INI
}

rm -rf "$folder"
mkdir -p "$folder"
StartHost
WriteProfiles
WriteSettings
export TAVRIN_WEATHER_FOLDER=$PWD/$folder
# A proxy could not reach this machine's own loopback.
export no_proxy=127.0.0.1 NO_PROXY=127.0.0.1

if [[ -n ${DISPLAY-}${WAYLAND_DISPLAY-} ]]; then
  Say "The demo's files lie in $folder. Close the window to end."
  build/release/TavrinWeatherUtility &
  program=$!
  result=0
  wait "$program" || result=$?
  program=
  exit "$result"
fi

Say "No display: waiting for ${outputs[*]}"
QT_QPA_PLATFORM=offscreen build/release/TavrinWeatherUtility </dev/null &
program=$!
# The output files that are still missing.
Missing() {
  local file
  for file in "${outputs[@]}"; do
    [[ -s $file ]] || echo "$file"
  done
}
Written() { [[ -z $(Missing) ]]; }
Settled() { Written || ! kill -0 "$program" 2>/dev/null; }
WaitFor "$kPatience" Settled || true
Written || {
  missing=$(Missing | paste --serial --delimiters=' ')
  kill -0 "$program" 2>/dev/null || Fail "the program ended and did not write $missing"
  Fail "the program did not write $missing within $kPatience s"
}
for file in "${outputs[@]}"; do
  tr --delete '\r' <"$file"
done
kill -TERM "$program"
result=0
wait "$program" || result=$?
program=
((result == 0)) || Fail "the program ended with exit code $result"
