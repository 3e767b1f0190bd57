#!/usr/bin/env bash
# Record and replay over DIS multicast on the loopback interface: the demo application steers and draws into a
# viewer emulator while vistralRecord, a member of the same group, records every PDU; the recording replayed
# into a fresh emulator must leave it in the same state (its JSON snapshot) as the live one. The demo's own
# viewer sits in a group of its own, so that the live emulator hears only the application.
#
#   recordReplay.sh VISTRALDEMO VISTRALEMULATOR VISTRALRECORD VISTRALREPLAY VISTRALINSPECT WORKDIR
set -u
demo=$1 emulator=$2 recorder=$3 replay=$4 inspect=$5 work=$6
fail() {
  echo "FAILED: $*"
  exit 1
}
rm -rf "$work" && mkdir -p "$work"
port=$((30000 + RANDOM % 20000))
live="dis://239.255.71.1:$port?interface=127.0.0.1"
aside="dis://239.255.71.2:$((port + 1))?interface=127.0.0.1"
again="dis://239.255.71.3:$((port + 2))?interface=127.0.0.1"

"$emulator" --federation "$live" --json "$work/live.json" --seconds 10 --quiet >"$work/live.log" 2>&1 &
viewer=$!
"$recorder" --federation "$live" --seconds 10 "$work/session.pcapng" 2>"$work/record.log" &
recording=$!
sleep 1
# The demo's exit status says whether its own viewer took everything, which here is none of it.
"$demo" --federation "$live" --viewer-federation "$aside" "$work" >"$work/demo.log" 2>&1
wait "$viewer" || fail "the live emulator: $(tail -3 "$work/live.log")"
wait "$recording" || fail "the recorder: $(tail -3 "$work/record.log")"
grep -q "^recorded [1-9][0-9]* PDUs" "$work/record.log" || fail "nothing recorded: $(cat "$work/record.log")"
# Every recorded PDU reads back whole.
"$inspect" "$work/session.pcapng" >"$work/session.txt" || fail "the recording does not read back"

"$emulator" --federation "$again" --json "$work/replay.json" --seconds 6 --quiet >"$work/replay.log" 2>&1 &
viewer=$!
sleep 0.5
"$replay" --federation "$again" "$work/session.pcapng" 2>"$work/replay-send.log" ||
  fail "the replay: $(cat "$work/replay-send.log")"
wait "$viewer" || fail "the replaying emulator: $(tail -3 "$work/replay.log")"
cat "$work/record.log" "$work/replay-send.log"
grep -q '"received": [1-9]' "$work/live.json" || fail "the live emulator received nothing"
diff -u "$work/live.json" "$work/replay.json" || fail "the replay left another state than the live session"
echo "the replay left the emulator as the live session did"
