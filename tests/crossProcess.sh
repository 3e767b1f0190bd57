#!/usr/bin/env bash
# The programs as federates in processes of their own over an RTI, against the same programs on the
# in-process federation:
#   1. vistralEmulator is the viewer; vistralSteer steers it and then asks for its state and hears the report.
#      The steering PDU's fields as the sender prints them, as the viewer prints them on arrival, and as the
#      sender prints them on the in-process federation are the same.
#   2. vistralDemo (controller, drawer and viewer as three federates through the RTI) sees every PDU arrive
#      as it was sent, and leaves the viewer's state (its JSON snapshot: mode, options, drawn objects) exactly
#      as it does on the in-process federation. (Its printed text is not compared: some RTIs' helper processes
#      write to the same output.)
# crossProcess.sh <vistralSteer> <vistralEmulator> <vistralDemo> <execution> [<port file> [<env file>]]
# (the execution's PORT is replaced by the port in the port file; the env file's NAME=value lines are set in
# the environment, for RTIs that find their server by it)
set -u
steer=$1 emulator=$2 demo=$3 execution=$4
if [ $# -ge 5 ] && [ -f "$5" ]; then execution=${execution/PORT/$(cat "$5")}; fi
if [ $# -ge 6 ]; then
  set -a
  # shellcheck disable=SC1090
  . "$6"
  set +a
fi
out=$(mktemp -d)
trap 'rm -rf "$out"' EXIT
failures=0
fail() {
  echo "FAILED: $1"
  shift
  for f in "$@"; do echo "--- $f" && head -60 "$f"; done
  failures=$((failures + 1))
}
# The fields of the one PDU in a program's output: the lines after its "sent"/"received" line up to the next
# line that is not a field.
fields() { awk -v start="$2" 'on && /^(received|sent|leaving|report) / { exit } $0 ~ start { on = 1; next } on' "$1"; }

"$emulator" --federation "$execution" --seconds 30 --dump >"$out/viewer.txt" 2>&1 &
viewer=$!
for _ in $(seq 1 400); do grep -q "^viewer .* joined" "$out/viewer.txt" && break; sleep 0.05; done
"$steer" --federation "$execution" --print orbit "1:3001:12" 120 >"$out/steer.txt" 2>&1 ||
  fail "steering the viewer" "$out/steer.txt"
"$steer" --federation "$execution" --wait 20 request-state >"$out/request.txt" 2>&1 ||
  fail "asking the viewer for its state" "$out/request.txt" "$out/viewer.txt"
grep -q "^report from vistral-1: VcOrbitStatus" "$out/request.txt" ||
  fail "the report is the orbit mode's status" "$out/request.txt"
kill -TERM "$viewer"
wait "$viewer" || fail "the viewer leaving" "$out/viewer.txt"
"$steer" --print orbit "1:3001:12" 120 >"$out/steerInProcess.txt" 2>&1
fields "$out/steer.txt" "^sent " >"$out/sent.txt"
fields "$out/viewer.txt" "^received .* from vistralSteer " >"$out/received.txt"
fields "$out/steerInProcess.txt" "^sent " >"$out/sentInProcess.txt"
[ -s "$out/sent.txt" ] || fail "the sender prints the PDU's fields" "$out/steer.txt"
cmp -s "$out/sent.txt" "$out/received.txt" || fail "the viewer received what was sent" "$out/sent.txt" "$out/received.txt"
cmp -s "$out/sent.txt" "$out/sentInProcess.txt" ||
  fail "the same PDU as on the in-process federation" "$out/sent.txt" "$out/sentInProcess.txt"

mkdir -p "$out/rti" "$out/inprocess"
(cd "$out" && "$demo" --federation "$execution" "$out/rti" >"$out/demo.txt" 2>&1) || fail "the demo over the RTI" "$out/demo.txt"
(cd "$out" && "$demo" "$out/inprocess" >"$out/demoInProcess.txt" 2>&1) || fail "the demo in process" "$out/demoInProcess.txt"
! grep -q "DIFFERENT" "$out/demo.txt" || fail "every PDU arrives as sent" "$out/demo.txt"
cmp -s "$out/rti/vistralDemo.json" "$out/inprocess/vistralDemo.json" || {
  diff "$out/inprocess/vistralDemo.json" "$out/rti/vistralDemo.json" | head -40
  fail "the viewer's state after the demo's drawing is the same as in process"
}
[ "$failures" -eq 0 ] && echo "the programs agree across processes on $execution"
exit "$failures"
