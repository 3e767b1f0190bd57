#!/usr/bin/env bash
# Record and replay over DIS multicast on the loopback interface: the demo application steers and draws into a
# viewer emulator while vistralRecord, a member of the same group, records every PDU; the recording replayed
# into a fresh emulator must leave it in the same state (its JSON snapshot) as the live one. The demo's own
# viewer shares the group (the demo waits for it); its state reports reach the live emulator, which counts and
# ignores them, while the replay leaves reports out: the counts of received and ignored PDUs are compared
# apart, everything else line by line.
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
again="dis://239.255.71.3:$((port + 2))?interface=127.0.0.1"

# Both run until the session is over, then are told to leave (the emulator writes its snapshot as it goes).
"$emulator" --federation "$live" --json "$work/live.json" --quiet >"$work/live.log" 2>&1 &
viewer=$!
"$recorder" --federation "$live" "$work/session.pcapng" 2>"$work/record.log" &
recording=$!
trap 'kill -TERM "$viewer" "$recording" 2>/dev/null' EXIT
sleep 1
# The demo's own viewer checks every step on the shared group, where the live emulator's reports reach it too.
"$demo" --federation "$live" "$work" >"$work/demo.log" 2>&1 || fail "the demo ended with status $?: $(tail -3 "$work/demo.log")"
sleep 0.5 # the last datagrams
kill -TERM "$viewer" "$recording"
wait "$viewer" || fail "the live emulator: $(tail -3 "$work/live.log")"
wait "$recording" || fail "the recorder: $(tail -3 "$work/record.log")"
grep -q "^recorded [1-9][0-9]* PDUs" "$work/record.log" || fail "nothing recorded: $(cat "$work/record.log")"
# Every recorded PDU reads back whole.
"$inspect" "$work/session.pcapng" >"$work/session.txt" || fail "the recording does not read back"

"$emulator" --federation "$again" --json "$work/replay.json" --quiet >"$work/replay.log" 2>&1 &
viewer=$!
sleep 0.5
# The demo waits on its viewer between steps; twenty times its pace keeps the order and saves the waits.
"$replay" --federation "$again" --speed 20 "$work/session.pcapng" 2>"$work/replay-send.log" ||
  fail "the replay: $(cat "$work/replay-send.log")"
kill -TERM "$viewer"
wait "$viewer" || fail "the replaying emulator: $(tail -3 "$work/replay.log")"
cat "$work/record.log" "$work/replay-send.log"
grep -q '"received": [1-9]' "$work/live.json" || fail "the live emulator received nothing"
count() { sed -n "s/^ *\"$1\": \([0-9]*\),*$/\1/p" "$2" | head -1; }
received=$(count received "$work/live.json") ignored=$(count ignored "$work/live.json")
[ "$((received - ignored))" = "$(count received "$work/replay.json")" ] && [ "$(count ignored "$work/replay.json")" = 0 ] ||
  fail "the live emulator took $received PDUs ($ignored ignored), the replayed one $(count received "$work/replay.json")"
diff -u <(grep -v '"received"\|"ignored"' "$work/live.json") <(grep -v '"received"\|"ignored"' "$work/replay.json") ||
  fail "the replay left another state than the live session"
echo "the replay left the emulator as the live session did"
