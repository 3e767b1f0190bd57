#!/usr/bin/env bash
# The demo's traffic over DIS, captured on the loopback interface with tshark and read back by tshark's own DIS
# dissector: every datagram holds one control PDU whose header (protocol version 6, exercise 1, PDU type 202,
# family 129, length) is what the library wrote, and there are as many each way as the viewer took and sent.
# Exits 77 (skipped, with the reason) when tshark is missing or may not capture on this machine.
#   disCapture.sh VISTRALDEMO WORKDIR
set -u
demo=$1
work=$2
skip() {
  echo "SKIPPED: $*"
  exit 77
}
fail() {
  echo "FAILED: $*"
  exit 1
}
command -v tshark >/dev/null 2>&1 || skip "tshark is not installed (scripts/install-deps.sh installs it)"
mkdir -p "$work"
capture=$work/demo.pcapng
rm -f "$capture"

# Two ports of their own for the two sides: the application sends to toViewer, the viewer to toApp.
toViewer=$((20000 + RANDOM % 20000))
toApp=$((toViewer + 1))
tshark -i lo -f "udp port $toViewer or udp port $toApp" -a duration:120 -w "$capture" >"$work/tshark.log" 2>&1 &
tshark_pid=$!
trap 'kill "$tshark_pid" 2>/dev/null' EXIT
for _ in $(seq 100); do
  grep -q "Capturing on" "$work/tshark.log" && break
  kill -0 "$tshark_pid" 2>/dev/null || break
  sleep 0.1
done
grep -q "Capturing on" "$work/tshark.log" || skip "tshark cannot capture on lo here: $(tail -1 "$work/tshark.log")"

"$demo" --federation "dis://127.0.0.1:$toViewer?listen=$toApp" \
  --viewer-federation "dis://127.0.0.1:$toApp?listen=$toViewer" "$work" >"$work/demo.log" 2>&1 ||
  fail "the demo over DIS failed: $(tail -5 "$work/demo.log")"
read -r took answered < <(sed -n 's/^the viewer took \([0-9]*\) PDUs and sent \([0-9]*\) reports$/\1 \2/p' \
  "$work/demo.log")
[ -n "${took:-}" ] || fail "the demo did not say what the viewer took"
sleep 0.5 # the last datagrams reach the capture file
kill -INT "$tshark_pid"
wait "$tshark_pid"
trap - EXIT

# One line per datagram: where it went, the UDP payload's size, what the dissector read, and the payload.
fields=$(tshark -r "$capture" -d "udp.port==$toViewer,dis" -d "udp.port==$toApp,dis" -T fields -E separator=' ' \
  -e udp.dstport -e udp.length -e dis.proto_ver -e dis.exer_id -e dis.pdu_type -e dis.proto_fam \
  -e dis.pdu_length -e udp.payload 2>/dev/null) || fail "tshark cannot read $capture"
toViewerCount=0
toAppCount=0
while read -r port udpLength version exercise type family length payload; do
  [ "$port" = "$toViewer" ] && toViewerCount=$((toViewerCount + 1))
  [ "$port" = "$toApp" ] && toAppCount=$((toAppCount + 1))
  size=$((udpLength - 8))
  # The header as the library wrote it, byte by byte.
  written="$((16#${payload:0:2})) $((16#${payload:2:2})) $((16#${payload:4:2})) $((16#${payload:6:2})) $((16#${payload:16:4}))"
  [ "$version $exercise $type $family $length" = "6 1 202 129 $size" ] ||
    fail "to port $port: the dissector read version $version, exercise $exercise, type $type, family $family," \
      "length $length in a datagram of $size bytes"
  [ "$written" = "$version $exercise $type $family $length" ] ||
    fail "to port $port: the dissector read '$version $exercise $type $family $length', the bytes say '$written'"
done <<<"$fields"
[ "$toViewerCount" -eq "$took" ] || fail "$toViewerCount datagrams to the viewer, which took $took PDUs"
[ "$toAppCount" -eq "$answered" ] || fail "$toAppCount datagrams to the application, the viewer sent $answered"
echo "captured $toViewerCount PDUs to the viewer and $toAppCount reports back, each as the library wrote it"
