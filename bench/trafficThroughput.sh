#!/usr/bin/env bash
# Throughput of the traffic tools, on a capture that trafficSample writes here (not committed):
#   1. vistralInspect decodes and prints COUNT mixed PDUs (default 10^6, every class, both draw layouts) to
#      /dev/null, against tshark reading the same file with the kind-202 dissector (-V); the inspector must be
#      at least 5 times as fast.
#   2. vistralReplay --realtime sends 1000 PDUs recorded a millisecond apart (1000 a second) over DIS multicast on the
#      loopback interface; it must keep the recorded pace within 1 ms for every PDU.
#
#   trafficThroughput.sh BUILDDIR [COUNT]     (BUILDDIR: a Release build, e.g. build/bench)
set -euo pipefail
build=$1 count=${2:-1000000}
tools=$build/tools
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
command -v tshark >/dev/null 2>&1 || { echo "tshark is not installed"; exit 77; }
status=0

"$tools/trafficSample" "$work/mixed.pcapng" "$count"
echo "capture: $count PDUs, $(($(stat -c %s "$work/mixed.pcapng") / 1000000)) MB"
calc() { awk "BEGIN { print ($1) }"; }
seconds() { local t0 t1; t0=$(date +%s.%N); "$@" >/dev/null 2>&1 || true; t1=$(date +%s.%N); calc "$t1 - $t0"; }
inspect=$(seconds "$tools/vistralInspect" "$work/mixed.pcapng")
tshark=$(seconds tshark -n -X lua_script:"$tools/vistral202.lua" -r "$work/mixed.pcapng" -V)
ratio=$(calc "$tshark / $inspect")
printf 'vistralInspect: %.2f s (%.0f PDUs/s); tshark with the dissector: %.2f s; ratio %.1f (at least 5)\n' \
  "$inspect" "$(calc "$count / $inspect")" "$tshark" "$ratio"
[ "$(calc "$ratio >= 5")" = 1 ] || status=1

"$tools/trafficSample" "$work/paced.pcapng" 1000
port=$((30000 + RANDOM % 20000))
"$tools/vistralReplay" --realtime --federation "dis://239.255.72.1:$port?interface=127.0.0.1" --linger 0 \
  "$work/paced.pcapng" 2>"$work/replay.log"
cat "$work/replay.log"
worst=$(sed -n 's/.* \([0-9.e+-]*\) ms at worst$/\1/p' "$work/replay.log")
[ -n "$worst" ] && [ "$(calc "$worst <= 1")" = 1 ] || status=1
exit $status
