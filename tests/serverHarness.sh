# The harness the server-fault scenarios share, sourced by them: a scratch folder $out whose server and
# programs (their pids in the array pids) are ended on exit, failures counted by fail, and waits. It starts
# the RTI's server ($1, into $out/server) and sets $execution from the template $2, PORT standing for the
# server's port.
here=$(cd "$(dirname "$0")" && pwd)
out=$(mktemp -d)
pids=()
cleanup() {
  for p in "${pids[@]}"; do kill -KILL "$p" 2>/dev/null; done
  "$here/rtiserver.sh" stop "$out/server" >/dev/null 2>&1
  rm -rf "$out"
}
trap cleanup EXIT
failures=0
# fail WHAT [FILE...]: says what failed, with the start of each file, and counts it.
fail() {
  echo "FAILED: $1"
  shift
  for f in "$@"; do echo "--- $f" && head -40 "$f"; done
  failures=$((failures + 1))
}
# Waits up to $3 tenths of a second for a line matching $1 in file $2.
waitFor() {
  for _ in $(seq 1 "$3"); do
    grep -q "$1" "$2" && return 0
    sleep 0.1
  done
  return 1
}
# Waits up to $2 tenths of a second for process $1 to end; its status in $status, 255 when it did not.
waitExit() {
  status=255
  for _ in $(seq 1 "$2"); do
    if ! kill -0 "$1" 2>/dev/null; then
      wait "$1"
      status=$?
      return
    fi
    sleep 0.1
  done
}

"$here/rtiserver.sh" start "$1" "$out/server" || exit 1
set -a && . "$out/server/env" && set +a
port=$(cat "$out/server/port")
execution=${2/PORT/$port}
