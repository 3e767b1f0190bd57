#!/usr/bin/env bash
# An RTI server that dies under load: the viewer, every controller and every tool joined through it notice,
# say so and exit non-zero within a few seconds, and the viewer's snapshot keeps everything it took before.
#   1. the server starts; vistralEmulator joins and writes its JSON snapshot on leaving; vistralRecord
#      records the execution;
#   2. vistralSteer puts the viewer into orbit mode; then controllers keep steering it while one more waits
#      for a report that never comes (a viewer id nobody has), vistralReplay sends what was recorded so far
#      at a thousandth of its pace, and vistralDemo's viewer waits on an execution of its own for PDUs that
#      its controller, in the process's own federation, never gets to it;
#   3. the server is killed (SIGKILL): the viewer prints its own message and exits 3 with its snapshot
#      written, holding the orbit and counting every PDU it printed as received; the waiting controller
#      exits 1 saying the federation is lost; the recorder, the replayer and the demo each say so and exit
#      3, the recorder with what it took; no program is left running.
# serverLoss.sh <rtinode or rtig> <execution> <vistralSteer> <vistralEmulator> <vistralRecord>
#               <vistralReplay> <vistralDemo>
# The execution's PORT stands for the server's port, as in rti://127.0.0.1:PORT/Loss or
# hla1516e+rti://127.0.0.1:PORT/Loss (OpenRTI); CERTI's federates find it by the environment (rti:///Loss,
# hla1516e:Loss).
set -u
server=$1 template=$2 steer=$3 emulator=$4 recorder=$5 replayer=$6 demo=$7
. "$(dirname "$0")/serverHarness.sh" "$server" "$template"

"$emulator" --federation "$execution" --json "$out/viewer.json" >"$out/viewer.txt" 2>"$out/viewer.err" &
viewer=$!
pids+=("$viewer")
"$recorder" --federation "$execution" "$out/recording.pcapng" >"$out/recorder.txt" 2>&1 &
recorder=$!
pids+=("$recorder")
for _ in $(seq 1 400); do
  grep -q "^viewer .* joined" "$out/viewer.txt" && grep -q "^recording " "$out/recorder.txt" && break
  sleep 0.05
done
"$steer" --federation "$execution" orbit "1:3001:12" 120 >"$out/orbit.txt" 2>&1 || fail "steering the viewer" "$out/orbit.txt"
# Its report says it took the orbit (its printed lines wait in its output buffer until it leaves).
"$steer" --federation "$execution" --wait 20 request-state >"$out/report.txt" 2>&1
grep -q "^report from vistral-1: VcOrbitStatus" "$out/report.txt" || fail "the viewer takes the orbit" "$out/report.txt"

# Load: controllers one after another, each sending and leaving, until the server is gone.
(
  while kill -0 "$(cat "$out/server/pid")" 2>/dev/null; do
    "$steer" --federation "$execution" fov 40 >/dev/null 2>&1
  done
) &
load=$!
pids+=("$load")
# A name of its own: HLA Evolved refuses a second federate of the name the controllers under load join with.
"$steer" --federation "$execution" --controller waiting --viewer nobody --wait 60 request-state \
  >"$out/waiting.txt" 2>&1 &
waiting=$!
pids+=("$waiting")
cp "$out/recording.pcapng" "$out/replayed.pcapng"
"$replayer" --federation "$execution" --speed 0.001 "$out/replayed.pcapng" >"$out/replayer.txt" 2>&1 &
replayer=$!
pids+=("$replayer")
"$demo" --federation LossDemo --viewer-federation "${execution}Demo" "$out" >"$out/demo.txt" 2>&1 &
demo=$!
pids+=("$demo")
sleep 3

kill -KILL "$(cat "$out/server/pid")"
waitExit "$viewer" 50
[ "$status" -eq 3 ] || fail "the viewer exits with status 3 within 5 s, not $status" "$out/viewer.txt" "$out/viewer.err"
grep -q "^viewer vistral-1 lost federation $execution: " "$out/viewer.err" ||
  fail "the viewer says it lost the federation" "$out/viewer.err"
grep -q "^wrote snapshot " "$out/viewer.txt" || fail "the viewer writes its snapshot" "$out/viewer.txt"
waitExit "$waiting" 50
[ "$status" -eq 1 ] || fail "the waiting controller exits with status 1 within 5 s, not $status" "$out/waiting.txt"
grep -q "^vistralSteer: lost federation $execution: " "$out/waiting.txt" ||
  fail "the waiting controller says the federation is lost" "$out/waiting.txt"
waitExit "$recorder" 50
[ "$status" -eq 3 ] || fail "the recorder exits with status 3 within 5 s, not $status" "$out/recorder.txt"
grep -q "^vistralRecord: lost federation $execution: " "$out/recorder.txt" ||
  fail "the recorder says the federation is lost" "$out/recorder.txt"
grep -Eq "^recorded ([2-9]|[1-9][0-9]+) PDUs$" "$out/recorder.txt" ||
  fail "the recorder keeps the orbit and the request at least" "$out/recorder.txt"
waitExit "$replayer" 50
[ "$status" -eq 3 ] || fail "the replayer exits with status 3 within 5 s, not $status" "$out/replayer.txt"
grep -q "^vistralReplay: lost federation $execution after sending [1-9][0-9]* of " "$out/replayer.txt" ||
  fail "the replayer says the federation is lost" "$out/replayer.txt"
waitExit "$demo" 50
[ "$status" -eq 3 ] || fail "the demo exits with status 3 within 5 s, not $status" "$out/demo.txt"
grep -q "^vistralDemo: lost federation ${execution}Demo as vistral-1: " "$out/demo.txt" ||
  fail "the demo says the federation is lost" "$out/demo.txt"
waitExit "$load" 100
[ "$status" -ne 255 ] || fail "the controllers under load stop within 10 s"

printed=$(grep -c "^received " "$out/viewer.txt")
python3 - "$out/viewer.json" "$printed" <<'EOF' || fail "the snapshot keeps what arrived before the fault" "$out/viewer.json"
import json, sys
state = json.load(open(sys.argv[1]))
printed = int(sys.argv[2])
text = json.dumps(state)
assert printed >= 3, "the orbit, the request and a steering PDU at least"
assert state["counters"]["received"] >= printed, (state["counters"], printed)
assert "1:3001:12" in text and "120" in text, "the orbit's entity and radius"
EOF
[ "$failures" -eq 0 ] && echo "every program noticed the lost server on $execution ($printed PDUs kept)"
exit "$failures"
