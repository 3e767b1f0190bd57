#!/usr/bin/env bash
# An RTI server that goes away and comes back on the same port: a viewer asked to rejoin says it lost the
# federation, joins again once the server is back, and goes on under the same viewer id with the state it had;
# a recorder asked to rejoin records on into the same file.
#   1. the server starts; vistralEmulator --rejoin and vistralRecord --rejoin join; vistralSteer puts the
#      viewer into orbit mode;
#   2. the server is killed: both say the federation is lost; it starts again on the same port: both say
#      they rejoined;
#   3. a controller asks the viewer for its state: it answers from orbit mode with the radius it was given
#      before; another sets the field of view; interrupted, the viewer exits 0 and its snapshot holds the
#      orbit, the field of view and every PDU from before and after; the recorder holds both sides too.
# serverRejoin.sh <rtinode or rtig> <execution> <vistralSteer> <vistralEmulator> <vistralRecord> [...]
# (the arguments of serverLoss.sh; PORT in the execution stands for the server's port)
set -u
server=$1 template=$2 steer=$3 emulator=$4 recorder=$5
. "$(dirname "$0")/serverHarness.sh" "$server" "$template"

"$emulator" --federation "$execution" --rejoin --json "$out/viewer.json" >"$out/viewer.txt" 2>"$out/viewer.err" &
viewer=$!
pids+=("$viewer")
"$recorder" --federation "$execution" --rejoin "$out/recording.pcapng" >"$out/recorder.txt" 2>&1 &
recorder=$!
pids+=("$recorder")
waitFor "^viewer .* joined" "$out/viewer.txt" 200 && waitFor "^recording " "$out/recorder.txt" 200 ||
  fail "the viewer and the recorder join" "$out/viewer.txt" "$out/viewer.err" "$out/recorder.txt"
"$steer" --federation "$execution" orbit "1:3001:12" 120 >"$out/orbit.txt" 2>&1 || fail "steering the viewer" "$out/orbit.txt"

kill -KILL "$(cat "$out/server/pid")"
waitFor "^viewer vistral-1 lost federation $execution: .*; joining again once it is back" "$out/viewer.err" 50 ||
  fail "the viewer says it lost the federation and will rejoin" "$out/viewer.err"
waitFor "^vistralRecord: lost federation $execution: .*; joining again once it is back" "$out/recorder.txt" 50 ||
  fail "the recorder says it lost the federation and will rejoin" "$out/recorder.txt"
"$here/rtiserver.sh" start "$server" "$out/server" "$port" >/dev/null || fail "starting the server again on port $port"
waitFor "^viewer vistral-1 rejoined $execution" "$out/viewer.txt" 50 || fail "the viewer rejoins within 5 s" "$out/viewer.txt" "$out/viewer.err"
waitFor "^vistralRecord: rejoined $execution" "$out/recorder.txt" 50 || fail "the recorder rejoins within 5 s" "$out/recorder.txt"

"$steer" --federation "$execution" --wait 10 request-state >"$out/report.txt" 2>&1
grep -q "^report from vistral-1: VcOrbitStatus" "$out/report.txt" || fail "the viewer answers from its orbit" "$out/report.txt"
grep -Eq "^Radius: +120" "$out/report.txt" || fail "the viewer keeps the orbit's radius" "$out/report.txt"
"$steer" --federation "$execution" fov 40 >"$out/fov.txt" 2>&1 || fail "setting the field of view" "$out/fov.txt"
# The viewer answers after it took the options (one sender's PDUs arrive in order); the recorder, a member
# of the same federation, has had them as long.
"$steer" --federation "$execution" --wait 10 request-state >"$out/report2.txt" 2>&1 ||
  fail "the viewer answers after the options" "$out/report2.txt"

kill -INT "$viewer" "$recorder"
waitExit "$viewer" 50
[ "$status" -eq 0 ] || fail "the interrupted viewer exits with status 0, not $status" "$out/viewer.txt" "$out/viewer.err"
waitExit "$recorder" 50
[ "$status" -eq 0 ] || fail "the interrupted recorder exits with status 0, not $status" "$out/recorder.txt"
# The orbit, the request, the viewer's report and the options.
grep -Eq "^recorded ([4-9]|[1-9][0-9]+) PDUs$" "$out/recorder.txt" || fail "the recorder records before and after" "$out/recorder.txt"
python3 - "$out/viewer.json" <<'PY' || fail "the snapshot holds what arrived before and after" "$out/viewer.json"
import json, sys
state = json.load(open(sys.argv[1]))
text = json.dumps(state)
assert state["counters"]["received"] >= 3, state["counters"]
assert state["counters"]["answered"] >= 1, state["counters"]
assert "1:3001:12" in text and "120" in text, "the orbit's entity and radius"
assert state["options"].get("fov") == 40, state["options"]
PY
[ "$failures" -eq 0 ] && echo "the viewer and the recorder rejoined $execution after the server came back"
exit "$failures"
