#!/usr/bin/env bash
# Starts or stops an RTI server on free loopback ports for the scenario tests over an RTI.
#   rtiserver.sh start <rtinode or rtig program> <state dir> [port]   writes <state dir>/port, env and pid;
#       with a port, on that one only (a server started again where its federates look for it)
#   rtiserver.sh stop <state dir>
# <state dir>/env holds what a federate of that RTI needs in its environment to find the server.
set -euo pipefail

portFree() { ! (exec 3<>"/dev/tcp/127.0.0.1/$1") 2>/dev/null; }

case "$1" in
start)
  program=$2 fixed=${4:-}
  case $program in */*) program=$(cd "$(dirname "$program")" && pwd)/$(basename "$program") ;; esac
  mkdir -p "$3"
  state=$(cd "$3" && pwd)
  for attempt in $(seq 1 20); do
    port=${fixed:-$((20000 + RANDOM % 40000))}
    if ! portFree "$port"; then
      [ -z "$fixed" ] || sleep 0.1  # the port's last holder may not have let it go yet
      continue
    fi
    case "$(basename "$program")" in
    rtig)  # its federates' rtia find it by these; it also takes datagrams on the next port
      printf 'CERTI_HOST=127.0.0.1\nCERTI_TCP_PORT=%s\nCERTI_UDP_PORT=%s\n' "$port" $((port + 1)) >"$state/env"
      # in the state folder, where it writes its RTIG.log
      (cd "$state" && exec env CERTI_TCP_PORT="$port" CERTI_UDP_PORT=$((port + 1)) "$program" -l 127.0.0.1 \
        >"$state/server.log" 2>&1) &
      ;;
    *)
      : >"$state/env"
      "$program" -i "127.0.0.1:$port" >"$state/server.log" 2>&1 &
      ;;
    esac
    pid=$!
    for _ in $(seq 1 100); do
      if ! portFree "$port"; then
        echo "$port" >"$state/port"
        echo "$pid" >"$state/pid"
        echo "$(basename "$program") $pid listens on 127.0.0.1:$port"
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
  rm -f "$state/pid" "$state/port" "$state/env"
  ;;
esac
