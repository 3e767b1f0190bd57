#!/usr/bin/env bash
# The steering program: good commands succeed and print what they send; bad arguments give a usage message
# and exit 2, never a crash.
set -u
steer=$1
failures=0
expect() {
  local want=$1 pattern=$2
  shift 2
  local out rc
  out=$("$steer" "$@" 2>&1)
  rc=$?
  if [ "$rc" -ne "$want" ] || ! grep -q -- "$pattern" <<<"$out"; then
    echo "FAILED: vistralSteer $* -> exit $rc (wanted $want, output matching '$pattern')"
    echo "$out" | head -20
    failures=$((failures + 1))
  fi
}
expect 0 "Command                  VcOrbit (5)" --print orbit "tank 1" 50
expect 0 "IgnoreFlags              ff fd ef ff" --print orbit "tank 1" 50
expect 0 "VcModeless" --print --viewer v2 set-group a b c
expect 0 "Sky Dome:                true" --print sky-dome on
expect 0 "Cannot change mode to    VcModeless (10)" --print mode 10 1 2 3
expect 0 "Usage: vistralSteer" --help
expect 0 "vistralSteer 54" --version
expect 2 "PARSE ERROR: 'abc' is not a number" orbit tank abc
expect 2 "PARSE ERROR: unknown command 'bogus'" bogus
expect 2 "PARSE ERROR: no command given"
expect 2 "PARSE ERROR: usage: set X Y Z" set 1 2
expect 2 "PARSE ERROR: 'sideways' is not" move sideways
expect 2 "PARSE ERROR: '--viewer' needs a value" --viewer
expect 2 "PARSE ERROR: unknown argument '--bogus'" --bogus orbit
expect 2 "PARSE ERROR: '99999999999' is not a whole number" frames-per-second 99999999999
expect 2 "PARSE ERROR: 'maybe' is not on or off" fog maybe
expect 1 "DtException" --federation Steer --fed /nonexistent.fed reset
expect 1 "no report from vistral-9 within 0.2 s" --viewer vistral-9 --wait 0.2 request-state
# A DIS name that cannot be used is an error that says why.
expect 1 "unknown option 'colour'" --federation "dis://127.0.0.1:3000?colour=red" orbit tank 50
expect 1 "cannot resolve host" --federation "dis://no-such-host.invalid:3000" orbit tank 50
echo "$((18 - failures)) passed, $failures failed"
[ "$failures" -eq 0 ]
