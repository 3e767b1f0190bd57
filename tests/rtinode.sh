#!/usr/bin/env bash
# Starts or stops an RTI server on a free loopback port for the scenario tests over an RTI.
#   rtinode.sh start <rtinode program> <state dir>   writes <state dir>/port and <state dir>/pid
#   rtinode.sh stop <state dir>
set -euo pipefail

case "$1" in
start)
  program=$2 state=$3
  mkdir -p "$state"
  for attempt in $(seq 1 20); do
    port=$((20000 + RANDOM % 40000))
    (exec 3<>"/dev/tcp/127.0.0.1/$port") 2>/dev/null && continue  # taken
    "$program" -i "127.0.0.1:$port" >"$state/rtinode.log" 2>&1 &
    pid=$!
    for _ in $(seq 1 100); do
      if (exec 3<>"/dev/tcp/127.0.0.1/$port") 2>/dev/null; then
        echo "$port" >"$state/port"
        echo "$pid" >"$state/pid"
        echo "rtinode $pid listens on 127.0.0.1:$port"
        exit 0
      fi
      kill -0 "$pid" 2>/dev/null || break  # it could not listen there; try another port
      sleep 0.05
    done
    kill "$pid" 2>/dev/null || true
  done
  echo "could not start $program on a free loopback port" >&2
  exit 1
  ;;
stop)
  state=$2
  [ -f "$state/pid" ] || exit 0
  pid=$(cat "$state/pid")
  kill -TERM "$pid" 2>/dev/null || true
  for _ in $(seq 1 100); do
    kill -0 "$pid" 2>/dev/null || break
    sleep 0.05
  done
  kill -0 "$pid" 2>/dev/null && kill -KILL "$pid"
  rm -f "$state/pid" "$state/port"
  ;;
esac
