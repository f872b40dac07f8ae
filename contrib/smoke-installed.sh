#!/usr/bin/env bash
# Starts the installed program as a new user would, under Xvfb: it must show
# its main window and stay up, and its first start must have made the user's
# data folder with the example project and stored the settings per user.
set -euo pipefail
program=$(command -v Tgzelmo)
home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT
export HOME=$home
unset XDG_CONFIG_HOME
xvfb-run -a -s "-screen 0 1400x1050x24" bash -c '
  "$0" & pid=$!
  sleep 6
  if ! kill -0 "$pid" 2>/dev/null; then echo "the installed program did not stay up"; exit 1; fi
  windows=$(xwininfo -root -tree)
  kill "$pid"; wait "$pid" || true
  if ! grep -q "\"Tgzelmo\")" <<<"$windows"; then
    echo "the installed program showed no main window"; echo "$windows"; exit 1
  fi' "$program"
test -f "$home/ZELMOPROJ/PROJECTS.LIB" || { echo "no example project in the new data folder"; exit 1; }
grep -q "LocalPath=$home/ZELMOPROJ" "$home/.config/Zelmo-QRN/Zelmo-QRN.conf" ||
  { echo "the data folder was not stored in the user's settings"; exit 1; }
echo "installed program: started, main window shown, data folder $home/ZELMOPROJ"

# The command line on the example project, with no display at all.
zelmo=$(command -v zelmo)
example=$(dirname "$(readlink -f "$zelmo")")/ZELMOPROJ/Example
cp -r "$example" "$home/Example"
for parked in "$home"/Example/*_Temp; do mv "$parked" "${parked%_Temp}"; done
# As the demo's activation does: the case reads the tree's Denver year.
tree=$(dirname "$(readlink -f "$zelmo")")
sed -i "s#^Climate/DenverCO(US)\.CLI\r\$#$tree/Climate/DenverCO(US).CLI\r#" "$home"/Example/Case1/Site.inp
env -u DISPLAY -u WAYLAND_DISPLAY "$zelmo" prepare "$home/Example" case1
env -u DISPLAY -u WAYLAND_DISPLAY "$zelmo" run "$home/Example" case1 |
  grep -c ended | grep -qx 6 || { echo "zelmo run did not end six modules"; exit 1; }
[ "$(head -c 6 "$home/Example/Case1/THERMAL.INP")" = "------" ] ||
  { echo "zelmo run left the flags $(head -c 6 "$home/Example/Case1/THERMAL.INP")"; exit 1; }
if ldd "$(readlink -f "$zelmo")" | grep -q Qt6Widgets; then
  echo "zelmo links the widget library"; exit 1
fi
echo "installed command line: prepared and ran the example case without a display"
