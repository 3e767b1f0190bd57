#!/usr/bin/env bash
# A load run through one network form: a vistralEmulator in a process of its own is the viewer, vistralLoad
# sends it a seeded stream of mixed control PDUs (about one in a hundred damaged) and writes the snapshot the
# same stream gives in process; the viewer's own snapshot must be the same, byte for byte (its counters and
# the digest of the images it took, in order, among it). vistralLoad reports the time, PDUs per second and
# the viewer's resident memory.
#
#   load.sh --form dis|rti|hla1516e|certi|certi1516e [--build DIR | --load PROGRAM --emulator PROGRAM]
#           [--server RTINODE_OR_RTIG | --port-file FILE | --env-file FILE] [--out DIR] [vistralLoad options]
#
# dis: unicast on two free loopback ports. rti, hla1516e: OpenRTI's rtinode (HLA 1.3, HLA Evolved); certi,
# certi1516e: CERTI's rtig. --server starts the RTI's server on free loopback ports for the run (CERTI_HOME
# is set beside rtig for HLA Evolved); --port-file and --env-file name a running one, as tests/rtiserver.sh
# leaves them. --build DIR takes the programs from a build folder with tests. Everything else goes to
# vistralLoad (--count, --seed, --window, --objects, --timeout).
set -u
here=$(cd "$(dirname "$0")" && pwd)
form="" load="" emulator="" server="" portFile="" envFile="" out="" args=()
while [ $# -gt 0 ]; do
  case $1 in
  --form) form=$2; shift 2 ;;
  --build) load=$2/tests/load/vistralLoad emulator=$2/tools/vistralEmulator; shift 2 ;;
  --load) load=$2; shift 2 ;;
  --emulator) emulator=$2; shift 2 ;;
  --server) server=$2; shift 2 ;;
  --port-file) portFile=$2; shift 2 ;;
  --env-file) envFile=$2; shift 2 ;;
  --out) out=$2; shift 2 ;;
  *) args+=("$1"); shift ;;
  esac
done
[ -n "$form" ] && [ -x "$load" ] && [ -x "$emulator" ] || {
  sed -n '2,17p' "$0" | sed 's/^# \{0,1\}//'
  exit 2
}
state="" scratch=""
cleanup() {
  [ -z "$state" ] || "$here/../rtiserver.sh" stop "$state"
  [ -z "$scratch" ] || rm -rf "$scratch"
}
trap cleanup EXIT
if [ -z "$out" ]; then
  out=$(mktemp -d)
  scratch=$out
fi
mkdir -p "$out"

if [ -n "$server" ]; then
  case $form in certi1516e) CERTI_HOME=$(cd "$(dirname "$server")/.." && pwd) && export CERTI_HOME ;; esac
  server=$(cd "$(dirname "$server")" && pwd)/$(basename "$server")
  state=$out/server
  # In the run's folder, where CERTI's server leaves its log.
  (cd "$out" && "$here/../rtiserver.sh" start "$server" "$state") || exit 1
  portFile=$state/port envFile=$state/env
  PATH=$(dirname "$server"):$PATH  # CERTI's federates start the rtia beside rtig
fi
if [ -n "$envFile" ]; then
  set -a
  # shellcheck disable=SC1090
  . "$envFile"
  set +a
fi
port=$( [ -n "$portFile" ] && cat "$portFile")
udpFree() { ! (ss -Hlun "sport = :$1" 2>/dev/null | grep -q .); }
case $form in
dis)
  for _ in $(seq 1 20); do
    a=$((20000 + RANDOM % 40000)) b=$((20000 + RANDOM % 40000))
    [ "$a" != "$b" ] && udpFree "$a" && udpFree "$b" && break
  done
  viewerName="dis://127.0.0.1:$b?listen=$a" senderName="dis://127.0.0.1:$a?listen=$b"
  ;;
rti) viewerName="rti://127.0.0.1:$port/Load" senderName=$viewerName ;;
hla1516e) viewerName="hla1516e+rti://127.0.0.1:$port/Load" senderName=$viewerName ;;
# CERTI finds its server by the environment; the URL only chooses the HLA 1.3 backend.
certi) viewerName="rti:///Load" senderName=$viewerName ;;
certi1516e) viewerName="hla1516e:Load" senderName=$viewerName ;;
*) echo "unknown form $form" >&2; exit 2 ;;
esac

"$emulator" --federation "$viewerName" --quiet --json "$out/viewer.json" >"$out/viewer.txt" 2>&1 &
viewer=$!
for _ in $(seq 1 600); do
  grep -q "^viewer .* joined" "$out/viewer.txt" && break
  kill -0 "$viewer" 2>/dev/null || break
  sleep 0.05
done
if ! grep -q "^viewer .* joined" "$out/viewer.txt"; then
  echo "FAILED: the viewer did not join $viewerName"
  cat "$out/viewer.txt"
  kill "$viewer" 2>/dev/null
  exit 1
fi
"$load" --federation "$senderName" --viewer-pid "$viewer" --expect "$out/expected.json" "${args[@]}"
status=$?
kill -TERM "$viewer"
wait "$viewer" || { echo "FAILED: the viewer's exit"; cat "$out/viewer.txt"; status=1; }
if ! cmp -s "$out/expected.json" "$out/viewer.json"; then
  echo "FAILED: the viewer's state is not the one the stream gives in process"
  diff "$out/expected.json" "$out/viewer.json" | head -40
  status=1
fi
[ "$status" -eq 0 ] && echo "the viewer took the stream through $form as it does in process"
exit "$status"
