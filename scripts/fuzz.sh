#!/usr/bin/env bash
# Fuzzing campaigns over the fast targets: builds them (preset fuzz-fast: clang, -O2, no sanitizers, in
# build/fuzz-fast), runs each for a time or a share of a number of executions, several at once, merges what
# reached code its committed corpus (fuzz/corpus/NAME) does not into it, and prints per target the
# executions, the rate, the units merged and any crash with the file that holds its input. Only new code
# counts for the corpora, not new hit counts of known code, so that they stay small and their replay tests
# short.
#
#   scripts/fuzz.sh [-t SECONDS | -n EXECUTIONS] [-j JOBS] [-m] [NAME...]
#
#   -t SECONDS     run each target this long (default 60)
#   -n EXECUTIONS  run this many executions in all, an equal share for each target
#   -j JOBS        targets run at once (default: the number of cores)
#   -m             minimise each corpus afresh after the merge: the fewest units that reach the same code
#   NAME...        only these targets (default: all the fast ones)
#
# A crash stops that target's run; its input is kept as crash-* in the run's folder, which is printed. Replay
# it with build/fuzz-fast/fuzz/NAMEFuzzer FILE, fix the library, and add the file to fuzz/corpus/NAME so that
# the corpus replay test guards the fix.
set -euo pipefail

# Every target that runs at 20,000 executions a second or more without sanitizers, slowest first. (disDatagram
# is as fast, but goes through sockets; disDatagramFast takes the same datagrams without them.)
all_targets=(setFromStringFast createFromNetFamily emulatorApplyFast fedFile trafficReadersFast fomModule
  decodeViewControlFast disDatagramFast rti1516eReceiveFast)

usage() {
  sed -n '2,/^set /p' "$0" | sed '$d; s/^# \{0,1\}//'
  exit 2
}

# The fuzzers of the targets, in their own build folder.
build_fuzzers() {
  local launcher=() fuzzers=() t
  command -v ccache >/dev/null && launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache)
  (cd "$root" && cmake --preset fuzz-fast "${launcher[@]}" >"$run/configure.log")
  for t in "${targets[@]}"; do fuzzers+=("${t}Fuzzer"); done
  cmake --build "$build" --target "${fuzzers[@]}" >"$run/build.log" || {
    tail -n 30 "$run/build.log"
    exit 1
  }
}

# One target: a run that keeps what it finds in a folder of its own, then the merge into the corpus.
fuzz_one() {
  local name=$1 dir=$run/$1 corpus=$root/fuzz/corpus/$1
  local fuzzer=$build/fuzz/${name}Fuzzer before
  mkdir -p "$dir/new" "$corpus"
  "$fuzzer" "$(limit "$2")" -print_final_stats=1 -close_fd_mask=3 -artifact_prefix="$dir/" \
    "$dir/new" "$corpus" >"$dir/fuzz.log" 2>&1 || true
  before=$(find "$corpus" -type f | wc -l)
  "$fuzzer" -merge=1 -use_counters=0 -close_fd_mask=3 -artifact_prefix="$dir/merge-" "$corpus" "$dir/new" \
    >"$dir/merge.log" 2>&1 || true
  echo $(($(find "$corpus" -type f | wc -l) - before)) >"$dir/merged"
  if [ "$minimise" = 1 ]; then
    rm -rf "$dir/minimised" && mkdir "$dir/minimised"
    if "$fuzzer" -set_cover_merge=1 -use_counters=0 -close_fd_mask=3 "$dir/minimised" "$corpus" \
      >"$dir/minimise.log" 2>&1; then
      rm -f "$corpus"/* && cp "$dir/minimised"/* "$corpus"/
    fi
  fi
}

# The run's bound for the target of that index: its time, or its share of the executions (the first ones
# take one more each until the remainder is spent).
limit() {
  if [ -z "$executions" ]; then
    echo "-max_total_time=$seconds"
  else
    local count=${#targets[@]}
    echo "-runs=$((executions / count + ($1 < executions % count ? 1 : 0)))"
  fi
}

final_stat() { sed -n "s/^stat::$1: *//p" "$2" | tail -n 1; }

report() {
  local t log units crash total=0 found=0
  printf '%-24s %14s %10s %8s %8s  %s\n' target executions exec/s merged corpus crash
  for t in "${targets[@]}"; do
    log=$run/$t/fuzz.log
    units=$(final_stat number_of_executed_units "$log")
    crash=$(find "$run/$t" -maxdepth 1 \( -name 'crash-*' -o -name 'leak-*' -o -name 'timeout-*' -o -name 'oom-*' \) |
      head -n 1)
    [ -z "$crash" ] || found=$((found + 1))
    printf '%-24s %14s %10s %8s %8s  %s\n' "$t" "${units:-?}" "$(final_stat average_exec_per_sec "$log")" \
      "$(cat "$run/$t/merged" 2>/dev/null)" "$(find "$root/fuzz/corpus/$t" -type f | wc -l)" "${crash:--}"
    total=$((total + ${units:-0}))
  done
  echo "total executions: $total; targets with a finding: $found; logs in $run"
  [ "$found" = 0 ]
}

main() {
  seconds=60
  executions=""
  jobs=$(nproc)
  minimise=0
  local option t
  while getopts "t:n:j:mh" option; do
    case $option in
      t) seconds=$OPTARG ;;
      n) executions=$OPTARG ;;
      j) jobs=$OPTARG ;;
      m) minimise=1 ;;
      *) usage ;;
    esac
  done
  shift $((OPTIND - 1))
  targets=("$@")
  [ ${#targets[@]} -gt 0 ] || targets=("${all_targets[@]}")

  root=$(cd "$(dirname "$0")/.." && pwd)
  build=$root/build/fuzz-fast
  run=$build/campaign/$(date -u +%Y%m%dT%H%M%S)
  mkdir -p "$run"
  build_fuzzers
  local index=0
  for t in "${targets[@]}"; do
    [ -x "$build/fuzz/${t}Fuzzer" ] || { echo "no fuzz target $t" >&2; exit 2; }
    while [ "$(jobs -rp | wc -l)" -ge "$jobs" ]; do wait -n || true; done
    fuzz_one "$t" "$index" &
    index=$((index + 1))
  done
  wait
  report
}

# Read whole before it runs, so that the script can change while a long campaign is under way.
main "$@"
